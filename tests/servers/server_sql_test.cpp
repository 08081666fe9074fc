#include <chrono>
#include <gtest/gtest.h>
#include <thread>

#include "servers.h"
#include "sql_rows.h"
#include "tools/sqlRunner.h"

namespace vellumark::test {
namespace {

class ServerSQLTest : public ::testing::TestWithParam<ServerRoute> {
 protected:
    void SetUp() override {
        database.Run("create table t (a integer primary key, b varchar(20));");
        if (GetParam().protocol == 'A')
            connections.ado.Open(database.ConnectionString());
        else
            connections.dao = dao::OpenOdbcDatabase("", database.ConnectionString());
    }

    SQLResult RunInto(ListedRows& rows, const std::string& text) const {
        return RunSQL(connections, GetParam().protocol, text, rows);
    }
    std::string Run(const std::string& text) const {
        ListedRows rows;
        const SQLResult result = RunInto(rows, text);
        return rows.text + (result.outcome == SQLOutcome::Failed ? "failed" : result.Line());
    }

    ServerDatabase database{GetParam().engine};
    OpenConnections connections;
};

TEST_P(ServerSQLTest, RunsStatements) {
    EXPECT_EQ(Run("-- it's one\ninsert into t values (1, 'x'), (2, null);"), "SQL statement processed");
    EXPECT_EQ(Run("select a, b from t order by a"), "a|b\n1|x\n2|null\n");
    EXPECT_EQ(Run("select a from t where a > 2"), "a\n");
    EXPECT_EQ(Run("update t set b = 'y'"), "SQL statement processed");
    EXPECT_EQ(Run("selec"), "failed");
    // A row that fails changes nothing, and nothing runs twice.
    EXPECT_EQ(Run("insert into t values (1, 'again')"), "failed");
    EXPECT_EQ(Run("select count(*) as n from t where b = 'y'"), "n\n2\n");
}

// It is for the database to decide; what it says of a later statement isn't lost.
TEST_P(ServerSQLTest, LeavesSeveralStatementsToTheDatabase) {
    EXPECT_EQ(Run("insert into t values (1, 'x'); insert into t values (2, 'y')"), "SQL statement processed");
    EXPECT_EQ(Run("select a from t order by a; delete from t where a = 1"), "a\n1\n2\n");
    EXPECT_TRUE(Run("select a from t; select c from t").ends_with("failed"));
    EXPECT_TRUE(Run("update t set b = 'z'; insert into t values (2, 'y')").ends_with("failed"));
    EXPECT_EQ(Run("select a from t"), "a\n2\n");
}

// More rows than a driver fetches at a time; those that nobody wants any more keep nothing locked.
TEST_P(ServerSQLTest, LeavesTheRestOfTheRows) {
    std::string rows;
    for (int i = 1; i <= 2500; ++i)
        rows += (i == 1 ? "(" : ",(") + std::to_string(i) + ",null)";
    EXPECT_EQ(Run("insert into t values " + rows), "SQL statement processed");
    ListedRows all;
    all.limit = 10'000;
    EXPECT_EQ(RunInto(all, "select a, b from t order by a").rowCount, 2500U);
    EXPECT_TRUE(all.text.ends_with("2500|null\n"));
    ListedRows some;
    some.limit = 2;
    EXPECT_EQ(RunInto(some, "select a from t order by a").outcome, SQLOutcome::Stopped);
    database.Run("drop table t;");
    EXPECT_EQ(Run("select a from t"), "failed");
    EXPECT_EQ(Run("select 1 as one"), "one\n1\n");
}

TEST_P(ServerSQLTest, EndsAStatementThatTakesLong) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    {
        const std::string sleep = GetParam().engine == Engine::PostgreSQL ? "pg_sleep" : "sleep";
        ListedRows rows;
        SQLRunner runner(connections, GetParam().protocol, "select " + sleep + "(60)", rows);
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        EXPECT_FALSE(runner.IsDone());
    }
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(Run("select 1 as one"), "one\n1\n");
}

INSTANTIATE_TEST_SUITE_P(
    Routes, ServerSQLTest,
    ::testing::Values(ServerRoute{Engine::PostgreSQL, 'A'}, ServerRoute{Engine::PostgreSQL, 'D'},
                      ServerRoute{Engine::MariaDB, 'A'}, ServerRoute{Engine::MariaDB, 'D'}),
    [](const auto& test) { return EngineName(test.param.engine) + test.param.protocol; });

}  // namespace
}  // namespace vellumark::test
