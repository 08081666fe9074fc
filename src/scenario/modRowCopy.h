#pragma once

#include <string_view>
#include <vector>

#include "platform/dao/recordset.h"

namespace vellumark {

// Sets the named fields of the row being added or edited in `target` to those of the current row of `source`.
// Nulls stay Null.
void CopyFields(const dao::Recordset& source, dao::Recordset& target,
                const std::vector<std::string_view>& fields);

}  // namespace vellumark
