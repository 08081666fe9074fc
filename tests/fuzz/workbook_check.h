#pragma once

#include <string>

#include "spreadsheet_files.h"

namespace vellumark::fuzz {

// Reads all sheets of a workbook, as a whole and in parts that must agree. A damaged file is refused.
void CheckWorkbook(const std::string& path);

// Where an input has parts called "@@name", they take the place of the entries of that name or are added.
test::Entries WithParts(test::Entries entries, std::string_view input);

}  // namespace vellumark::fuzz
