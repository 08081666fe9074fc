#pragma once

#include "platform/screens/gridRows.h"
#include "schema/modDataLink.h"

namespace vellumark {

// The parts of a connection string besides driver and password, as rows of a grid.
class LinkPartRows : public GridRows {
 public:
    // `link` must outlive the rows.
    explicit LinkPartRows(DataLink& link) : link_(link) {}

    std::vector<GridColumn> Columns() const override { return {{"Name"}, {"Value"}}; }
    std::vector<GridRow> Load() override {
        std::vector<GridRow> rows;
        for (const LinkPart& part : link_.OtherParts())
            rows.push_back({part.id, {part.name, part.value}});
        return rows;
    }
    bool CanInsert() const override { return true; }
    bool CanDelete() const override { return true; }
    bool Validate(const GridRow& row) override { return fLinkPartNameOK(row.cells[0]); }
    bool Insert(GridRow& row) override {
        row.id = link_.AddPart(row.cells[0], row.cells[1]);
        return true;
    }
    bool Update(const GridRow& row) override {
        link_.ChangePart({row.id, row.cells[0], row.cells[1]});
        return true;
    }
    bool Delete(const GridRow& row) override {
        link_.RemovePart(row.id);
        return true;
    }

 private:
    DataLink& link_;
};

}  // namespace vellumark
