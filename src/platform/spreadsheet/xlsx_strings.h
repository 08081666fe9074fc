#pragma once

#include <string>

#include "platform/spreadsheet/xml_stream.h"
#include "platform/text_list.h"

namespace vellumark::platform {

// Appends text of a cell, in which "_x000D_" and the like stand for control characters.
void AppendUnescaped(std::string& out, std::string_view text);

// The texts that cells of an .xlsx file refer to by their number.
TextList ReadSharedStrings(const ZipArchive& archive, const std::string& entry);

}  // namespace vellumark::platform
