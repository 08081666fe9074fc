#include "engine/sheetStretch.h"

#include <algorithm>

namespace vellumark {

SheetStretch::SheetStretch(const ValueSource& source)
    : firstRow_(source.rows.first),
      firstColumn_(source.columns.first),
      rowEnd_(source.rowEndCell),
      columnEnd_(source.columnEndCell),
      lastRow_(firstRow_ - 1),
      lastColumn_(firstColumn_ - 1) {}

bool SheetStretch::Take(int row, int column, std::string_view text) {
    if (!WalkDown(row, column, text))
        return false;
    if (row == firstRow_)
        WalkAlong(column, text);
    else
        columnsEnded_ = true;
    if (column <= lastColumn_)
        Keep(row, column, text);
    return true;
}

// Empty cells are not given: a row that comes without its first cell has an empty one there.
bool SheetStretch::WalkDown(int row, int column, std::string_view text) {
    const bool endsAtEmpty = rowEnd_.empty();
    if (column != firstColumn_)
        return row <= lastRow_ || !endsAtEmpty;
    if (endsAtEmpty && row > lastRow_ + 1)
        return false;
    const bool isEnd = text == rowEnd_;
    lastRow_ = isEnd ? row - 1 : row;
    return !isEnd;
}

void SheetStretch::WalkAlong(int column, std::string_view text) {
    if (columnsEnded_)
        return;
    const bool isGap = column > lastColumn_ + 1;
    columnsEnded_ = text == columnEnd_ || (isGap && columnEnd_.empty());
    if (!columnsEnded_)
        lastColumn_ = column;
    else if (!columnEnd_.empty())
        lastColumn_ = column - 1;
}

void SheetStretch::Keep(int row, int column, std::string_view text) {
    while (rowStarts_.size() <= static_cast<std::size_t>(row - firstRow_))
        rowStarts_.push_back(cellColumns_.size());
    cellColumns_.push_back(column);
    texts_.Append(text);
}

std::string_view SheetStretch::Text(int row, int column) const {
    const auto index = static_cast<std::size_t>(row - firstRow_);
    if (index >= rowStarts_.size())
        return {};
    const auto begin = cellColumns_.begin() + static_cast<std::ptrdiff_t>(rowStarts_[index]);
    const auto end = index + 1 < rowStarts_.size()
                         ? cellColumns_.begin() + static_cast<std::ptrdiff_t>(rowStarts_[index + 1])
                         : cellColumns_.end();
    const auto cell = std::lower_bound(begin, end, column);
    return cell == end || *cell != column ? std::string_view()
                                          : texts_[static_cast<std::size_t>(cell - cellColumns_.begin())];
}

}  // namespace vellumark
