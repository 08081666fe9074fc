#include "engine/statementBatch.h"

#include <algorithm>

#include "platform/error.h"

namespace vellumark {

namespace {

constexpr std::size_t kMostStatements = 10000;
constexpr std::size_t kMostBytes = 4 * 1024 * 1024;
constexpr std::size_t kGroupBytes = 16 * 1024;

// True when what follows the statement is read as if it stood alone: its literals are closed, and nothing in
// it can start a name, a comment or an escape that runs on.
bool StandsByItself(std::string_view statement) {
    if (statement.find_first_of("\"`\\$#;") != std::string_view::npos)
        return false;
    if (statement.find("--") != std::string_view::npos || statement.find("/*") != std::string_view::npos)
        return false;
    return std::ranges::count(statement, '\'') % 2 == 0;
}

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
    if (sendsGroups_ && StandsByItself(statement)) {
        group_.append(statement).append(";\n");
        ++grouped_;
        if (group_.size() >= kGroupBytes)
            SendGroup();
    } else {
        SendGroup();
        Send(statement, 1);
    }
    if (ends_.size() >= kMostStatements || texts_.size() >= kMostBytes)
        Finish();
}

// Sends the next `count` statements of texts_ as one text.
void StatementBatch::Send(std::string_view text, std::size_t count) {
    if (count == 0 || ends_.empty())
        return;
    try {
        target_.Execute(text);
        sent_ += count;
        grouped_ = 0;
        group_.clear();
    } catch (const platform::Error&) {
        Replay(sent_);
    }
}

void StatementBatch::Finish() {
    SendGroup();
    if (ends_.empty())
        return;
    try {
        target_.Commit();
    } catch (const platform::Error&) {
        Replay(0);
    }
    Forget();
}

// One statement at a time behind those that went well: the first that fails now is the one to tell of.
void StatementBatch::Replay(std::size_t good) {
    RollBackQuietly(target_);
    const std::string texts = std::move(texts_);
    const std::vector<std::size_t> ends = std::move(ends_);
    Forget();
    const auto statement = [&](std::size_t place) {
        const std::size_t start = place == 0 ? 0 : ends[place - 1];
        return std::string_view(texts).substr(start, ends[place] - start);
    };
    std::size_t place = RepeatGroup(statement, good) ? good : 0;
    try {
        for (; place < ends.size(); ++place)
            target_.Execute(statement(place));
    } catch (const platform::Error&) {
        failed_ = statement(place);
        throw;
    }
}

bool StatementBatch::RepeatGroup(const std::function<std::string_view(std::size_t)>& statement,
                                 std::size_t count) {
    if (count == 0)
        return false;
    try {
        target_.Begin();
        for (std::size_t place = 0; place < count; ++place)
            target_.Execute(statement(place));
        target_.Commit();
        return true;
    } catch (const platform::Error&) {
        RollBackQuietly(target_);
        return false;
    }
}

void StatementBatch::Forget() {
    texts_.clear();
    ends_.clear();
    group_.clear();
    grouped_ = sent_ = 0;
}

}  // namespace vellumark
