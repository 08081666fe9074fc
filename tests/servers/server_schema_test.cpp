#include <algorithm>
#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "schema/modPhysicalSchema.h"
#include "servers.h"
#include "session.h"

namespace vellumark::test {
namespace {

// One schema for every engine. A table's name with a wildcard in it must not bring its neighbour's columns.
constexpr const char* kShop = R"(
    create table "Customer Type" ("Id" integer primary key, "Größe" varchar(10) not null unique, "select" char(3));
    create table "Orders" ("Id" integer primary key, "Type" varchar(10), "Previous" integer,
                           foreign key ("Type") references "Customer Type" ("Größe"),
                           foreign key ("Previous") references "Orders" ("Id"));
    create table "Order Line" ("Order" integer not null references "Orders" ("Id"), "Line" integer not null,
                               "Note" varchar(20), primary key ("Line", "Order"));
    create table "Order_Line" ("Zzz" integer);
    create table "Delivery" ("Id" integer primary key, "O" integer, "L" integer,
                             foreign key ("L", "O") references "Order Line" ("Line", "Order"));
    create view "Latest" as select max("Id") as "Id" from "Orders";)";

// What only some engines have and what must not show.
std::string Extras(Engine engine) {
    if (engine == Engine::PostgreSQL)
        return R"(create materialized view "Counted" as select count(*) as "N" from "Orders";
                  create unique index "Some" on "Order Line" ("Note") where "Line" > 1;
                  create unique index "Lower" on "Order_Line" (abs("Zzz"));
                  alter table "Order Line" add "Twice" integer generated always as ("Line" * 2) stored;)";
    if (engine == Engine::MariaDB)
        return R"(alter table "Order Line" add "Twice" integer as ("Line" * 2) stored;)";
    return R"(create unique index "Some" on "Order Line" ("Note") where "Line" > 1;
              create unique index "Lower" on "Order_Line" (abs("Zzz"));
              create table "Counter" ("Id" integer primary key autoincrement);
              drop table "Counter";
              alter table "Order Line" add "Twice" integer as ("Line" * 2);)";
}

class ServerSchemaTest : public SessionTest, public ::testing::WithParamInterface<Engine> {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        ConnectionForm = {};
        ConnectionForm.dbmsType = kDbmsOther;
    }
    void TearDown() override {
        ConnectionForm = {};
        DBMSType.clear();
        SessionTest::TearDown();
    }

    // "True" or "False" and what was shown.
    std::string Read(char protocol) {
        MakeSchema(std::string("Schema ") + protocol);
        ConnectionForm.protocol = protocol;
        ConnectionForm.useODBC = true;
        ConnectionForm.connectionString = (protocol == 'D' ? "ODBC;" : "") + database.ConnectionString();
        const int id = NextConnectionId();
        AddConnection(id, ConnectionForm);
        {
            const RepositoryScope repository;
            RepositoryDatabase.Execute("update [Database] set [FK CON Id Source] = ? where [Id] = ?",
                                       {id, CurrentDBSId});
        }
        const bool done = protocol == 'A' ? fReadSchemaADO() : fReadSchemaDAO();
        return (done ? "True" : "False") + recorder.Take();
    }

    std::string TableRows() {
        return Rows("select [Owner], [Name] from [Table] where [FK DBS Id] = " +
                    std::to_string(CurrentDBSId) + " order by [Owner], [Name]");
    }

    // Table and column, identifier, optional, role and the parent's table and column.
    std::string ColumnRows() {
        return Rows(
            "select t.[Name], c.[Name] [Column], c.[Flag Identifier], c.[Flag Optional], c.[Role],"
            " pt.[Name] [Parent], pc.[Name] [Parent Column]"
            " from [Column] c join [Table] t on t.[Id] = c.[FK TAB Id] and t.[FK DBS Id] = c.[FK DBS Id]"
            " left join [Table] pt on pt.[Id] = c.[FK COL TAB Id] and pt.[FK DBS Id] = c.[FK DBS Id]"
            " left join [Column] pc on pc.[Id] = c.[FK COL Id] and pc.[FK TAB Id] = pt.[Id]"
            " and pc.[FK DBS Id] = c.[FK DBS Id] where c.[FK DBS Id] = " +
            std::to_string(CurrentDBSId) + " order by t.[Name], c.[Id]");
    }

    ServerDatabase database{GetParam()};
};

