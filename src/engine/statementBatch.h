#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/statementTarget.h"

namespace vellumark {

// Executes statements in transactions, with the outcome that each by itself would have: when one fails, those
// before it stay.
class StatementBatch {
 public:
    explicit StatementBatch(StatementTarget& target) : target_(target), sendsGroups_(target.TakesSeveral()) {}
    // What has not been brought to an end by Finish is undone.
    ~StatementBatch();
    StatementBatch(const StatementBatch&) = delete;
    StatementBatch& operator=(const StatementBatch&) = delete;

    // Throws the error of this statement or of one before it.
    void Execute(std::string_view statement);
    // Makes sure of all statements so far.
    void Finish();

    // The statement that the last error belongs to; empty when there was none.
    const std::string& FailedStatement() const { return failed_; }

 private:
    void Send(std::string_view text, std::size_t count);
    void SendGroup() { Send(group_, grouped_); }

    // `good` counts the statements at the start that have been executed before without an error.
    void Replay(std::size_t good);
    bool RepeatGroup(const std::function<std::string_view(std::size_t)>& statement, std::size_t count);
    void Forget();

    StatementTarget& target_;
    bool sendsGroups_;
    std::string group_;  // statements that wait to be sent together
    std::size_t grouped_ = 0;
    std::size_t sent_ = 0;  // of those in texts_
    std::string texts_;     // of the open transaction, one behind the other
    std::vector<std::size_t> ends_;
    std::string failed_;
};

}  // namespace vellumark
