#pragma once

#include <cstdint>
#include <limits>

#include "engine/modColumnValue.h"
#include "platform/error.h"

namespace vellumark {

// The rows of a Table rule: its range of numbers, as often as it takes to reach the quantity. The range is
// always gone through to its end, so that more rows than the quantity may come.
class RowSequence {
 public:
    explicit RowSequence(const TablePlan& table) : quantity_(table.quantity), range_(table.range) {}

    // Moves to the next row; false behind the last. Throws kOverflow when rows can't be counted any more.
    bool Next() {
        if (next_ > range_.end) {
            if (row_.rowCounter >= quantity_)
                return false;
            next_ = range_.start;
        }
        if (row_.rowCounter == std::numeric_limits<int>::max())
            throw platform::Error(platform::kOverflow, "Overflow");
        ++row_.rowCounter;
        row_.rangeValue = static_cast<int>(next_++);
        return true;
    }
    const RowPosition& Row() const { return row_; }

 private:
    int quantity_;
    RowRange range_;
    std::int64_t next_ = std::numeric_limits<std::int64_t>::max();
    RowPosition row_;
};

}  // namespace vellumark
