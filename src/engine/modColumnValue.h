#pragma once

#include <string>

#include "engine/columnPlan.h"
#include "engine/textBuffer.h"

namespace vellumark {

// A row's place in its Table rule: its number, from 1, and the current number of the rule's range.
struct RowPosition {
    int rowCounter = 0;
    int rangeValue = 0;
};

// The column's number in that row. Throws kOverflow and kDivisionByZero.
int NextNumber(const NumberPlan& number, const RowPosition& row, RandomStream& random);

// Appends the value of the column in that row, in the form of the Target format and cut to the column's
// bounds. False when its reader failed, which has shown why. Throws platform::Error when a date leaves its
// years or a number its 32 bits.
bool fGenerateColumnValue(TextBuffer& out, ColumnPlan& column, const RowPosition& row, ValueContext& context);

// Joins, fills and cuts a value that has just been made.
void FinishValue(std::string& value, const ColumnPlan& column, int number);

}  // namespace vellumark
