#pragma once

#include <optional>
#include <vector>

#include "platform/screens/gridRows.h"
#include "tools/modSchemaEditor.h"

namespace vellumark {

// The columns of one table as rows of a grid.
class EditedColumnRows : public GridRows {
 public:
    enum Cell {
        kName,
        kType,
        kLength,
        kPrecision,
        kScale,
        kSize,
        kIdentifier,
        kOptional,
        kRole,
        kParent,
        kAttribute,
    };

    // 0 for no table: there are no rows then, and none can be added.
    void SetTable(int tableId) { tableId_ = tableId; }
    int TableId() const { return tableId_; }

    std::vector<GridColumn> Columns() const override;
    std::vector<GridRow> Load() override;
    bool CanInsert() const override { return tableId_ > 0; }
    bool CanDelete() const override { return true; }
    void BeforeInsert(GridRow& row) override;
    bool CellOpen(const GridRow& row, int column) const override;
    void CellChanged(GridRow& row, int column) override;
    bool Insert(GridRow& row) override;
    bool Update(const GridRow& row) override;
    bool Delete(const GridRow& row) override;

    // The column with that Id as it is stored; nothing when it isn't there.
    std::optional<EditedColumn> Stored(int columnId) const;

 private:
    EditedColumn ColumnOf(const GridRow& row) const;

    int tableId_ = 0;
};

}  // namespace vellumark
