#pragma once

#include <string>
#include <vector>

// Editing Categories of Generic values and Conversion Codes, row by row.
namespace vellumark {

enum class CategoryKind { All, GenericValue, PermittedValue };

struct EditedCategory {
    int id = 0;  // 0 while it is new
    std::string name;
    char dataType = 'C';  // C, I, R, D, T or S
    char type = 'T';      // T of our own, C from a model
};

struct EditedValue {
    int id = 0;  // 0 while it is new
    int categoryId = 0;
    std::string value;
    int parentCategoryId = 0;  // 0 unless it depends on a value of another Category
    int parentValueId = 0;
    std::string parentCategory;  // the names of those, for showing
    std::string parentValue;
};

struct EditedConversionCode {
    int id = 0;
    std::string name;
};

struct EditedCodeValue {
    int id = 0;
    int conversionId = 0;
    std::string code;
    std::string value;
};

// "Character" for 'C' and so on, and back; an unknown word gives 'C'.
std::string CategoryDataTypeName(char code);
char CategoryDataTypeCode(const std::string& name);
// "Vellumark Generic Value" or "COOL:Gen Permitted Value".
std::string CategoryTypeName(char type);

// By name.
std::vector<EditedCategory> ListEditedCategories(CategoryKind kind);
// In their stored order.
std::vector<EditedValue> ListEditedValues(int categoryId);
std::vector<EditedConversionCode> ListEditedConversionCodes();
// By code.
std::vector<EditedCodeValue> ListEditedCodeValues(int conversionId);

// Write a row; a new one gets its Id. False behind a message, with nothing written.
bool fSaveCategory(EditedCategory& category);
bool fSaveValue(EditedValue& value, char dataType);
bool fSaveConversionCode(EditedConversionCode& code);
bool fSaveCodeValue(EditedCodeValue& value);

// Refuse what data generation uses, and ask. False when the row stays.
bool fDeleteCategory(const EditedCategory& category);
bool fDeleteValue(const EditedValue& value);
bool fDeleteConversionCode(const EditedConversionCode& code);
bool fDeleteCodeValue(const EditedCodeValue& value);

// Makes the value depend on that value of another Category; zeros end it.
bool fSetValueDependency(const EditedValue& value, int parentCategoryId, int parentValueId);

// Asks for the order and numbers the values anew in it; false when the user cancelled.
bool SortValues(int categoryId);

}  // namespace vellumark
