#include "schema/screens/editedColumnRows.h"

#include <algorithm>

#include "platform/dialogs.h"
#include "platform/text.h"

namespace vellumark {

namespace {

using enum EditedColumnRows::Cell;

std::string NumberText(std::optional<int> number) {
    return number ? std::to_string(*number) : std::string();
}

std::string FlagText(bool flag) {
    return flag ? kChecked : "";
}

std::string ParentText(const EditedColumn& column) {
    return column.parentTable.empty() ? "" : column.parentTable + "." + column.parentColumn;
}

GridRow RowOf(const EditedColumn& column) {
    return {column.id,
            {column.name, std::string(DataTypeName(column.dataType)), NumberText(column.maximumLength),
             NumberText(column.precision), NumberText(column.scale), NumberText(column.size),
             FlagText(column.identifier), FlagText(column.optional), column.role, ParentText(column),
             column.attributeName}};
}

DataType TypeOf(const GridRow& row) {
    return ParseDataType(row.cells[kType]).value_or(DataType::Character);
}

}  // namespace

std::vector<GridColumn> EditedColumnRows::Columns() const {
    return {{"Name"},
            {"Data Type",
             CellKind::Choice,
             false,
             {"Character", "Date", "Time", "TimeStamp", "Blob", "Boolean", "Integer", "Long Integer",
              "Currency", "Single", "Big Integer", "Tiny Integer", "Double", "Variant"}},
            {"Maximum Length", CellKind::Number},
            {"Precision", CellKind::Number},
            {"Scale", CellKind::Number},
            {"Size", CellKind::Number},
            {"Identifier", CellKind::Check},
            {"Optional", CellKind::Check},
            {"Role", CellKind::Text, true},
            {"Parent", CellKind::Text, true},
            {"Attribute Name"}};
}

std::vector<GridRow> EditedColumnRows::Load() {
    std::vector<GridRow> rows;
    if (tableId_ > 0)
        for (const EditedColumn& column : ListEditedColumns(tableId_))
            rows.push_back(RowOf(column));
    return rows;
}

void EditedColumnRows::BeforeInsert(GridRow& row) {
    row = RowOf(NewColumn(tableId_));
}

bool EditedColumnRows::CellOpen(const GridRow& row, int column) const {
    switch (column) {
        case kLength:
            return TakesMaximumLength(TypeOf(row));
        case kPrecision:
            return TakesPrecision(TypeOf(row));
        case kScale:
            return TakesScale(TypeOf(row));
        default:
            return true;
    }
}

void EditedColumnRows::CellChanged(GridRow& row, int column) {
    if (column != kType)
        return;
    EditedColumn changed = ColumnOf(row);
    SetTypeDefaults(changed);
    row = RowOf(changed);
}

bool EditedColumnRows::Insert(GridRow& row) {
    EditedColumn column = ColumnOf(row);
    if (!fSaveColumn(column))
        return false;
    row.id = column.id;
    return true;
}

bool EditedColumnRows::Update(const GridRow& row) {
    EditedColumn column = ColumnOf(row);
    return fSaveColumn(column);
}

bool EditedColumnRows::Delete(const GridRow& row) {
    return fDeleteColumn(ColumnOf(row));
}

std::optional<EditedColumn> EditedColumnRows::Stored(int columnId) const {
    const std::vector<EditedColumn> columns = ListEditedColumns(tableId_);
    const auto found = std::ranges::find(columns, columnId, &EditedColumn::id);
    return found == columns.end() ? std::nullopt : std::optional(*found);
}

// What is no number counts as none; the checks of a row then say what is missing.
EditedColumn EditedColumnRows::ColumnOf(const GridRow& row) const {
    EditedColumn column;
    column.id = row.id;
    column.tableId = tableId_;
    column.name = row.cells[kName];
    column.dataType = TypeOf(row);
    column.maximumLength = platform::ParseLong(row.cells[kLength]);
    column.precision = platform::ParseLong(row.cells[kPrecision]);
    column.scale = platform::ParseLong(row.cells[kScale]);
    column.size = platform::ParseLong(row.cells[kSize]);
    column.identifier = row.cells[kIdentifier] == kChecked;
    column.optional = row.cells[kOptional] == kChecked;
    column.role = row.cells[kRole];
    column.attributeName = row.cells[kAttribute];
    return column;
}

}  // namespace vellumark
