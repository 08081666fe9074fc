#pragma once

#include <string_view>

#include "platform/dao/table_def.h"
#include "platform/dao/value.h"

namespace vellumark {

// Brings a field of a text file to the form in which a column stores it. Throws kTypeMismatch or kOverflow
// when the text is no value of the column's type.
using TextConverter = dao::Value (*)(std::string_view text);

// Nothing to convert for a column that keeps the text as it is.
TextConverter ConverterFor(const dao::ColumnType& type);

}  // namespace vellumark
