#pragma once

#include <vector>

#include "platform/screens/gridRows.h"
#include "tools/modSchemaEditor.h"

namespace vellumark {

// The columns of a table that may be the parent of a column, as rows of a grid.
class ParentColumnRows : public GridRows {
 public:
    explicit ParentColumnRows(EditedColumn child) : child_(std::move(child)) {}

    void SetTable(int tableId) { tableId_ = tableId; }
    // The column in that row of the grid.
    const EditedColumn& At(int row) const { return columns_[static_cast<std::size_t>(row)]; }

    std::vector<GridColumn> Columns() const override;
    std::vector<GridRow> Load() override;

 private:
    EditedColumn child_;
    int tableId_ = 0;
    std::vector<EditedColumn> columns_;
};

}  // namespace vellumark
