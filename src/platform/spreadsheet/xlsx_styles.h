#pragma once

#include <string>
#include <vector>

#include "platform/spreadsheet/cell_text.h"
#include "platform/spreadsheet/zip_archive.h"

namespace vellumark::platform {

// The format of each style of an .xlsx file, by its number.
std::vector<CellFormat> ReadStyles(const ZipArchive& archive, const std::string& entry);

}  // namespace vellumark::platform
