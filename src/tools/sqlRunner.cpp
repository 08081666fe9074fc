#include "tools/sqlRunner.h"

#include <algorithm>
#include <chrono>
#include <exception>

#include "platform/error.h"
#include "platform/running_call.h"

namespace vellumark {

namespace {

constexpr std::chrono::milliseconds kBetweenRequests{20};

}  // namespace

SQLRunner::SQLRunner(const OpenConnections& connections, char protocol, std::string text)
    : thread_([this, &connections, protocol, sql = std::move(text)] { Run(connections, protocol, sql); }) {}

SQLRunner::~SQLRunner() {
    while (!done_) {
        Stop();
        std::this_thread::sleep_for(kBetweenRequests);
    }
    thread_.join();
}

void SQLRunner::Run(const OpenConnections& connections, char protocol, const std::string& text) {
    try {
        result_ = RunSQL(connections, protocol, text, *this);
    } catch (const std::exception& exception) {
        result_.outcome = SQLOutcome::Failed;
        result_.errorNumber = platform::kQueryFailed;
        result_.errorDescription = exception.what();
    }
    // The database reports what it was asked for as an error.
    if (stopping_ && result_.outcome == SQLOutcome::Failed)
        result_.outcome = SQLOutcome::Stopped;
    done_ = true;
}

void SQLRunner::Stop() {
    stopping_ = true;
    if (!done_)
        platform::RunningCall::EndAll();
}

std::shared_ptr<const platform::RowStore> SQLRunner::Rows() const {
    const std::lock_guard lock(mutex_);
    return rows_;
}

void SQLRunner::TakeFields(const std::vector<std::string>& names) {
    auto rows = std::make_shared<platform::RowStore>(names);
    fields_ = names.size();
    const std::lock_guard lock(mutex_);
    rows_ = std::move(rows);
}

bool SQLRunner::TakeRow(const platform::Cursor& row) {
    std::size_t length = fields_;
    for (std::size_t field = 0; field < fields_; ++field)
        length += row.Text(field).size();
    longestRow_ = std::max(longestRow_.load(), length);
    rows_->Append(row);
    return !stopping_;
}

}  // namespace vellumark
