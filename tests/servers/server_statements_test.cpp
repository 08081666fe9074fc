#include <gtest/gtest.h>

#include "engine/modDeleteData.h"
#include "engine/modGenerateData.h"
#include "engine/statementBatch.h"
#include "engine/targetConnection.h"
#include "insert_scenario.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "schema/modDatabaseConnection.h"
#include "servers.h"

namespace vellumark::test {
namespace {

// A Target Connection under either protocol. Sessions are those of a run.
class ServerStatementsTest : public InsertScenarioTest, public ::testing::WithParamInterface<ServerRoute> {
 protected:
    void SetUp() override {
        InsertScenarioTest::SetUp();
        database.Run("create table t (a integer primary key, b varchar(40), c integer)");
        Connect();
    }

    void Connect() {
        TargetConnections.Close();
        ConnectMode = kConnectTarget;
        DatabaseProtocol = GetParam().protocol;
        ASSERT_TRUE(DatabaseProtocol == 'A' ? fOpenADOConnection(database.ConnectionString())
                                            : fOpenDAODatabase(database.ConnectionString(), true, ""))
            << recorder.Take();
        target = SessionTarget();
    }

    std::unique_ptr<platform::Cursor> Query(const std::string& sql) const {
        return DatabaseProtocol == 'A' ? TargetConnections.ado.OpenRecordset(sql)
                                       : TargetConnections.dao.OpenCursor(sql);
    }
    std::string Result(const std::string& sql) const { return TextOf(*Query(sql)); }

    // What another connection sees.
    std::string SeenOutside(const std::string& sql) const {
        ado::Connection other;
        other.Open(database.ConnectionString());
        return TextOf(*other.OpenRecordset(sql));
    }

    std::string ErrorOf(const std::string& statement) {
        try {
            target->Execute(statement);
            return "none";
        } catch (const platform::Error& error) {
            return std::to_string(error.Number()) + " " + error.Description();
        }
    }

    void AddDependency(int child, int childColumn, int parent, int increment) {
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "insert into [resolver TTR dependency] ([FK DBS Id], [FK TSO Id], [FK Child TTR Id], [FK Child "
            "TAB Id],"
            " [FK Child COL Id], [FK Parent TTR Id], [FK Parent TAB Id], [FK Parent COL Id],"
            " [Increment parent count], [Quantity children per parent]) values (?, ?, ?, ?, ?, ?, ?, 1, ?, "
            "1)",
            {CurrentDBSId, CurrentTSOId, child, child, childColumn, parent, parent, increment});
    }

