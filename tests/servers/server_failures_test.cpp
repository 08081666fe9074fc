#include <filesystem>
#include <functional>
#include <gmock/gmock.h>

#include "embedded.h"
#include "platform/odbc/connection.h"
#include "platform/odbc/driver_string.h"
#include "proxy.h"
#include "repository/modVellumark.h"
#include "scenario/modNewSchema.h"
#include "scenario/modSchemaLifecycle.h"
#include "schema/modDatabaseConnection.h"
#include "servers.h"
#include "session.h"

namespace vellumark::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;

// Reads that fail half-way. The database has two tables with a key between them.
class ServerFailuresTest : public SessionTest, public ::testing::WithParamInterface<Engine> {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        database.Run(R"(
            create table "Part" ("Id" integer primary key);
            create table "Use" ("Of" integer, foreign key ("Of") references "Part" ("Id"));)");
        database.Run(IsPostgres() ? "create role " + user + " login password 'secret'"
                                  : "create user " + user + "@'127.0.0.1' identified by 'secret'");
        if (!IsPostgres())
            database.Run("grant select on " + database.Name() + ".* to " + user + "@'127.0.0.1'");
    }
    void TearDown() override {
        database.Run(IsPostgres() ? "drop role " + user : "drop user " + user + "@'127.0.0.1'");
        SessionTest::TearDown();
    }

    bool IsPostgres() const { return GetParam() == Engine::PostgreSQL; }

    // What the user logs in with; the port may be a proxy's.
    NewSchemaDetails Details(char protocol, const std::string& port = "") const {
        NewSchemaDetails schema{.name = "Half"};
        ConnectionDetails& details = schema.connection;
        details.dbmsType = kDbmsOther;
        details.protocol = protocol;
        details.useODBC = true;
        details.useDefaultString = false;
        std::map<std::string, std::string> values{{"UID", user}, {"PWD", "secret"}};
        if (!port.empty())
            values["PORT"] = port;
        details.connectionString = database.ConnectionStringWith(values);
        return schema;
    }
    // Reads through a line that does `act` when the program asks with `word`; gives what was shown.
    std::string FailedRead(char protocol, const std::string& word, const Proxy::Action& act) {
        Proxy proxy(database.Port(), word, act);
        EXPECT_FALSE(fNewSchema(Details(protocol, proxy.Port())));
        EXPECT_TRUE(proxy.HasActed());
        ExpectNoTrace();
        return recorder.Take();
    }
    void ExpectNoTrace() {
        for (const char* table : {"Database", "Database Connection", "Table", "Column", "Test Scenario"})
            EXPECT_EQ(Count(table), 0) << table;
        EXPECT_TRUE(std::filesystem::is_empty(DatabasesFolder));
        EXPECT_EQ(SessionState, kNotOpen);
        EXPECT_EQ(TargetConnectionState, 'D');
        EXPECT_FALSE(TargetConnections.ado.IsOpen() || TargetConnections.dao.IsOpen());
    }

    ServerDatabase database{GetParam()};
    std::string user = "reader_of_" + database.Name();
};

// What a read asks for tables, unique indexes, columns and keys.
std::vector<std::string> Questions(Engine engine) {
    if (engine == Engine::PostgreSQL)
        return {"relkind in", "indisunique", "attnotnull", "confkey"};
    return {"information_schema.tables", "non_unique", "IS_NULLABLE", "referenced_table_name"};
}

auto IsLostConnection() {
    return MatchesRegex("exclamation: (Cannot read the source database.\n\n)?Error: [0-9]+ \\[08...\\] .+");
}

TEST_P(ServerFailuresTest, ALineThatIsCutLeavesNoTrace) {
    for (const std::string& question : Questions(GetParam()))
        EXPECT_THAT(FailedRead('A', question, {}), IsLostConnection()) << question;
}

TEST_P(ServerFailuresTest, ALineThatIsLostIsAskedNoMore) {
    Proxy proxy(database.Port(), "cut here", {});
    odbc::Connection connection(
        odbc::DriverManagerString(database.ConnectionStringWith({{"PORT", proxy.Port()}})));
    const auto failure = [](const std::function<void()>& act) -> std::string {
        try {
            act();
            return "none";
        } catch (const platform::Error& error) {
            return error.Line();
        }
    };
    connection.Begin();
    const std::string lost = failure([&] { connection.Execute("select 'cut here'; select 2"); });
    EXPECT_THAT(lost, MatchesRegex("Error: [0-9]+ \\[.....\\] .+"));
    EXPECT_EQ(failure([&] { connection.Execute("select 1"); }), lost);
    EXPECT_EQ(failure([&] { connection.Rollback(); }), lost);
    EXPECT_EQ(failure([&] { connection.Begin(); }), lost);
}

