#pragma once

#include <vector>

#include "platform/spreadsheet/cell_text.h"
#include "platform/spreadsheet/workbook.h"
#include "platform/spreadsheet/xml_stream.h"
#include "platform/text_list.h"

namespace vellumark::platform {

// What all sheets of an .xlsx file share.
struct XlsxShared {
    TextList strings;
    std::vector<CellFormat> styles;
    bool from1904 = false;
};

// Reads the cells of one sheet. Throws kUnrecognizedFormat for cells out of their order or without content
// that they refer to.
void ReadXlsxSheet(const ZipArchive& archive, const std::string& entry, const XlsxShared& shared,
                   const CellRange& range, const CellHandler& use);

}  // namespace vellumark::platform