    ServerDatabase database{GetParam().engine};
    std::unique_ptr<StatementTarget> target;
};

// For what a file alone does not have.
class RealServerStatementsTest : public ServerStatementsTest {};

TEST_P(ServerStatementsTest, KeepsEveryText) {
    const std::string texts[] = {
        "plain",      "",           "größe 😀",          "it's", "what? {d '2001-01-01'}",
        "{fn now()}", "a\"b; -- x", "100%_ :name $1 ?", "--",   "line\nend"};
    for (const std::string& text : texts) {
        target->Execute("delete from t");
        target->Execute("insert into t (a, b) values (1, '" + platform::Replace(text, "'", "''") + "')");
        EXPECT_EQ(Result("select b from t"), text);
    }
}

TEST_P(ServerStatementsTest, ReadsRowsOfAnyLength) {
    database.Run("create table wide (a integer, t text, u text)");
    std::string longText;
    for (int i = 0; i < 6000; ++i)
        longText += "ä" + std::to_string(i % 10) + "😀";
    target->Execute("insert into wide values (1, '" + longText + "', 'x')");
    target->Execute("insert into wide values (2, null, '" + longText.substr(0, 7 * 1170) + "')");
    target->Execute("insert into wide values (3, '', null)");
    EXPECT_EQ(Result("select * from wide order by a"),
              "1|" + longText + "|x\n2|null|" + longText.substr(0, 7 * 1170) + "\n3||null");
    const std::unique_ptr<platform::Cursor> rows = Query("select u as \"second\", a from wide where a = 3");
    ASSERT_EQ(rows->FieldNames().size(), 2U);
    EXPECT_EQ(rows->FieldNames()[1], "a");
    EXPECT_TRUE(rows->Next());
    EXPECT_TRUE(rows->IsNull(0));
    EXPECT_EQ(rows->Text(0), "");
    EXPECT_EQ(rows->Text(1), "3");
    EXPECT_FALSE(rows->Next());
    EXPECT_FALSE(Query("select a from wide where a = 9")->Next());
    EXPECT_TRUE(Query("delete from wide where a = 9")->FieldNames().empty());
}

TEST_P(ServerStatementsTest, TransactionsHoldTogether) {
    target->Begin();
    target->Execute("insert into t (a) values (1)");
    EXPECT_EQ(SeenOutside("select count(*) from t"), "0");
    target->Rollback();
    target->Execute("insert into t (a) values (2)");
    EXPECT_EQ(SeenOutside("select a from t"), "2");
    target->Begin();
    target->Execute("insert into t (a) values (3)");
    target->Commit();
    EXPECT_EQ(SeenOutside("select a from t order by a"), "2\n3");
    target->Begin();
    EXPECT_NE(ErrorOf("insert into t (a) values (3)"), "none");
    target->Rollback();
    target->Execute("insert into t (a) values (4)");
    EXPECT_EQ(SeenOutside("select max(a) from t"), "4");
}

TEST_P(ServerStatementsTest, TellsTheDatabasesErrors) {
    target->Execute("insert into t (a) values (1)");
    struct Case {
        std::string statement, postgres, mariaDB, sqlite;
    };
    const Case cases[] = {
        {"selct", "1 [42601] ERROR: syntax error at or near \"selct\"", "1064 [42000] ",
         "1 [HY000] [SQLite]near \"selct\": syntax error"},
        {"insert into t (a) values (1)", "1 [23505] ERROR: duplicate key value violates unique constraint",
         "1062 [23000] ", "19 [HY000] [SQLite]UNIQUE constraint failed: t.a"},
        {"insert into missing values (1)", "1 [42P01] ERROR: relation \"missing\" does not exist",
         "1146 [42S02] ", "1 [HY000] [SQLite]no such table: missing"},
    };
    for (const Case& c : cases) {
        const std::string& start = GetParam().engine == Engine::PostgreSQL ? c.postgres
                                   : GetParam().engine == Engine::MariaDB  ? c.mariaDB
                                                                           : c.sqlite;
        const std::string error = ErrorOf(c.statement);
        EXPECT_TRUE(error.starts_with(start)) << error;
        EXPECT_FALSE(error.ends_with("\n"));
    }
    EXPECT_EQ(ErrorOf("delete from t where a = 77"), "none");
    EXPECT_EQ(Result("select a from t"), "1");
}

TEST_P(ServerStatementsTest, KeepsWhatStoodBeforeAFailingStatement) {
    for (const std::string bad :
         {"selct", "insert into t (a) values (5)", "insert into missing values (1)"}) {
        target->Execute("delete from t");
        StatementBatch batch(*target);
        for (int key = 1; key <= 1200; ++key)
            batch.Execute("insert into t (a) values (" + std::to_string(key) + ")");
        EXPECT_THROW(
            {
                batch.Execute(bad);
                batch.Finish();
            },
            platform::Error);
        EXPECT_EQ(batch.FailedStatement(), bad);
        EXPECT_EQ(SeenOutside("select count(*), max(a) from t"), "1200|1200") << bad;
    }
}

TEST_P(ServerStatementsTest, ARunGoesStraightIn) {
    database.Run("create table dated (id integer primary key, d date, h varchar(30))");
    SetOption("Code DataBase Owner", "N");
    SetOption("Default Start Date", "2001-02-27");
    AddRule(
        "dated",
        {{"id", "Long Integer"}, {"d", "Date"}, {"h", "Character", 30, 0, 0, {{"Constant Value", "größe"}}}},
        {{"End Range", 3}, {"Quantity", 3}});
    EXPECT_TRUE(TestDataGenerateAll({true, "", TargetFormat::Db2}, progress)) << recorder.Take();
    EXPECT_EQ(SeenOutside("select * from dated order by id"),
              "1|2001-02-28|größe\n2|2001-03-01|größe\n3|2001-03-02|größe");

    recorder.choiceAnswers = {0};
    EXPECT_FALSE(TestDataGenerateAll({true, "", TargetFormat::Db2}, progress));
    EXPECT_TRUE(recorder.Take().starts_with(
        "choice: Unexpected error occurred during the data generation.\nError: "));
    EXPECT_EQ(SeenOutside("select count(*) from dated"), "3");
}

// The server refuses a child before its parent, so that every row shows that its key was resolved.
TEST_P(ServerStatementsTest, AFamilyGoesInAndOutUnderForeignKeys) {
    database.Run("create table artist (id integer primary key, name varchar(40) not null unique)");
    database.Run(
        "create table album (id integer primary key, artist_id integer not null references artist (id))");
    database.Run("create table employee (id integer primary key, boss_id integer references employee (id))");
    SetOption("Code DataBase Owner", "N");
    const auto rows = [](int first, int last) {
        return Fields{{"Start Range", first}, {"End Range", last}, {"Quantity", last - first + 1}};
    };
    const Fields unique = {{"Flag column unique", true}};
    const int artist =
        AddRule("artist", {{"id", "Long Integer"}, {"name", "Character", 40, 0, 0, unique}}, rows(1, 50));
    const int album = AddRule("album", {{"id", "Long Integer"}, {"artist_id", "Long Integer"}}, rows(1, 200));
    const int employee =
        AddRule("employee", {{"id", "Long Integer"}, {"boss_id", "Long Integer"}}, rows(1, 9));
    AddDependency(album, 2, artist, 4);
    AddDependency(employee, 2, employee, 4);
    EXPECT_TRUE(TestDataGenerateAll({true, "", TargetFormat::Db2}, progress)) << recorder.Take();
    EXPECT_EQ(SeenOutside("select count(*), min(artist_id), max(artist_id) from album"), "200|1|50");
    EXPECT_EQ(SeenOutside("select artist_id from album where id = 5"), "2");
    EXPECT_EQ(SeenOutside("select boss_id from employee where id = 9"), "3");

    AddDeleteTableRule(album, "where id > 100");
    AddDeleteTableRule(artist, "where id > 25");
    EXPECT_TRUE(fDeleteSQL({true, "", TargetFormat::Db2}, progress)) << recorder.Take();
    EXPECT_EQ(SeenOutside("select count(*) from artist"), "25");
    EXPECT_EQ(SeenOutside("select count(*) from album"), "100");

    AddDeleteTableRule(artist, "");
    EXPECT_FALSE(fDeleteSQL({true, "", TargetFormat::Db2}, progress));
    EXPECT_TRUE(recorder.Take().starts_with("critical: Error no: "));
    EXPECT_EQ(SeenOutside("select count(*) from artist"), "25");
}

TEST_P(RealServerStatementsTest, ALostConnectionIsAnErrorAndCanBeOpenedAgain) {
    target->Execute("insert into t (a) values (1)");
    if (GetParam().engine == Engine::PostgreSQL)
        database.Run("select pg_terminate_backend(" + Result("select pg_backend_pid()") + ")");
    else
        database.Run("kill " + Result("select connection_id()"));
    StatementBatch batch(*target);
    EXPECT_THROW(
        {
            batch.Execute("insert into t (a) values (2)");
            batch.Finish();
        },
        platform::Error);
    EXPECT_NE(ErrorOf("insert into t (a) values (3)"), "none");
    Connect();
    EXPECT_EQ(Result("select a from t"), "1");
}

std::string NameOf(const ::testing::TestParamInfo<ServerRoute>& each) {
    return EngineName(each.param.engine) + (each.param.protocol == 'A' ? "ADO" : "DAO");
}

const auto kServers =
    ::testing::Values(ServerRoute{Engine::PostgreSQL, 'A'}, ServerRoute{Engine::PostgreSQL, 'D'},
                      ServerRoute{Engine::MariaDB, 'A'}, ServerRoute{Engine::MariaDB, 'D'});
const auto kFile = ::testing::Values(ServerRoute{Engine::SQLite, 'A'}, ServerRoute{Engine::SQLite, 'D'});

INSTANTIATE_TEST_SUITE_P(Servers, ServerStatementsTest, kServers, NameOf);
INSTANTIATE_TEST_SUITE_P(File, ServerStatementsTest, kFile, NameOf);
INSTANTIATE_TEST_SUITE_P(Servers, RealServerStatementsTest, kServers, NameOf);

}  // namespace
}  // namespace vellumark::test