TEST_P(ServerFailuresTest, ASessionThatTheServerEndsLeavesNoTrace) {
    for (const std::string& question : Questions(GetParam())) {
        const std::string shown = FailedRead('A', question, [this] {
            database.Run(IsPostgres()
                             ? "select pg_terminate_backend(pid) from pg_stat_activity where usename = '" +
                                   user + "'"
                             : "kill user " + user);
            return true;
        });
        EXPECT_THAT(shown, IsLostConnection()) << question;
    }
}

TEST_P(ServerFailuresTest, ATableDroppedMeanwhileLeavesNoTrace) {
    for (const char protocol : {'A', 'D'}) {
        const std::string shown = FailedRead(protocol, Questions(GetParam())[2], [this] {
            database.Run("drop table \"Use\"");
            return true;
        });
        EXPECT_EQ(shown,
                  "exclamation: Cannot read the source database.\n\n"
                  "Error: 3078 The table 'Use' was dropped while the database was read.");
        database.Run("create table \"Use\" (\"Of\" integer)");
    }
}

TEST_P(ServerFailuresTest, AUserWithoutRightsIsToldSo) {
    database.Run(IsPostgres() ? "revoke connect on database " + database.Name() + " from public"
                              : "revoke all on " + database.Name() + ".* from " + user + "@'127.0.0.1'");
    for (const char protocol : {'A', 'D'}) {
        EXPECT_FALSE(fNewSchema(Details(protocol)));
        const std::string shown = recorder.Take();
        EXPECT_THAT(shown,
                    HasSubstr(IsPostgres() ? "permission denied for database" : "Access denied for user"));
        EXPECT_THAT(shown, EndsWith("|exclamation: Cannot connect to source database."));
        ExpectNoTrace();
    }
}

class RightsTest : public ServerFailuresTest {
 protected:
    std::string Links() {
        return Rows("select [Name], [Role] from [Column] where [FK DBS Id] = " +
                    std::to_string(CurrentDBSId));
    }
};

class PostgresRightsTest : public RightsTest {};

TEST_P(PostgresRightsTest, ACatalogThatIsRefusedLeavesNoTrace) {
    database.Run("revoke select on pg_attribute from public");
    for (const char protocol : {'A', 'D'}) {
        EXPECT_FALSE(fNewSchema(Details(protocol)));
        EXPECT_THAT(recorder.Take(), HasSubstr("Cannot read the source database.\n\nError: "));
        ExpectNoTrace();
    }
}

// The Jet file's keys stand in for those that the server keeps to itself.
TEST_P(PostgresRightsTest, KeysThatAreRefusedComeFromTheJetFile) {
    database.Run("revoke select on pg_constraint from public");
    NewSchemaDetails details = Details('A');
    ASSERT_TRUE(fNewSchema(details));
    EXPECT_EQ(Links(), "Id|Data\nOf|Data");
    ASSERT_TRUE(fDeleteSchema(false));

    details.connection.dbmsType = kDbmsJet;
    details.connection.mdbFile = MakeEmbedded(folder.Path("shop.mdb"),
                                              "create table Part (Id LONG primary key);"
                                              "create table Use (Of LONG references Part (Id));");
    ASSERT_TRUE(fNewSchema(details));
    EXPECT_EQ(Links(), "Id|Data\nOf|Foreign Key");
    EXPECT_EQ(recorder.Take(), "");
}

class MariaDBRightsTest : public RightsTest {};

TEST_P(MariaDBRightsTest, OneSeesWhatOneMayUse) {
    database.Run("revoke all on " + database.Name() + ".* from " + user + "@'127.0.0.1'; grant select on " +
                 database.Name() + ".\"Use\" to " + user + "@'127.0.0.1'");
    ASSERT_TRUE(fNewSchema(Details('A')));
    EXPECT_EQ(Links(), "Of|Data");
}

std::string NameOf(const ::testing::TestParamInfo<Engine>& each) {
    return EngineName(each.param);
}

INSTANTIATE_TEST_SUITE_P(Engines, ServerFailuresTest, ::testing::Values(Engine::PostgreSQL, Engine::MariaDB),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(Engines, PostgresRightsTest, ::testing::Values(Engine::PostgreSQL), NameOf);
INSTANTIATE_TEST_SUITE_P(Engines, MariaDBRightsTest, ::testing::Values(Engine::MariaDB), NameOf);

}  // namespace
}  // namespace vellumark::test
