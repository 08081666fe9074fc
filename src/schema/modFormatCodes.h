#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "schema/modFieldFile.h"
#include "schema/modSchemaRows.h"

namespace vellumark {

// What the format code of a column stands for where its type is told by one, with a length or precision and a
// scale in the fields behind it.
struct FormatCode {
    std::string_view code;
    DataType type;
    bool hasDigits;  // the fields are precision and scale
    int size;        // 0 for the length or precision
};

// Sets type and sizes of the column from the code in that field; a code not in the list is a Character's.
void SetFormat(SchemaColumn& column, std::span<const FormatCode> formats, const FieldFile& line,
               std::size_t codeField);

}  // namespace vellumark
