#pragma once

#include "platform/spreadsheet/workbook.h"
#include "platform/spreadsheet/xml_stream.h"

namespace vellumark::platform {

// Reads the cells of one sheet, counted from 0, of an .ods file.
void ReadOdsSheet(const ZipArchive& archive, const std::string& entry, std::size_t sheet,
                  const CellRange& range, const CellHandler& use);

}  // namespace vellumark::platform
