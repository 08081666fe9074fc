#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/valueSource.h"
#include "platform/text_list.h"

namespace vellumark {

// The part of a sheet that a source reads: from its start down the first column and along the first row, each
// as far as the cell with the terminator, the source's own end, or the last cell that holds anything.
class SheetStretch {
 public:
    explicit SheetStretch(const ValueSource& source);

    // Takes the cells row by row, from left to right, those before the start left out. False when no more are
    // wanted.
    bool Take(int row, int column, std::string_view text);

    int TotalRows() const { return lastRow_ - firstRow_ + 1; }
    int TotalColumns() const { return lastColumn_ - firstColumn_ + 1; }
    int LastRow() const { return lastRow_; }
    int LastColumn() const { return lastColumn_; }

    // Of a cell within the stretch; empty text for an empty cell. Valid as long as the stretch.
    std::string_view Text(int row, int column) const;

 private:
    // False when the cell stands behind the last row.
    bool WalkDown(int row, int column, std::string_view text);
    void WalkAlong(int column, std::string_view text);
    void Keep(int row, int column, std::string_view text);

    int firstRow_;
    int firstColumn_;
    std::string rowEnd_;
    std::string columnEnd_;

    int lastRow_;  // as far as it is known
    int lastColumn_;
    bool columnsEnded_ = false;

    std::vector<std::size_t> rowStarts_;  // among the cells, from the first row on
    std::vector<int> cellColumns_;
    platform::TextList texts_;
};

}  // namespace vellumark
