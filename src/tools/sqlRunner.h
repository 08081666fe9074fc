#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "tools/modSQLRun.h"

namespace vellumark {

// One SQL text at work in a thread of its own. Nobody else may use the connections before it is done.
class SQLRunner : private SQLRowSink {
 public:
    // `rows` gets what comes, in that thread, and must outlive the runner.
    SQLRunner(const OpenConnections& connections, char protocol, std::string text, SQLRowSink& rows);
    // Stops it and waits.
    ~SQLRunner() override;
    SQLRunner(const SQLRunner&) = delete;
    SQLRunner& operator=(const SQLRunner&) = delete;

    // Asks the statement to end, which takes a moment; to be called again until it is done.
    void Stop();
    bool IsDone() const { return done_; }
    // Waits no longer than that; whether it is done.
    bool WaitUntilDone(std::chrono::milliseconds time);
    // Valid once it is done.
    const SQLResult& Result() const { return result_; }

 private:
    void TakeFields(const std::vector<std::string>& names) override { rows_.TakeFields(names); }
    bool TakeRow(const platform::Cursor& row) override { return rows_.TakeRow(row) && !stopping_; }
    void Run(const OpenConnections& connections, char protocol, const std::string& text);

    SQLRowSink& rows_;
    SQLResult result_;
    std::mutex mutex_;
    std::condition_variable finished_;
    std::atomic<bool> stopping_ = false;
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

}  // namespace vellumark