// For what a file alone does not have.
class RealServerSchemaTest : public ServerSchemaTest {};

std::string WithOwner(Engine engine, const std::vector<std::string>& tables) {
    std::string text;
    for (const std::string& table : tables)
        text +=
            (text.empty() ? "" : "\n") + std::string(engine == Engine::PostgreSQL ? "public|" : "|") + table;
    return text;
}

TEST_P(ServerSchemaTest, ReadsTablesAndKeys) {
    database.Run(kShop + Extras(GetParam()));
    EXPECT_EQ(Read('A'), "True");
    const std::string tables =
        WithOwner(GetParam(), {"Customer Type", "Delivery", "Order Line", "Order_Line", "Orders"});
    EXPECT_EQ(TableRows(), tables);
    EXPECT_EQ(ColumnRows(),
              "Customer Type|Id|-1|0|Data||\n"
              "Customer Type|Größe|-1|0|Data||\n"
              "Customer Type|select|0|-1|Data||\n"
              "Delivery|Id|-1|0|Data||\n"
              "Delivery|O|0|-1|Foreign Key|Order Line|Order\n"
              "Delivery|L|0|-1|Foreign Key|Order Line|Line\n"
              "Order Line|Order|-1|0|Foreign Key|Orders|Id\n"
              "Order Line|Line|-1|0|Data||\n"
              "Order Line|Note|0|-1|Data||\n"
              "Order_Line|Zzz|0|-1|Data||\n"
              "Orders|Id|-1|0|Data||\n"
              "Orders|Type|0|-1|Foreign Key|Customer Type|Größe\n"
              "Orders|Previous|0|-1|Foreign Key|Orders|Id");

    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(TableRows(), tables);
    EXPECT_EQ(ColumnRows(),
              "Customer Type|Id|0|0|Data||\n"
              "Customer Type|Größe|0|0|Data||\n"
              "Customer Type|select|0|-1|Data||\n"
              "Delivery|Id|0|0|Data||\n"
              "Delivery|O|0|-1|Data||\n"
              "Delivery|L|0|-1|Data||\n"
              "Order Line|Order|0|0|Data||\n"
              "Order Line|Line|0|0|Data||\n"
              "Order Line|Note|0|-1|Data||\n"
              "Order_Line|Zzz|0|-1|Data||\n"
              "Orders|Id|0|0|Data||\n"
              "Orders|Type|0|-1|Data||\n"
              "Orders|Previous|0|-1|Data||");
}

TEST_P(ServerSchemaTest, OwnersAndPrefixesChooseTables) {
    database.Run("create table \"SysLog\" (\"A\" integer); create table \"Kept\" (\"A\" integer);");
    if (GetParam() == Engine::PostgreSQL)
        database.Run(
            "create schema \"Audit\"; create table \"Audit\".\"Trail\" (\"B\" integer);"
            "create table \"Audit\".\"Kept.2\" (\"C\" integer);");
    ConnectionForm.ignoreTablePrefix = "sys";
    ConnectionForm.ignoreOwnerPrefix = "aud";
    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(TableRows(), WithOwner(GetParam(), {"Kept"}));
    ConnectionForm.ignoreOwnerPrefix.clear();
    ConnectionForm.owner = "AUDIT";
    const std::string owned = GetParam() == Engine::PostgreSQL ? "Audit|Kept.2\nAudit|Trail" : "";
    for (const char protocol : {'A', 'D'}) {
        EXPECT_EQ(Read(protocol), "True");
        EXPECT_EQ(TableRows(), owned);
        EXPECT_EQ(Rows("select [Name] from [Column] where [FK DBS Id] = " + std::to_string(CurrentDBSId)),
                  owned.empty() ? "" : "C\nB");
    }
}

struct TypeCase {
    std::string declaration;
    std::string ado;  // code, length, precision, scale
    std::string dao;  // code, size
};

