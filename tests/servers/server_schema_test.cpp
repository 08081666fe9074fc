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
    create table "group" ("It's 50% ""off""" integer primary key, "UPPER" integer not null, "lower" integer,
                          unique ("lower", "UPPER"));
    create table "日本" ("群" integer, "U" integer, "L" integer, "Once" integer unique,
                        foreign key ("群") references "group" ("It's 50% ""off"""),
                        foreign key ("L", "U") references "group" ("lower", "UPPER"));
    create table "Delivery" ("Id" integer primary key, "O" integer, "L" integer,
                             foreign key ("L", "O") references "Order Line" ("Line", "Order"));
    create view "Latest" as select max("Id") as "Id" from "Orders";)";

enum class Key { None, Unique, Primary };

struct ExpectedColumn {
    std::string table, column;
    Key key;
    bool optional;
    std::string parent = "|";  // table and column
};

std::vector<ExpectedColumn> ShopColumns() {
    return {{"Customer Type", "Id", Key::Primary, false},
            {"Customer Type", "Größe", Key::Unique, false},
            {"Customer Type", "select", Key::None, true},
            {"Delivery", "Id", Key::Primary, false},
            {"Delivery", "O", Key::None, true, "Order Line|Order"},
            {"Delivery", "L", Key::None, true, "Order Line|Line"},
            {"Order Line", "Order", Key::Primary, false, "Orders|Id"},
            {"Order Line", "Line", Key::Primary, false},
            {"Order Line", "Note", Key::None, true},
            {"Order_Line", "Zzz", Key::None, true},
            {"Orders", "Id", Key::Primary, false},
            {"Orders", "Type", Key::None, true, "Customer Type|Größe"},
            {"Orders", "Previous", Key::None, true, "Orders|Id"},
            {"group", "It's 50% \"off\"", Key::Primary, false},
            {"group", "UPPER", Key::Unique, false},
            {"group", "lower", Key::Unique, true},
            {"日本", "群", Key::None, true, "group|It's 50% \"off\""},
            {"日本", "U", Key::None, true, "group|UPPER"},
            {"日本", "L", Key::None, true, "group|lower"},
            {"日本", "Once", Key::Unique, true}};
}

// A way to read: by protocol 'A' or 'D', through the driver or with the file itself.
struct Route {
    char protocol;
    bool direct;
};

std::vector<Route> Routes(Engine engine) {
    if (engine == Engine::SQLite)
        return {{'A', false}, {'D', false}, {'A', true}, {'D', true}};
    return {{'A', false}, {'D', false}};
}

// Where a way sees less than ADO does.
void TakeAway(std::vector<ExpectedColumn>& columns, const Route& route) {
    if (route.protocol == 'A')
        return;
    for (ExpectedColumn& column : columns) {
        // DAO goes by the primary key of a file, and sees no keys at all through a driver.
        if (!route.direct || column.key == Key::Unique)
            column.key = Key::None;
        if (!route.direct)
            column.parent = "|";
    }
}

std::string ExpectedRows(const Route& route) {
    std::vector<ExpectedColumn> columns = ShopColumns();
    TakeAway(columns, route);
    std::string text;
    for (const ExpectedColumn& column : columns)
        text += (text.empty() ? "" : "\n") + column.table + "|" + column.column +
                (column.key == Key::None ? "|0|" : "|-1|") + (column.optional ? "-1" : "0") +
                (column.parent == "|" ? "|Data|" : "|Foreign Key|") + column.parent;
    return text;
}

// What only some engines have and what must not show.
std::string Extras(Engine engine) {
    if (engine == Engine::PostgreSQL)
        return R"(create sequence "Numbers";
                  create temporary table "Passing" ("A" integer);
                  create materialized view "Counted" as select count(*) as "N" from "Orders";
                  create unique index "Some" on "Order Line" ("Note") where "Line" > 1;
                  create unique index "Lower" on "Order_Line" (abs("Zzz"));
                  alter table "Order Line" add "Twice" integer generated always as ("Line" * 2) stored;)";
    if (engine == Engine::MariaDB)
        return R"(create sequence "Numbers";
                  create temporary table "Passing" ("A" integer);
                  alter table "Order Line" add "Twice" integer as ("Line" * 2) stored;)";
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
    std::string Read(char protocol, bool direct = false) {
        MakeSchema(std::string("Schema ") + protocol + (direct ? " direct" : ""));
        ConnectionForm.protocol = protocol;
        ConnectionForm.useODBC = !direct;
        if (direct)
            ConnectionForm.connectionString =
                (protocol == 'A' ? "driver={Microsoft Access Driver (*.mdb)};DBQ=" : "") + database.Path();
        else
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
                    std::to_string(CurrentDBSId) + " order by [Owner], [Name] collate binary");
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
            std::to_string(CurrentDBSId) + " order by t.[Name] collate binary, c.[Id]");
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

