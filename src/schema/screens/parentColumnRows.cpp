#include "schema/screens/parentColumnRows.h"

namespace vellumark {

std::vector<GridColumn> ParentColumnRows::Columns() const {
    return {{"Name", CellKind::Text, true},
            {"Data Type", CellKind::Text, true},
            {"Size", CellKind::Number, true},
            {"Identifier", CellKind::Text, true}};
}

std::vector<GridRow> ParentColumnRows::Load() {
    columns_ = ListParentColumns(child_, tableId_);
    std::vector<GridRow> rows;
    for (const EditedColumn& column : columns_)
        rows.push_back({column.id,
                        {column.name, std::string(DataTypeName(column.dataType)),
                         std::to_string(column.size.value_or(0)), column.identifier ? "Yes" : "No"}});
    return rows;
}

}  // namespace vellumark