std::vector<TypeCase> PostgresTypes() {
    return {{"boolean", "11|null|null|null", "1|1"},
            {"smallint", "2|null|5|null", "3|2"},
            {"integer", "3|null|10|null", "4|4"},
            {"bigint", "20|null|19|null", "16|8"},
            {"real", "4|null|7|null", "6|4"},
            {"double precision", "5|null|15|null", "7|8"},
            {"numeric(10,2)", "131|null|10|2", "19|16"},
            {"char(5)", "129|5|null|null", "18|5"},
            {"varchar(20)", "200|20|null|null", "10|20"},
            {"text", "201|8190|null|null", "12|0"},
            {"bytea", "205|null|null|null", "11|0"},
            {"date", "133|null|null|null", "8|8"},
            {"time", "134|null|null|null", "22|8"},
            {"timestamp", "135|null|null|null", "23|8"},
            {"timestamp with time zone", "135|null|null|null", "23|8"},
            {"uuid", "72|null|null|null", "15|16"}};
}

std::vector<TypeCase> MariaDBTypes() {
    return {{"bit", "11|null|null|null", "1|1"},
            {"boolean", "16|null|3|null", "2|1"},
            {"tinyint unsigned", "17|null|3|null", "2|1"},
            {"smallint", "2|null|5|null", "3|2"},
            {"smallint unsigned", "18|null|5|null", "3|2"},
            {"mediumint", "3|null|10|null", "4|4"},
            {"int", "3|null|10|null", "4|4"},
            {"int unsigned", "19|null|10|null", "4|4"},
            {"bigint", "20|null|19|null", "16|8"},
            {"bigint unsigned", "21|null|19|null", "16|8"},
            {"float", "4|null|7|null", "6|4"},
            {"double", "5|null|15|null", "7|8"},
            {"decimal(10,2)", "131|null|10|2", "20|16"},
            {"char(5)", "130|5|null|null", "18|5"},
            {"varchar(20)", "202|20|null|null", "10|20"},
            {"text", "203|65535|null|null", "12|0"},
            {"longtext", "203|2147483647|null|null", "12|0"},
            {"binary(4)", "128|4|null|null", "9|4"},
            {"varbinary(9)", "204|9|null|null", "17|9"},
            {"blob", "205|65535|null|null", "11|0"},
            {"date", "133|null|null|null", "8|8"},
            {"time", "134|null|null|null", "22|8"},
            {"datetime", "135|null|null|null", "23|8"},
            {"timestamp", "135|null|null|null", "23|8"}};
}

// The embedded store's own reading of declared types.
std::vector<TypeCase> SqliteTypes() {
    return {{"boolean", "11|null|null|null", "1|1"},
            {"tinyint", "17|null|3|null", "2|1"},
            {"integer", "3|null|10|null", "4|4"},
            {"bigint", "20|null|19|null", "16|8"},
            {"real", "5|null|15|null", "7|8"},
            {"numeric(10,2)", "131|null|10|2", "19|16"},
            {"char(5)", "129|5|null|null", "18|5"},
            {"nvarchar(20)", "202|20|null|null", "10|20"},
            {"text", "201|1073741823|null|null", "12|0"},
            {"blob", "205|null|null|null", "11|0"},
            {"date", "133|null|null|null", "8|8"},
            {"time", "134|null|null|null", "22|8"},
            {"timestamp", "135|null|null|null", "8|8"}};
}

std::string Number(const ado::Rowset& rows, std::string_view field) {
    return rows.IsNull(field) ? "null" : std::to_string(rows.Long(field));
}

