#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "platform/row_store.h"
#include "tools/modSQLRun.h"

namespace vellumark {

// One SQL text at work in a thread of its own, its rows gathered on disk. Nobody else may use the connections
// before it is done.
class SQLRunner : private SQLRowSink {
 public:
    SQLRunner(const OpenConnections& connections, char protocol, std::string text);
    // Stops it and waits.
    ~SQLRunner() override;
    SQLRunner(const SQLRunner&) = delete;
    SQLRunner& operator=(const SQLRunner&) = delete;

    // Asks the statement to end, which takes a moment; to be called again until it is done.
    void Stop();
    bool IsDone() const { return done_; }
    // Valid once it is done.
    const SQLResult& Result() const { return result_; }

    // The rows so far, to which more may come; none while the statement has shown no fields.
    std::shared_ptr<const platform::RowStore> Rows() const;
    // Bytes of the longest row so far, with a blank behind each field.
    std::size_t LongestRow() const { return longestRow_; }

 private:
    void TakeFields(const std::vector<std::string>& names) override;
    bool TakeRow(const platform::Cursor& row) override;
    void Run(const OpenConnections& connections, char protocol, const std::string& text);

    mutable std::mutex mutex_;
    std::shared_ptr<platform::RowStore> rows_;
    std::size_t fields_ = 0;
    SQLResult result_;
    std::atomic<std::size_t> longestRow_ = 0;
    std::atomic<bool> stopping_ = false;
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

}  // namespace vellumark
