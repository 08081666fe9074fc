#pragma once

#include <string_view>

#include "platform/dao/recordset.h"

namespace vellumark {

// What stands in the Constant Value of a Blob column's rule.
inline constexpr const char* kObjectNote = "Note: Objects will be supported in a future release";

// Sets what a new Column rule starts with, by the column's data type, in the row being added.
void SetColumnRuleDefaults(dao::Recordset& rule, std::string_view dataType);

}  // namespace vellumark
