#pragma once

#include <algorithm>

#include "engine/valueInput.h"
#include "platform/text_list.h"

namespace vellumark {

// Data of one column that is held in memory as far as it is needed.
class ColumnInput : public ValueInput {
 public:
    explicit ColumnInput(const ValueSource& source)
        : needed_(std::max(source.rows.first, source.rows.last)) {}

    bool fOpen(InputSize& size) override {
        values_ = {};
        if (!fLoad(values_, needed_))
            return false;
        size.totalRows = size.lastRow = static_cast<int>(values_.Size());
        return true;
    }
    bool fReadValue(int row, int, std::string_view& value) override {
        value = values_[static_cast<std::size_t>(row - 1)];
        return true;
    }

 private:
    // Appends the first `count` values, or all when there are less.
    virtual bool fLoad(platform::TextList& values, int count) = 0;

    int needed_;
    platform::TextList values_;
};

}  // namespace vellumark