TEST_P(ServerSchemaTest, ReportsEveryCommonType) {
    const std::vector<TypeCase> cases = GetParam() == Engine::PostgreSQL ? PostgresTypes()
                                        : GetParam() == Engine::MariaDB  ? MariaDBTypes()
                                                                         : SqliteTypes();
    std::string columns;
    for (std::size_t i = 0; i < cases.size(); ++i)
        columns += (i == 0 ? "c" : ", c") + std::to_string(i) + " " + cases[i].declaration;
    database.Run("create table types (" + columns + ")");

    ado::Connection connection;
    connection.Open(database.ConnectionString());
    ado::Rowset rows = connection.OpenSchema(ado::SchemaKey::Columns, {std::nullopt, std::nullopt, "TYPES"});
    const dao::TableDef definition =
        dao::OpenOdbcDatabase("", database.ConnectionString())
            .TableDefinition(GetParam() == Engine::PostgreSQL ? "public.types" : "types");
    ASSERT_EQ(definition.fields.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i, rows.MoveNext()) {
        EXPECT_EQ(rows.Long("ORDINAL_POSITION"), static_cast<int>(i + 1));
        EXPECT_EQ(Number(rows, "DATA_TYPE") + "|" + Number(rows, "CHARACTER_MAXIMUM_LENGTH") + "|" +
                      Number(rows, "NUMERIC_PRECISION") + "|" + Number(rows, "NUMERIC_SCALE"),
                  cases[i].ado)
            << cases[i].declaration;
        const dao::ColumnType& type = definition.fields[i].type;
        EXPECT_EQ(std::to_string(type.daoType) + "|" + std::to_string(type.daoSize), cases[i].dao)
            << cases[i].declaration;
    }
    EXPECT_TRUE(rows.IsEOF());
}

TEST_P(RealServerSchemaTest, NamesMayDifferInCaseAlone) {
    database.Run(
        "create table \"Log\" (\"A\" integer unique); create table \"LOG\" (\"B\" integer primary key);");
    ado::Connection connection;
    connection.Open(database.ConnectionString());
    for (const auto& [table, column] : {std::pair{"Log", "A"}, {"LOG", "B"}}) {
        ado::Rowset columns =
            connection.OpenSchema(ado::SchemaKey::Columns, {std::nullopt, std::nullopt, table});
        EXPECT_EQ(columns.Text("COLUMN_NAME"), column);
        columns.MoveNext();
        EXPECT_TRUE(columns.IsEOF());
        ado::Rowset indexes = connection.OpenSchema(
            ado::SchemaKey::Indexes, {std::nullopt, std::nullopt, std::nullopt, std::nullopt, table});
        EXPECT_EQ(indexes.Text("COLUMN_NAME"), column);
        EXPECT_EQ(indexes.Boolean("PRIMARY_KEY"), std::string(column) == "B");
        indexes.MoveNext();
        EXPECT_TRUE(indexes.IsEOF());
    }
    EXPECT_TRUE(connection.OpenSchema(ado::SchemaKey::Columns, {std::nullopt, std::nullopt, "Lo_"}).IsEOF());
}

TEST_P(RealServerSchemaTest, AFailedConnectSaysSo) {
    const struct {
        std::string key, value;
    } cases[] = {{"PWD", "wrong-secret"}, {"UID", "nobody"}, {"DATABASE", "no_such_database"}, {"PORT", "1"}};
    for (const auto& c : cases) {
        ado::Connection connection;
        try {
            connection.Open(database.ConnectionStringWith(c.key, c.value));
            ADD_FAILURE() << c.key;
        } catch (const platform::Error& error) {
            EXPECT_NE(error.Number(), 0);
            EXPECT_EQ(error.Description().find("secret"), std::string::npos) << error.Line();
            EXPECT_EQ(error.Description().find("p w;"), std::string::npos) << error.Line();
            EXPECT_TRUE(error.Description().starts_with("[")) << error.Line();
        }
        EXPECT_FALSE(connection.IsOpen());
    }
    ConnectMode = kConnectForm;
    EXPECT_FALSE(fOpenDAODatabase(database.ConnectionStringWith("PWD", "wrong-secret"), true, ""));
    EXPECT_FALSE(TargetConnections.dao.IsOpen());
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Error: "));
}

std::string NameOf(const ::testing::TestParamInfo<Engine>& each) {
    return EngineName(each.param);
}

INSTANTIATE_TEST_SUITE_P(Engines, ServerSchemaTest,
                         ::testing::Values(Engine::PostgreSQL, Engine::MariaDB, Engine::SQLite), NameOf);
INSTANTIATE_TEST_SUITE_P(Engines, RealServerSchemaTest,
                         ::testing::Values(Engine::PostgreSQL, Engine::MariaDB), NameOf);

}  // namespace
}  // namespace vellumark::test
