#include "schema/screens/editedTableRows.h"

namespace vellumark {

namespace {

EditedTable TableOf(const GridRow& row) {
    return {row.id, row.cells[0], row.cells[1], row.cells[2]};
}

}  // namespace

std::vector<GridColumn> EditedTableRows::Columns() const {
    const bool fixed = !editable_;
    return {{"Name", CellKind::Text, fixed},
            {"Owner", CellKind::Text, fixed},
            {"Entity Name", CellKind::Text, fixed}};
}

std::vector<GridRow> EditedTableRows::Load() {
    std::vector<GridRow> rows;
    for (const EditedTable& table : ListEditedTables())
        rows.push_back({table.id, {table.name, table.owner, table.entityName}});
    return rows;
}

bool EditedTableRows::Insert(GridRow& row) {
    EditedTable table = TableOf(row);
    if (!fSaveTable(table))
        return false;
    row.id = table.id;
    return true;
}

bool EditedTableRows::Update(const GridRow& row) {
    EditedTable table = TableOf(row);
    return fSaveTable(table);
}

bool EditedTableRows::Delete(const GridRow& row) {
    return fDeleteTable(TableOf(row));
}

}  // namespace vellumark
