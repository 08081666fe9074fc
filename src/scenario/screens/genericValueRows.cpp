#include "scenario/screens/genericValueRows.h"

namespace vellumark {

namespace {

GridRow RowOf(const EditedCategory& category) {
    return {category.id,
            {category.name, CategoryDataTypeName(category.dataType), CategoryTypeName(category.type)}};
}

std::string DependencyText(const EditedValue& value) {
    return value.parentCategory.empty() ? "" : value.parentCategory + ": " + value.parentValue;
}

}  // namespace

EditedCategory CategoryRows::CategoryOf(const GridRow& row) {
    return {row.id, row.cells[0], CategoryDataTypeCode(row.cells[1]),
            row.cells[2] == CategoryTypeName('C') ? 'C' : 'T'};
}

std::vector<GridColumn> CategoryRows::Columns() const {
    return {{"Name", CellKind::Text, !editable_},
            {"Data Type",
             CellKind::Choice,
             !editable_,
             {"Character", "Date", "Integer", "Real", "Time", "Timestamp"}},
            {"Type", CellKind::Text, true}};
}

std::vector<GridRow> CategoryRows::Load() {
    std::vector<GridRow> rows;
    for (const EditedCategory& category : ListEditedCategories(kind_))
        rows.push_back(RowOf(category));
    return rows;
}

void CategoryRows::BeforeInsert(GridRow& row) {
    EditedCategory category;
    category.type = kind_ == CategoryKind::PermittedValue ? 'C' : 'T';
    row = RowOf(category);
}

bool CategoryRows::Insert(GridRow& row) {
    EditedCategory category = CategoryOf(row);
    if (!fSaveCategory(category))
        return false;
    row.id = category.id;
    return true;
}

bool CategoryRows::Update(const GridRow& row) {
    EditedCategory category = CategoryOf(row);
    return fSaveCategory(category);
}

bool CategoryRows::Delete(const GridRow& row) {
    return fDeleteCategory(CategoryOf(row));
}

void GenericValueRows::SetCategory(int id, char dataType) {
    categoryId_ = id;
    dataType_ = dataType;
}

std::vector<GridColumn> GenericValueRows::Columns() const {
    return {{"Value", CellKind::Text, !editable_}, {"Depends on", CellKind::Text, true}};
}

std::vector<GridRow> GenericValueRows::Load() {
    std::vector<GridRow> rows;
    if (categoryId_ > 0)
        for (const EditedValue& value : ListEditedValues(categoryId_))
            rows.push_back({value.id, {value.value, DependencyText(value)}});
    return rows;
}

bool GenericValueRows::Insert(GridRow& row) {
    EditedValue value = ValueOf(row);
    if (!fSaveValue(value, dataType_))
        return false;
    row.id = value.id;
    return true;
}

bool GenericValueRows::Update(const GridRow& row) {
    EditedValue value = ValueOf(row);
    return fSaveValue(value, dataType_);
}

}  // namespace vellumark
