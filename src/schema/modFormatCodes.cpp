#include "schema/modFormatCodes.h"

#include <algorithm>

#include "platform/text.h"

namespace vellumark {

namespace {

FormatCode FindFormat(std::span<const FormatCode> formats, std::string_view code) {
    const auto found = std::ranges::find(formats, code, &FormatCode::code);
    return found == formats.end() ? FormatCode{code, DataType::Character, false, 0} : *found;
}

}  // namespace

void SetFormat(SchemaColumn& column, std::span<const FormatCode> formats, const FieldFile& line,
               std::size_t codeField) {
    const FormatCode format = FindFormat(formats, platform::Trim(line.Field(codeField)));
    const int length = format.hasDigits || format.size == 0 ? line.Number(codeField + 1) : 0;
    column.dataType = format.type;
    column.size = format.size == 0 ? length : format.size;
    if (format.type == DataType::Character)
        column.maximumLength = length;
    if (format.hasDigits) {
        column.precision = length;
        column.scale = line.Number(codeField + 2);
    }
}

}  // namespace vellumark
