#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "platform/dao/database.h"

namespace vellumark {

// Adds a Category with its values, numbered in their order, and returns its Id. Its type is "T", or "C" when
// the values are those that a model permits. Throws platform::Error.
int AddCategory(const dao::Database& values, std::string_view name, char dataType,
                const std::vector<std::string_view>& texts, char type = 'T');

// Adds a Conversion Code with pairs of code and value. Throws platform::Error.
void AddConversionCode(const dao::Database& values, std::string_view name,
                       const std::vector<std::pair<std::string_view, std::string_view>>& codes);

}  // namespace vellumark
