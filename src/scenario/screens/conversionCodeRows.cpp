#include "scenario/screens/conversionCodeRows.h"

namespace vellumark {

std::vector<GridRow> ConversionCodeRows::Load() {
    std::vector<GridRow> rows;
    for (const EditedConversionCode& code : ListEditedConversionCodes())
        rows.push_back({code.id, {code.name}});
    return rows;
}

bool ConversionCodeRows::Insert(GridRow& row) {
    EditedConversionCode code{0, row.cells[0]};
    if (!fSaveConversionCode(code))
        return false;
    row.id = code.id;
    return true;
}

bool ConversionCodeRows::Update(const GridRow& row) {
    EditedConversionCode code{row.id, row.cells[0]};
    return fSaveConversionCode(code);
}

bool ConversionCodeRows::Delete(const GridRow& row) {
    return fDeleteConversionCode({row.id, row.cells[0]});
}

std::vector<GridRow> CodeValueRows::Load() {
    std::vector<GridRow> rows;
    if (conversionId_ > 0)
        for (const EditedCodeValue& value : ListEditedCodeValues(conversionId_))
            rows.push_back({value.id, {value.code, value.value}});
    return rows;
}

bool CodeValueRows::Insert(GridRow& row) {
    EditedCodeValue value = ValueOf(row);
    if (!fSaveCodeValue(value))
        return false;
    row.id = value.id;
    return true;
}

bool CodeValueRows::Update(const GridRow& row) {
    EditedCodeValue value = ValueOf(row);
    return fSaveCodeValue(value);
}

}  // namespace vellumark
