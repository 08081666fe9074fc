#include "schema/modDatabaseConnection.h"

#include "embedded.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "session.h"

namespace vellumark {
namespace {

ConnectionDetails Filled(std::string_view dbms, char protocol, bool useODBC) {
    ConnectionDetails details;
    details.schemaName = "Shop";
    details.dbmsType = dbms;
    details.protocol = protocol;
    details.useODBC = useODBC;
    details.mdbFile = "/data/a;b.mdb";
    details.server = "srv";
    details.database = "db";
    details.dsn = "ds";
    details.userId = "me";
    details.password = "pw";
    return details;
}

TEST(ConnectionStrings, FollowProtocolAccessAndDbms) {
    const struct {
        char protocol;
        bool useODBC;
        std::string_view dbms;
        std::string text, message;
    } cases[] = {
        {'A', false, kDbmsJet, "driver={Microsoft Access Driver (*.mdb)};UID=me;PWD=pw;DBQ=/data/a;b.mdb",
         ""},
        {'A', false, kDbmsSqlServer, "server=srv;UID=me;PWD=pw;DATABASE=db;Provider = sqloledb", ""},
        {'A', false, kDbmsDB2, "Provider = DB2OLEDB;PWD=pw;DATABASE=db;UID=me;SERVER = db2gateway", ""},
        {'A', false, kDbmsOracle, "User Id=me;Password=pw;Data Source=db;Provider = MSDAORA;server=srv", ""},
        {'A', false, kDbmsOther, "User Id=me;Password=pw;Data Source=db;server=srv", ""},
        {'A', true, kDbmsOracle, "DSN=ds;UID=me;PWD=pw", ""},
        {'A', true, kDbmsJet, "DSN=ds;UID=me;PWD=pw;DATABASE=db", ""},
        {'A', true, kDbmsOther, "DSN=ds;UID=me;PWD=pw;DATABASE=db", ""},
        {'D', false, kDbmsJet, "/data/a;b.mdb", ""},
        {'D', false, kDbmsSqlServer, "old",
         "exclamation: No DAO provider available for a direct connection to MS/SQL\nPlease use ADO option or "
         "ODBC"},
        {'D', false, kDbmsDB2, "old",
         "exclamation: No DAO provider available for a direct connection to DB2\nPlease use ODBC"},
        {'D', false, kDbmsOracle, "old",
         "exclamation: No DAO provider available for a direct connection to Oracle\nPlease use ADO option or "
         "ODBC"},
        {'D', false, kDbmsOther, "DSN=ds;UID=me;PWD=pw;DATABASE=db", ""},
        {'D', true, kDbmsOracle, "ODBC;DSN=ds;UID=me;PWD=pw", ""},
        {'D', true, kDbmsDB2, "DSN=ds;UID=me;PWD=pw;DATABASE=db", ""},
        {'A', false, "", "old", ""},
        {'D', false, "", "old", ""},
    };
    test::Recorder recorder;
    for (const auto& c : cases) {
        ConnectionDetails details = Filled(c.dbms, c.protocol, c.useODBC);
        details.connectionString = "old";
        fConnectionString(details);
        EXPECT_EQ(details.connectionString, c.text);
        EXPECT_EQ(recorder.Take(), c.message);
        details.useDefaultString = false;
        details.connectionString = "typed";
        fConnectionString(details);
        EXPECT_EQ(details.connectionString, "typed");
        EXPECT_EQ(recorder.Take(), "");
    }
}

TEST(ConnectionStrings, PrefixDefaults) {
    const struct {
        std::string_view dbms, owner, table;
    } cases[] = {
        {kDbmsJet, "", "msys"},      {kDbmsDB2, "sys", "sys"}, {kDbmsOracle, "sys", ""},
        {kDbmsSqlServer, "", "sys"}, {kDbmsOther, "", "sys"},
    };
    for (const auto& c : cases) {
        ConnectionDetails details = Filled(c.dbms, 'D', false);
        details.ignoreOwnerPrefix = details.ignoreTablePrefix = "x";
        SetPrefixDefaults(details);
        EXPECT_EQ(details.ignoreOwnerPrefix, c.owner) << c.dbms;
        EXPECT_EQ(details.ignoreTablePrefix, c.table) << c.dbms;
    }
}

class ModDatabaseConnectionTest : public test::SessionTest {
 protected:
    void TearDown() override {
        CommandRefresher = nullptr;
        ValueConnections.Close();
        ConnectionForm = {};
        ValueConnectionId = 0;
        DatabaseProtocol = 'A';
        CloseTargetConnection();
        SessionTest::TearDown();
    }

    // The rows 1 and 2 as Source and Target of the open schema.
    void MakeConnections(const ConnectionDetails& source, const ConnectionDetails& target) {
        MakeSchema("Shop");
        AddConnection(1, source);
        AddConnection(2, target);
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Database] set [FK CON Id Source] = 1, [FK CON Id Target] = 2");
    }

