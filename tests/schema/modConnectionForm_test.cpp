#include "schema/modConnectionForm.h"

#include "connections.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "session.h"

namespace vellumark {
namespace {

ConnectionDetails Everything(std::string_view dbms, char protocol, bool useODBC) {
    ConnectionDetails details = test::FilledConnection(dbms, protocol, useODBC);
    details.owner = "own";
    details.ignoreTablePrefix = "t_";
    details.ignoreOwnerPrefix = "o_";
    details.connectionString = "old";
    return details;
}

// The fields that hold something, without those of no interest here.
std::string FilledFields(const ConnectionDetails& details) {
    std::string names;
    const auto add = [&](const char* name, const std::string& value) {
        if (!value.empty())
            names.append(names.empty() ? "" : " ").append(name);
    };
    add("dsn", details.dsn);
    add("mdb", details.mdbFile);
    add("server", details.server);
    add("database", details.database);
    add("owner", details.owner);
    add("prefixes", details.ignoreTablePrefix + details.ignoreOwnerPrefix);
    add("user", details.userId);
    add("password", details.password);
    return names;
}

TEST(ConnectionForm, ClearsWhatCannotBeUsed) {
    const struct {
        std::string_view dbms;
        bool useODBC;
        std::string fields;
    } cases[] = {
        {kDbmsJet, true, "dsn database"},
        {kDbmsOracle, true, "dsn owner"},
        {kDbmsSqlServer, true, "dsn database owner"},
        {kDbmsDB2, true, "dsn database owner"},
        {kDbmsOther, true, "dsn database owner"},
        {kDbmsJet, false, "mdb server"},
        {kDbmsOracle, false, "server database owner"},
        {kDbmsSqlServer, false, "server database owner"},
        {kDbmsDB2, false, "server database owner"},
        {kDbmsOther, false, "server database owner"},
    };
    for (const auto& c : cases)
        for (const char protocol : {'A', 'D'}) {
            ConnectionDetails details = Everything(c.dbms, protocol, c.useODBC);
            EnableConnectionFields(details);
            EXPECT_EQ(FilledFields(details),
                      c.fields + (protocol == 'D' ? " prefixes" : "") + " user password")
                << c.dbms << protocol << c.useODBC;
            EXPECT_EQ(details.connectionString, "old");
            // What was full before is empty now just where its field is shut.
            const ConnectionFields enabled = EnabledConnectionFields(details);
            const ConnectionFields full{.dsn = !details.dsn.empty(),
                                        .mdbFile = !details.mdbFile.empty(),
                                        .server = !details.server.empty(),
                                        .database = !details.database.empty(),
                                        .owner = !details.owner.empty(),
                                        .ignorePrefixes = protocol == 'D'};
            EXPECT_EQ(enabled, full);
        }
}

TEST(ConnectionForm, TheStringIsTypedOnlyWhenOverridden) {
    const struct {
        bool useDefault;
        char protocol;
        bool typed, dataLink;
    } cases[] = {{true, 'A', false, false},
                 {true, 'D', false, false},
                 {false, 'A', true, true},
                 {false, 'D', true, false}};
    for (const auto& c : cases) {
        ConnectionDetails details = Everything(kDbmsOther, c.protocol, true);
        details.useDefaultString = c.useDefault;
        const ConnectionFields enabled = EnabledConnectionFields(details);
        EXPECT_EQ(enabled.connectionString, c.typed) << c.useDefault << c.protocol;
        EXPECT_EQ(enabled.dataLink, c.dataLink) << c.useDefault << c.protocol;
    }
}

TEST(ConnectionForm, AChangeOfDbmsFallsBackToAdo) {
    test::Recorder recorder;
    ConnectionDetails details = Everything(kDbmsJet, 'D', false);
    EnableConnectionFields(details);
    ChooseDBMS(details, kDbmsOther);
    EXPECT_EQ(details.protocol, 'A');
    EXPECT_EQ(FilledFields(details), "server user password");
    EXPECT_EQ(details.connectionString, "User Id=me;Password=pw;Data Source=;server=srv");

    ChooseAccess(details, true);
    details.dsn = "ds";
    ChooseDAO(details);
    EXPECT_EQ(details.connectionString, "DSN=ds;UID=me;PWD=pw;DATABASE=");
    EXPECT_EQ(details.ignoreTablePrefix + "|" + details.ignoreOwnerPrefix, "sys|");
    details.ignoreTablePrefix = "mine";
    ChooseADO(details);
    EXPECT_EQ(FilledFields(details), "dsn user password");

    ChooseConnectionString(details, false);
    details.connectionString = "typed";
    ChooseDBMS(details, kDbmsJet);
    ChooseAccess(details, false);
    ChooseDAO(details);
    EXPECT_EQ(details.connectionString, "typed");
    details.mdbFile = "/a.mdb";
    ChooseConnectionString(details, true);
    EXPECT_EQ(details.connectionString, "/a.mdb");
    EXPECT_EQ(recorder.Take(), "");

    ChooseDBMS(details, kDbmsOracle);
    const std::string before = details.connectionString;
    ChooseDAO(details);
    EXPECT_EQ(recorder.Take(),
              "exclamation: No DAO provider available for a direct connection to Oracle\nPlease use ADO "
              "option or ODBC");
    EXPECT_EQ(details.connectionString, before);
    EXPECT_EQ(details.ignoreTablePrefix + "|" + details.ignoreOwnerPrefix, "|sys");
}

TEST(ConnectionForm, PrefixDefaults) {
    const struct {
        std::string_view dbms, owner, table;
    } cases[] = {
        {kDbmsJet, "", "msys"},      {kDbmsDB2, "sys", "sys"}, {kDbmsOracle, "sys", ""},
        {kDbmsSqlServer, "", "sys"}, {kDbmsOther, "", "sys"},
    };
    for (const auto& c : cases) {
        ConnectionDetails details = Everything(c.dbms, 'D', false);
        SetPrefixDefaults(details);
        EXPECT_EQ(details.ignoreOwnerPrefix, c.owner) << c.dbms;
        EXPECT_EQ(details.ignoreTablePrefix, c.table) << c.dbms;
    }
}

TEST(ConnectionForm, AValueConnectionNeedsTableAndColumn) {
    const struct {
        std::string table, column;
        ConnectionGap gap;
        std::string message;
    } cases[] = {
        {"", "Id", ConnectionGap::Table, "exclamation: Please select a table"},
        {"Press Refresh to select a table", "Id", ConnectionGap::Table, "exclamation: Please select a table"},
        {"Orders", "", ConnectionGap::Column, "exclamation: Please select a column"},
        {"Orders", "Id", ConnectionGap::None, ""},
    };
    test::Recorder recorder;
    for (const auto& c : cases) {
        ConnectionDetails details;
        details.table = c.table;
        details.column = c.column;
        EXPECT_EQ(FindConnectionGap(details), c.gap) << c.table << c.column;
        EXPECT_EQ(recorder.Take(), c.message);
    }
}

class ConnectionScreenTest : public test::SessionTest {
 protected:
    void TearDown() override {
        ValueConnectionId = 0;
        SessionTest::TearDown();
    }
};

TEST_F(ConnectionScreenTest, EachModeHasItsTitleAndItsFields) {
    const struct {
        std::string_view mode;
        std::string title;
        bool namesSchema, picksColumn, viewsData;
    } cases[] = {
        {kConnectNew, "New Database Connection Details", true, false, false},
        {kConnectTarget, "Target Database Connection Details", false, false, true},
        {kConnectValue, "Select Database Source for: ORDER LINE customerid", false, true, true},
    };
    for (const auto& c : cases) {
        const ConnectionScreen screen = DescribeConnectionScreen(c.mode, "Order Line", "CustomerId");
        EXPECT_EQ(screen.title, c.title);
        EXPECT_EQ(screen.namesSchema, c.namesSchema) << c.title;
        EXPECT_EQ(screen.picksColumn, c.picksColumn) << c.title;
        EXPECT_EQ(screen.viewsData, c.viewsData) << c.title;
    }
    EXPECT_TRUE(DescribeConnectionScreen(kConnectNew)
                    .instructions.starts_with("Vellumark can be used to read the database schema details "
                                              "directly from your database. "));
}

TEST_F(ConnectionScreenTest, OpensOnWhatIsStored) {
    const std::string jet = "driver={Microsoft Access Driver (*.mdb)};UID=;PWD=;DBQ=";
    MakeSchema("Shop");
    for (const std::string_view mode : {kConnectNew, kConnectTarget, kConnectValue}) {
        const ConnectionDetails fresh = LoadConnectionForm(mode);
        EXPECT_EQ(fresh.dbmsType, kDbmsJet);
        EXPECT_EQ(fresh.protocol, 'A');
        EXPECT_FALSE(fresh.useODBC);
        EXPECT_EQ(fresh.connectionString, jet);
        EXPECT_EQ(fresh.table, mode == kConnectValue ? kPressRefresh : "");
        EXPECT_EQ(fresh.schemaName, mode == kConnectNew ? "" : "Shop");
    }
    ConnectionDetails target = test::FilledConnection(kDbmsOracle, 'D', true);
    target.database.clear();
    target.mdbFile.clear();
    target.server.clear();
    target.connectionString = "stale";
    target.ignoreTablePrefix = "t_";
    target.password = "changed";
    ASSERT_TRUE(fSaveConnection(kConnectTarget, target));
    ConnectionDetails shown = LoadConnectionForm(kConnectTarget);
    EXPECT_EQ(shown.connectionString, "ODBC;DSN=ds;UID=me;PWD=changed");
    EXPECT_EQ(shown.ignoreTablePrefix, "t_");
    target.useDefaultString = false;
    ASSERT_TRUE(fSaveConnection(kConnectTarget, target));
    EXPECT_EQ(LoadConnectionForm(kConnectTarget).connectionString, "stale");

    const RepositoryScope repository;
    RepositoryDatabase.Execute("delete from [Database Connection]");
    fCreateTargetPlaceholder(1, "Shop");
    shown = LoadConnectionForm(kConnectTarget);
    EXPECT_EQ(shown.dbmsType, kDbmsJet);
    EXPECT_EQ(shown.connectionString, jet);
    EXPECT_EQ(recorder.Take(), "");
}

TEST(ConnectionForm, TakesAnotherConnectionButKeepsTheName) {
    ConnectionDetails form;
    form.schemaName = "New";
    form.schemaDescription = "text";
    ConnectionDetails previous = Everything(kDbmsOther, 'A', true);
    CopyConnection(previous, form);
    EXPECT_EQ(form.schemaName + "|" + form.schemaDescription, "New|text");
    EXPECT_EQ(FilledFields(form), "dsn database owner user password");
    EXPECT_EQ(form.connectionString, "DSN=ds;UID=me;PWD=pw;DATABASE=db");
    previous.useDefaultString = false;
    CopyConnection(previous, form);
    EXPECT_EQ(form.connectionString, "old");
}

}  // namespace
}  // namespace vellumark
