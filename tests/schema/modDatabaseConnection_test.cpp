#include "schema/modDatabaseConnection.h"

#include "connections.h"
#include "embedded.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "schema/modConnectionString.h"
#include "session.h"

namespace vellumark {
namespace {

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

    ConnectionDetails odbc = test::FilledConnection(kDbmsOracle, 'A', true);
    odbc.connectionString = "target string";
    MakeConnections(Jet('A', path), odbc);
    EXPECT_EQ(Connect(kConnectTarget, true), "TrueA");
    EXPECT_EQ(FoundConnection.connectionString, "target string");
    EXPECT_EQ(FoundConnection.dsn, "ds");
    EXPECT_EQ(DBMSType, kDbmsOracle);

    EXPECT_EQ(Connect(kConnectValue, true), "TrueD");
    EXPECT_EQ(FoundConnection.connectionString, path);
    EXPECT_EQ(DBMSType, kDbmsJet);
    ConnectionDetails value = test::FilledConnection(kDbmsDB2, 'A', false);
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
        {'D', false, "SERVER=s;PWD=secret", "exclamation: Error: 3024 Could not find file 'SERVER=s;PWD=***"},
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
        ConnectionForm = test::FilledConnection(kDbmsOther, c.protocol, c.useODBC);
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