    ConnectionDetails Jet(char protocol, const std::string& file) {
        ConnectionDetails details;
        details.protocol = protocol;
        details.mdbFile = file;
        fConnectionString(details);
        return details;
    }

    // What a connect in a mode comes to: its result, protocol and the messages.
    std::string Connect(std::string_view mode, bool lookupOnly) {
        ConnectMode = mode;
        char protocol = '-';
        const bool done = fDatabase_Connect_Main(protocol, lookupOnly);
        return std::string(done ? "True" : "False") + protocol + recorder.Take();
    }

    std::string path = test::MakeEmbedded(folder.Path("shop.mdb"), "create table A (x);");
};

TEST_F(ModDatabaseConnectionTest, RowsKeepEveryField) {
    EXPECT_EQ(NextConnectionId(), 1);
    ConnectionDetails details = Filled(kDbmsOracle, 'D', true);
    details.description = SourceDescription(details);
    details.connectionString = "it's \"typed\"";
    details.useDefaultString = false;
    details.owner = "scott";
    details.ignoreTablePrefix = "t_";
    details.ignoreOwnerPrefix = "sys";
    details.table = "Orders";
    details.column = "Id";
    AddConnection(4, details);
    const std::string all =
        "select [Id], [Description], [Type], [Access Method], [VB Data Access Objects], [Flag VM Connection "
        "String],"
        " [Connection String], [DSN], [Database], [MDB File], [Server], [UserId], [Password], [Owner],"
        " [Ignore Table Prefix], [Ignore Owner Prefix], [Table], [Column] from [Database Connection]";
    EXPECT_EQ(Rows(all),
              "4|Shop (Source) - DBMS: 'Oracle' DSN: 'ds' Database: 'db' MDB: 'a;b.mdb'|Oracle|O|D|0|it's "
              "\"typed\"|ds"
              "|db|/data/a;b.mdb|srv|me|pw|scott|t_|sys|Orders|Id");
    EXPECT_EQ(NextConnectionId(), 5);

    const ConnectionDetails read = ReadConnection(4).value();
    EXPECT_FALSE(read.useDefaultString);
    EXPECT_TRUE(read.useODBC);
    EXPECT_EQ(read.protocol, 'D');
    ConnectionDetails changed = read;
    changed.schemaName = "Shop";
    changed.dbmsType = kDbmsJet;
    changed.description = TargetDescription(changed);
    changed.protocol = 'A';
    changed.useODBC = false;
    changed.useDefaultString = true;
    changed.connectionString = changed.owner = changed.password = "";
    UpdateConnection(4, changed);
    EXPECT_EQ(Rows(all),
              "4|Shop (Target) - DBMS: 'Jet' DSN: 'ds' Database: 'db' MDB: "
              "'a;b.mdb'|Jet|D|A|-1||ds|db|/data/a;b.mdb|srv|me|||t_|sys|Orders|Id");
    EXPECT_FALSE(ReadConnection(5).has_value());
    EXPECT_THROW(UpdateConnection(5, changed), platform::Error);
}

TEST_F(ModDatabaseConnectionTest, EmptyFieldsOfANewRowAreNull) {
    fCreateTargetPlaceholder(7, "Shop");
    EXPECT_EQ(
        Rows(
            "select [Id], [Description] from [Database Connection] where [Type] is null and [DSN] is null and"
            " [Connection String] is null and [Ignore Table Prefix] is null"),
        "7|Shop (Target) - To Be Configured");
    const ConnectionDetails read = ReadConnection(7).value();
    EXPECT_EQ(read.dsn + read.dbmsType + read.connectionString, "");
    EXPECT_TRUE(read.useDefaultString);
}

TEST_F(ModDatabaseConnectionTest, FindsTheConnectionOfEachMode) {
    CurrentDBSId = 9;
    EXPECT_EQ(Connect(kConnectNew, true), "False-exclamation: Cannot open the Database identifier 9");
    ConnectionForm = Jet('D', path);
    EXPECT_EQ(Connect(kConnectForm, true), "TrueD");

    MakeSchema("Shop");
    EXPECT_EQ(Connect(kConnectNew, true), "False-exclamation: Cannot open the Database Connnection Source");
    EXPECT_EQ(Connect(kConnectTarget, true),
              "False-exclamation: Cannot open the Database Connnection Target");
    const RepositoryScope repository;
    RepositoryDatabase.Execute("delete from [Database]");

    ConnectionDetails odbc = Filled(kDbmsOracle, 'A', true);
    odbc.connectionString = "target string";
    MakeConnections(Jet('A', path), odbc);
    EXPECT_EQ(Connect(kConnectTarget, true), "TrueA");
    EXPECT_EQ(FoundConnection.connectionString, "target string");
    EXPECT_EQ(FoundConnection.dsn, "ds");
    EXPECT_EQ(DBMSType, kDbmsOracle);

    EXPECT_EQ(Connect(kConnectValue, true), "TrueD");
    EXPECT_EQ(FoundConnection.connectionString, path);
    EXPECT_EQ(DBMSType, kDbmsJet);
    ConnectionDetails value = Filled(kDbmsDB2, 'A', false);
    AddConnection(3, value);
    ValueConnectionId = 3;
    EXPECT_EQ(Connect(kConnectGetValue, true), "TrueA");
    EXPECT_EQ(FoundConnection.dbmsType, kDbmsDB2);
    EXPECT_EQ(DBMSType, kDbmsJet);
    EXPECT_EQ(TargetConnectionState, 'D');
    EXPECT_FALSE(TargetConnections.ado.IsOpen() || TargetConnections.dao.IsOpen());

    fCreateTargetPlaceholder(5, "Shop");
    RepositoryDatabase.Execute("update [Database] set [FK CON Id Target] = 5");
    EXPECT_EQ(Connect(kConnectTarget, true),
              "False-exclamation: Please configure your Target Database Connnection details");
    RepositoryDatabase.Execute("drop table [Database]");
    EXPECT_EQ(Connect(kConnectTarget, true),
              "False-exclamation: Unexpected error occurred in function fDatabase_Connect_Main.");
}

TEST_F(ModDatabaseConnectionTest, TargetOpensByItsProtocolAndCloses) {
    MakeConnections({}, {});
    int refreshes = 0;
    CommandRefresher = [&] { ++refreshes; };
    for (const char protocol : {'A', 'D'}) {
        UpdateConnection(2, Jet(protocol, path));
        refreshes = 0;
        EXPECT_TRUE(ConnectTarget());
        EXPECT_EQ(DatabaseProtocol, protocol);
        EXPECT_EQ(TargetConnectionState, 'C');
        EXPECT_EQ(ConnectionStatusText, "Target Database: Connected");
        EXPECT_EQ(TargetConnections.ado.IsOpen(), protocol == 'A');
        EXPECT_EQ(TargetConnections.dao.IsOpen(), protocol == 'D');
        EXPECT_EQ(refreshes, 1);
        CloseTargetConnection();
        EXPECT_EQ(TargetConnectionState, 'D');
        EXPECT_EQ(ConnectionStatusText, "Target Database: Disconnected");
        EXPECT_FALSE(TargetConnections.ado.IsOpen() || TargetConnections.dao.IsOpen());
        EXPECT_EQ(refreshes, 2);
    }
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(ModDatabaseConnectionTest, FailingOpenShowsTheEngineAndDisconnects) {
    const std::string missing = folder.Path("none.mdb");
    const struct {
        char protocol;
        bool useODBC;
        std::string text, message;
    } cases[] = {
        {'A', false, "driver={Microsoft Access Driver (*.mdb)};DBQ=" + missing,
         "exclamation: Error: 3024 Could not find file '" + missing + "'."},
        {'D', false, missing, "exclamation: Error: 3024 Could not find file '" + missing + "'."},
        {'A', false, "Provider = MSDAORA;Password=pw",
         "exclamation: Error: 3706 Provider cannot be found. No driver is installed for the provider "
         "'MSDAORA'. Please install Oracle's Instant Client with its ODBC part. Installed are: SQLite3, "
         "Ghost "
         "Driver."},
        {'D', true, "DSN=ds;PWD=pw",
         "exclamation: Error: 3706 Provider cannot be found. No data source 'ds' is set up. Please define it "
         "in "
         "odbc.ini."},
        {'D', false, "DSN=ds;UID=u",
         "exclamation: Error: 3706 Provider cannot be found. No data source 'ds' is set up. Please define it "
         "in "
         "odbc.ini."},
    };
    for (const auto& c : cases) {
        ConnectMode = kConnectForm;
        ASSERT_TRUE(c.protocol == 'A' ? fOpenADOConnection(test::AccessString(path))
                                      : fOpenDAODatabase(path, false, ""));
        TargetConnectionState = 'C';
        ConnectionForm = Filled(kDbmsOther, c.protocol, c.useODBC);
        ConnectionForm.connectionString = c.text;
        EXPECT_EQ(Connect(kConnectForm, false), std::string("False") + c.protocol + c.message);
        EXPECT_EQ(TargetConnectionState, 'D');
        EXPECT_EQ(ConnectionStatusText, "Target Database: Disconnected");
        EXPECT_FALSE(TargetConnections.ado.IsOpen() || TargetConnections.dao.IsOpen());
    }
}

TEST_F(ModDatabaseConnectionTest, AValueConnectionStandsBesideTheTarget) {
    MakeConnections({}, Jet('D', path));
    ASSERT_TRUE(ConnectTarget());
    ConnectMode = kConnectGetValue;
    ASSERT_TRUE(fOpenDAODatabase(path, false, ""));
    EXPECT_TRUE(ValueConnections.dao.IsOpen());
    ValueConnections.Close();
    EXPECT_TRUE(TargetConnections.dao.IsOpen());
    EXPECT_EQ(TargetConnectionState, 'C');
}

}  // namespace
}  // namespace vellumark
