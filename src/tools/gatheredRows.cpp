#include "tools/gatheredRows.h"

#include <algorithm>

namespace vellumark {

std::shared_ptr<const platform::RowStore> GatheredRows::Rows() const {
    const std::lock_guard lock(mutex_);
    return rows_;
}

void GatheredRows::TakeFields(const std::vector<std::string>& names) {
    auto rows = std::make_shared<platform::RowStore>(names);
    fields_ = names.size();
    const std::lock_guard lock(mutex_);
    rows_ = std::move(rows);
}

bool GatheredRows::TakeRow(const platform::Cursor& row) {
    std::size_t length = fields_;
    for (std::size_t field = 0; field < fields_; ++field)
        length += row.Text(field).size();
    longestRow_ = std::max(longestRow_.load(), length);
    rows_->Append(row);
    return true;
}

}  // namespace vellumark
