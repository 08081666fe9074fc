#include "engine/statementBatch.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/error.h"

namespace vellumark::test {

namespace {

// Keeps what statements would have left behind.
class FakeTarget : public StatementTarget {
 public:
    void Execute(std::string_view statement) override {
        ++executed;
        if (statement == failing || (inTransaction && statement == failingInside))
            throw platform::Error(3022, "duplicate " + std::string(statement));
        (inTransaction ? pending : done) += statement;
    }
    void Begin() override {
        if (!begins)
            throw platform::Error(3218, "locked");
        inTransaction = true;
    }
    void Commit() override {
        if (!commits)
            throw platform::Error(3201, "deferred");
        done += pending;
        Rollback();
        ++committed;
    }
    void Rollback() override {
        pending.clear();
        inTransaction = false;
    }

    std::string failing;
    std::string failingInside;  // a transaction
    bool begins = true;
    bool commits = true;
    bool inTransaction = false;
    std::string pending;
    std::string done;
    int executed = 0;
    int committed = 0;
};

std::string ErrorOf(StatementBatch& batch, const std::string& statements) {
    try {
        for (const char statement : statements)
            batch.Execute(std::string(1, statement));
        batch.Finish();
    } catch (const platform::Error& error) {
        return error.Line() + " [" + batch.FailedStatement() + "]";
    }
    return {};
}

TEST(StatementBatchTest, KeepsWhatStoodBeforeAFailingStatement) {
    FakeTarget target;
    target.failing = "c";
    StatementBatch batch(target);
    EXPECT_EQ(ErrorOf(batch, "abcd"), "Error: 3022 duplicate c [c]");
    EXPECT_EQ(target.done, "ab");
    EXPECT_FALSE(target.inTransaction);
    EXPECT_EQ(ErrorOf(batch, "de"), "");
    EXPECT_EQ(target.done, "abde");
}

TEST(StatementBatchTest, RepeatsTheGoodStatementsAsAGroup) {
    FakeTarget target;
    StatementBatch batch(target);
    batch.Execute("a");
    target.failing = "b";
    EXPECT_EQ(ErrorOf(batch, "b"), "Error: 3022 duplicate b [b]");
    EXPECT_EQ(target.done, "a");
    EXPECT_EQ(target.committed, 1);

    target.failing.clear();
    batch.Execute("c");
    target.failingInside = "c";
    EXPECT_EQ(ErrorOf(batch, "dc"), "");
    EXPECT_EQ(target.done, "acdc");
    EXPECT_EQ(target.committed, 1);
}

TEST(StatementBatchTest, RepeatsAGroupThatCannotBeCommitted) {
    FakeTarget target;
    target.commits = false;
    StatementBatch batch(target);
    EXPECT_EQ(ErrorOf(batch, "abc"), "");
    EXPECT_EQ(target.done, "abc");
    EXPECT_EQ(target.executed, 6);
}

TEST(StatementBatchTest, CommitsGroups) {
    FakeTarget target;
    {
        StatementBatch batch(target);
        EXPECT_EQ(ErrorOf(batch, std::string(25000, 'x')), "");
        EXPECT_EQ(target.committed, 3);
        batch.Execute("y");
    }
    EXPECT_EQ(target.done, std::string(25000, 'x'));  // what was not finished is undone
    target.begins = false;
    StatementBatch batch(target);
    EXPECT_EQ(ErrorOf(batch, "z"), "Error: 3218 locked []");
}

// Takes texts of several statements, as servers do.
class GroupTarget : public StatementTarget {
 public:
    bool TakesSeveral() const override { return true; }
    void Execute(std::string_view text) override {
        texts.emplace_back(text);
        if (text.find("bad") != text.npos)
            throw platform::Error(3022, "duplicate");
        pending += text;
    }
    void Begin() override { inTransaction = true; }
    void Commit() override {
        done += pending;
        Rollback();
    }
    void Rollback() override {
        if (inTransaction)
            pending.clear();
        inTransaction = false;
    }

    std::vector<std::string> texts;
    std::string pending;
    std::string done;
    bool inTransaction = false;
};

TEST(StatementBatchTest, SendsPlainStatementsTogetherAndOthersAlone) {
    GroupTarget target;
    StatementBatch batch(target);
    for (const char* statement : {"a 'x'", "b 'y'", "c 'O'Brien'", "d '--'", "e '\\'", "f"})
        batch.Execute(statement);
    batch.Finish();
    EXPECT_EQ(target.texts,
              (std::vector<std::string>{"a 'x';\nb 'y';\n", "c 'O'Brien'", "d '--'", "e '\\'", "f;\n"}));
}

TEST(StatementBatchTest, FailingGroupLeavesWhatOneByOneWould) {
    GroupTarget target;
    StatementBatch batch(target);
    for (const char* statement : {"a", "b", "bad", "c"})
        batch.Execute(statement);
    EXPECT_THROW(batch.Finish(), platform::Error);
    EXPECT_EQ(batch.FailedStatement(), "bad");
    EXPECT_EQ(target.pending + target.done, "ab");
}

}  // namespace

}  // namespace vellumark::test
