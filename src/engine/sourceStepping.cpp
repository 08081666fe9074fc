#include "engine/sourceStepping.h"

#include <algorithm>
#include <cstdint>

namespace vellumark {

namespace {

bool HasNextRow(const ReadOrder& order, const ReadingState& state, const Stretch& rows) {
    return std::int64_t{state.lastRow} + order.interval <= rows.last;
}

}  // namespace

int NextFileRow(const ReadOrder& order, ReadingState& state, const Stretch& rows) {
    if (state.lastRow == 0)
        state.lastRow = rows.first;
    else if (HasNextRow(order, state, rows))
        state.lastRow += order.interval;
    else if (order.atEnd == EndOfValues::Loop)
        state.lastRow = rows.first;
    else if (order.atEnd == EndOfValues::Stop)
        state.lastRow = -1;
    return state.lastRow;
}

void NextSheetCell(const ReadOrder& order, ReadingState& state, int& column, const Stretch& columns, int& row,
                   const Stretch& rows) {
    const bool isFirst = state.lastRow == 0;
    if (!isFirst && HasNextRow(order, state, rows)) {
        state.lastRow += order.interval;
    } else if (!isFirst && state.lastColumn < columns.last) {
        state.lastRow = rows.first;
        ++state.lastColumn;
    } else if (isFirst || order.atEnd == EndOfValues::Loop) {
        state.lastRow = rows.first;
        state.lastColumn = columns.first;
    } else if (order.atEnd == EndOfValues::Stop) {
        state.lastRow = -1;
        state.lastColumn = -1;
    }
    row = state.lastRow;
    column = state.lastColumn;
}

int RandomOf(RandomStream& random, const Stretch& stretch) {
    return RandomInRange(random, stretch.first, std::max(stretch.first, stretch.last));
}

}  // namespace vellumark
