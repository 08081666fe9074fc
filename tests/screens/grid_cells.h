#pragma once

#include <string>

#include "platform/screens/rowGrid.h"

namespace vellumark::test {

// Types into a cell that is open for it, as F2 and Return do, or chooses in its list. The form must be
// active.
void TypeCell(RowGrid& grid, int row, int column, const std::string& text);

std::string CellText(const RowGrid& grid, int row, int column);

// The cells of the first `rows` rows: joined by "|", rows by line ends.
std::string CellTexts(const RowGrid& grid, int rows);

}  // namespace vellumark::test
