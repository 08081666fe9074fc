#pragma once

#include "engine/randomStream.h"
#include "engine/valueSource.h"

// The steps from value to value that all readers share.
namespace vellumark {

// The next row in order, or -1 when there is none. The first step leads to the first row, also where that is
// behind the last.
int NextFileRow(const ReadOrder& order, ReadingState& state, const Stretch& rows);

// The same through the rows of the first column, then those of the second, and so on. Sets row and column to
// -1 when there is no next cell.
void NextSheetCell(const ReadOrder& order, ReadingState& state, int& column, const Stretch& columns, int& row,
                   const Stretch& rows);

// One of a stretch; the first where that is behind the last.
int RandomOf(RandomStream& random, const Stretch& stretch);

}  // namespace vellumark
