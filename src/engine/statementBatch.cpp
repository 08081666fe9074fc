#include "engine/statementBatch.h"

#include "platform/error.h"

namespace vellumark {

namespace {

constexpr std::size_t kMostStatements = 1000;
constexpr std::size_t kMostBytes = 4 * 1024 * 1024;

void RollBackQuietly(StatementTarget& target) {
    try {
        target.Rollback();
    } catch (const platform::Error&) {
        // A failed statement may have ended the transaction already.
    }
}

}  // namespace

StatementBatch::~StatementBatch() {
    if (!ends_.empty())
        RollBackQuietly(target_);
}

void StatementBatch::Execute(std::string_view statement) {
    if (ends_.empty())
        target_.Begin();
    texts_ += statement;
    ends_.push_back(texts_.size());
    try {
        target_.Execute(statement);
    } catch (const platform::Error&) {
        Replay();
        return;
    }
    if (ends_.size() >= kMostStatements || texts_.size() >= kMostBytes)
        Finish();
}

void StatementBatch::Finish() {
    if (ends_.empty())
        return;
    try {
        target_.Commit();
    } catch (const platform::Error&) {
        Replay();
    }
    Forget();
}

// One statement at a time: the first that fails now is the one to tell of.
void StatementBatch::Replay() {
    RollBackQuietly(target_);
    const std::string texts = std::move(texts_);
    const std::vector<std::size_t> ends = std::move(ends_);
    Forget();
    std::size_t start = 0;
    for (const std::size_t end : ends) {
        const std::string_view statement = std::string_view(texts).substr(start, end - start);
        try {
            target_.Execute(statement);
        } catch (const platform::Error&) {
            failed_ = statement;
            throw;
        }
        start = end;
    }
}

void StatementBatch::Forget() {
    texts_.clear();
    ends_.clear();
}

}  // namespace vellumark