TEST_P(ServerSchemaTest, EveryWayReadsTheSameTablesAndKeys) {
    database.Run(kShop + Extras(GetParam()));
    for (const Route& route : Routes(GetParam())) {
        SCOPED_TRACE(std::string(1, route.protocol) + (route.direct ? " direct" : ""));
        EXPECT_EQ(Read(route.protocol, route.direct), "True");
        EXPECT_EQ(TableRows(), WithOwner(GetParam(), {"Customer Type", "Delivery", "Order Line", "Order_Line",
                                                      "Orders", "group", "日本"}));
        EXPECT_EQ(ColumnRows(), ExpectedRows(route));
    }
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

TEST_P(RealServerSchemaTest, KeysFindNamesThatDifferInCaseAlone) {
    database.Run(
        "create table \"Log\" (\"A\" integer primary key); create table \"LOG\" (\"a\" integer primary key, "
        "\"Of\" integer, foreign key (\"Of\") references \"Log\" (\"A\"));");
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(ColumnRows(),
              "LOG|a|-1|0|Data||\n"
              "LOG|Of|0|-1|Foreign Key|Log|A\n"
              "Log|A|-1|0|Data||");
}

class PostgresSchemaTest : public ServerSchemaTest {};

// ADO asks for a table's columns by its name alone, and keys name no owner. Only for DB2 the owner counts.
TEST_P(PostgresSchemaTest, TablesOfOneNameInTwoOwners) {
    database.Run(R"(
        create table "Part" ("Id" integer primary key);
        create schema "Audit";
        create table "Audit"."Part" ("Code" integer primary key);
        create table "Audit"."Use" ("Of" integer references public."Part");)");
    const std::string use = "Use|Of|0|-1|Foreign Key|Part|Id";
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(TableRows(), "Audit|Part\nAudit|Use\npublic|Part");
    EXPECT_EQ(
        ColumnRows(),
        "Part|Code|-1|0|Data||\nPart|Code|-1|0|Data||\nPart|Id|-1|0|Data||\nPart|Id|-1|0|Data||\n" + use);
    ConnectionForm.dbmsType = kDbmsDB2;
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(ColumnRows(), "Part|Code|-1|0|Data||\nPart|Id|-1|0|Data||\nUse|Of|0|-1|Data||");
    ConnectionForm.dbmsType = kDbmsOther;
    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(ColumnRows(), "Part|Code|0|0|Data||\nPart|Id|0|0|Data||\nUse|Of|0|-1|Data||");
}

TEST_P(PostgresSchemaTest, AKeyToAPartitionedTableLeadsToTheWhole) {
    database.Run(R"(
        create table "Part" ("Id" integer primary key) partition by range ("Id");
        create table "Part Low" partition of "Part" for values from (0) to (10);
        create table "Use" ("Of" integer references "Part");)");
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(ColumnRows(),
              "Part|Id|-1|0|Data||\n"
              "Part Low|Id|-1|0|Data||\n"
              "Use|Of|0|-1|Foreign Key|Part|Id");
}

class MariaDBSchemaTest : public ServerSchemaTest {};

// The underscore in the name of the tests' database matches any character as a pattern.
TEST_P(MariaDBSchemaTest, ADatabaseWithAnAlikeNameStaysOut) {
    std::string alike = database.Name();
    alike[alike.find('_')] = 'x';
    database.Run("create table \"Mine\" (\"Id\" integer auto_increment primary key);");
    database.Run("create database " + alike + "; create table " + alike +
                 ".\"Other\" (\"A\" integer); create table " + alike + ".\"Mine\" (\"B\" integer);");
    for (const char protocol : {'A', 'D'}) {
        EXPECT_EQ(Read(protocol), "True");
        EXPECT_EQ(ColumnRows(), protocol == 'A' ? "Mine|Id|-1|0|Data||" : "Mine|Id|0|0|Data||");
    }
    database.Run("drop database " + alike);
}

TEST_P(RealServerSchemaTest, AFailedConnectSaysSo) {
    const struct {
        std::string key, value;
    } cases[] = {{"PWD", "wrong-secret"}, {"UID", "nobody"}, {"DATABASE", "no_such_database"}, {"PORT", "1"}};
    for (const auto& c : cases) {
        ado::Connection connection;
        try {
            connection.Open(database.ConnectionStringWith({{c.key, c.value}}));
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
    EXPECT_FALSE(fOpenDAODatabase(database.ConnectionStringWith({{"PWD", "wrong-secret"}}), true, ""));
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

INSTANTIATE_TEST_SUITE_P(Engines, PostgresSchemaTest, ::testing::Values(Engine::PostgreSQL), NameOf);
INSTANTIATE_TEST_SUITE_P(Engines, MariaDBSchemaTest, ::testing::Values(Engine::MariaDB), NameOf);

}  // namespace
}  // namespace vellumark::test
