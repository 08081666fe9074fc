#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Categories of Generic values and Conversion Codes in the Values database.
namespace vellumark {

struct CategorySummary {
    int id = 0;
    std::string name;
    char dataType = 'C';  // C, I, R, D, T or S
    char type = 'T';      // T of our own, C from a model
    int values = 0;
};

// By name.
std::vector<CategorySummary> ListCategories();

// 0 when there is none of that name.
int CategoryId(std::string_view name);
int ConversionCodeId(std::string_view name);

// Shows why the value is none of that data type and returns false, or returns true.
bool fVLEValidateError(std::string_view value, char dataType);

// Makes a Category with these values in their order. False behind a message (the name is taken, a value is
// off), with nothing made.
bool fImportCategory(const std::string& name, char dataType, const std::vector<std::string>& values);

// Makes a Conversion Code from pairs of code and value, likewise.
bool fImportConversionCode(const std::string& name,
                           const std::vector<std::pair<std::string, std::string>>& codes);

}  // namespace vellumark
