#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>

#include "platform/row_store.h"
#include "tools/modSQLRun.h"

namespace vellumark {

// The rows of a SQL text, gathered on disk by one thread and looked at by another.
class GatheredRows : public SQLRowSink {
 public:
    // The rows so far, to which more may come; none while the statement has shown no fields.
    std::shared_ptr<const platform::RowStore> Rows() const;
    // Bytes of the longest row so far, with a blank behind each field.
    std::size_t LongestRow() const { return longestRow_; }

    void TakeFields(const std::vector<std::string>& names) override;
    bool TakeRow(const platform::Cursor& row) override;

 private:
    mutable std::mutex mutex_;
    std::shared_ptr<platform::RowStore> rows_;
    std::size_t fields_ = 0;
    std::atomic<std::size_t> longestRow_ = 0;
};

}  // namespace vellumark
