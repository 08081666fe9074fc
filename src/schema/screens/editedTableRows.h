#pragma once

#include <vector>

#include "platform/screens/gridRows.h"
#include "tools/modSchemaEditor.h"

namespace vellumark {

// The open schema's tables as rows of a grid.
class EditedTableRows : public GridRows {
 public:
    explicit EditedTableRows(bool editable) : editable_(editable) {}

    std::vector<GridColumn> Columns() const override;
    std::vector<GridRow> Load() override;
    bool CanInsert() const override { return editable_; }
    bool CanDelete() const override { return editable_; }
    bool Insert(GridRow& row) override;
    bool Update(const GridRow& row) override;
    bool Delete(const GridRow& row) override;

 private:
    bool editable_;
};

}  // namespace vellumark
