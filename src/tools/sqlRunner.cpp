#include "tools/sqlRunner.h"

#include <exception>

#include "platform/error.h"
#include "platform/running_call.h"

namespace vellumark {

namespace {

constexpr std::chrono::milliseconds kBetweenRequests{20};

}  // namespace

SQLRunner::SQLRunner(const OpenConnections& connections, char protocol, std::string text, SQLRowSink& rows)
    : rows_(rows),
      thread_([this, &connections, protocol, sql = std::move(text)] { Run(connections, protocol, sql); }) {}

SQLRunner::~SQLRunner() {
    do
        Stop();
    while (!WaitUntilDone(kBetweenRequests));
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
    const std::lock_guard lock(mutex_);
    done_ = true;
    finished_.notify_all();
}

bool SQLRunner::WaitUntilDone(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    return finished_.wait_for(lock, time, [this] { return done_.load(); });
}

void SQLRunner::Stop() {
    stopping_ = true;
    if (!done_)
        platform::RunningCall::EndAll();
}

}  // namespace vellumark
