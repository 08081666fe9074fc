#include "schema/modConnectionTables.h"

#include "embedded.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "session.h"

namespace vellumark {
namespace {

class ConnectionTablesTest : public test::SessionTest {
 protected:
    void TearDown() override {
        CloseTargetConnection();
        ConnectionForm = {};
        DatabaseProtocol = 'A';
        SessionTest::TearDown();
    }

    static ConnectionDetails Form(char protocol, const std::string& connectionString, bool useODBC = false) {
        ConnectionDetails form;
        form.protocol = protocol;
        form.useODBC = useODBC;
        form.connectionString = connectionString;
        return form;
    }

    // The ways to the same file.
    std::vector<ConnectionDetails> Ways(const std::string& file) {
        const std::string source = "DSN=shop;DATABASE=" + file;
        return {Form('A', test::AccessString(file)), Form('D', file), Form('A', source, true),
                Form('D', source, true)};
    }

    static std::string Names(const std::optional<std::vector<TableEntry>>& tables) {
        std::string text = tables ? "" : "none";
        for (const TableEntry& entry : tables.value_or(std::vector<TableEntry>()))
            text += QualifiedName(entry) + "|";
        return text;
    }

    static std::string Joined(const std::optional<std::vector<std::string>>& names) {
        std::string text = names ? "" : "none";
        for (const std::string& name : names.value_or(std::vector<std::string>()))
            text += name + "|";
        return text;
    }

    std::string path = test::MakeEmbedded(folder.Path("shop.mdb"),
                                          "create table Customer (Id integer, Name varchar(9));"
                                          "create table [Order Line] (B, A);"
                                          "create table [audit.Log] (At date);"
                                          "create view Latest as select 1 as One;");
};

TEST_F(ConnectionTablesTest, ListsTablesAndColumnsThroughEitherProtocol) {
    for (const ConnectionDetails& form : Ways(path)) {
        std::string names = Names(ListConnectionTables(form));
        // Only the embedded provider knows the engine's own table for one.
        if (names.starts_with("MSysProperties|"))
            names.erase(0, 15);
        EXPECT_EQ(names, "Customer|Order Line|audit.Log|");
        EXPECT_EQ(Joined(ListConnectionColumns(form, {"Customer", ""})), "Id|Name|");
        EXPECT_EQ(Joined(ListConnectionColumns(form, {"order line", ""})), "B|A|");
        EXPECT_EQ(recorder.Take(), "");
    }
    const TableEntry split{"Log", "audit"};
    EXPECT_EQ(Joined(ListConnectionColumns(Form('D', path), split)), "At|");
    ConnectionDetails oracle = Form('D', path);
    oracle.dbmsType = kDbmsOracle;
    EXPECT_EQ(Names(ListConnectionTables(oracle)), "audit.Log|");
    oracle.owner = "nobody";
    EXPECT_EQ(Names(ListConnectionTables(oracle)), "");
}

TEST_F(ConnectionTablesTest, LeavesTheTargetAlone) {
    MakeSchema("Shop");
    ConnectionDetails target =
        Form('D', test::MakeEmbedded(folder.Path("target.mdb"), "create table T (x);"));
    target.useDefaultString = false;
    for (const bool connected : {false, true}) {
        if (connected) {
            ASSERT_TRUE(fSaveConnection(kConnectTarget, target));
            ASSERT_TRUE(ConnectTarget());
        }
        const std::string before = ConnectMode + DBMSType + DatabaseProtocol;
        for (const std::string& file : {path, folder.Path("none.mdb")}) {
            EXPECT_EQ(ListConnectionTables(Form('A', test::AccessString(file))).has_value(), file == path);
            EXPECT_EQ(TestConnection(Form('D', file)).has_value(), file == path);
            EXPECT_EQ(TargetConnectionState, connected ? 'C' : 'D');
            EXPECT_EQ(ConnectionStatusText,
                      connected ? "Target Database: Connected" : "Target Database: Disconnected");
            EXPECT_FALSE(TargetConnections.ado.IsOpen());
            EXPECT_EQ(TargetConnections.dao.IsOpen(), connected);
        }
        EXPECT_EQ(ConnectMode + DBMSType + DatabaseProtocol, before);
    }
    EXPECT_TRUE(TargetConnections.dao.HasTable("T"));
}

TEST_F(ConnectionTablesTest, TellsWhatIsAtTheOtherEnd) {
    for (const ConnectionDetails& form : Ways(path)) {
        const std::string server = TestConnection(form).value_or("none");
        EXPECT_TRUE(server.starts_with("SQLite 3.")) << server;
        EXPECT_EQ(server.find(" through sqlite3odbc.so ") != std::string::npos, form.useODBC) << server;
    }
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(ConnectionTablesTest, AFailureGivesNothingButItsMessage) {
    const std::string missing = folder.Path("none.mdb");
    const std::string message = "exclamation: Error: 3024 Could not find file '" + missing + "'.";
    EXPECT_EQ(Names(ListConnectionTables(Form('D', missing))), "none");
    EXPECT_EQ(recorder.Take(), message);
    EXPECT_EQ(Joined(ListConnectionColumns(Form('A', test::AccessString(missing)), {"T", ""})), "none");
    EXPECT_EQ(recorder.Take(), message);
    EXPECT_EQ(Joined(ListConnectionColumns(Form('D', path), {"Gone", ""})), "none");
    EXPECT_EQ(recorder.Take(), "exclamation: Error: 3265 Item not found in this collection: 'Gone'.");
}

TEST(ConnectionTables, FindsAStoredTable) {
    const std::vector<TableEntry> entries = {{"Log", "a"}, {"Log", "b"}, {"b.Log", ""}, {"Plain", ""}};
    const struct {
        std::string name;
        std::optional<std::size_t> place;
    } cases[] = {{"LOG", 0}, {"B.log", 1}, {"plain", 3}, {"c.Log", std::nullopt}, {"", std::nullopt}};
    for (const auto& c : cases)
        EXPECT_EQ(FindTableEntry(entries, c.name), c.place) << c.name;
}

}  // namespace
}  // namespace vellumark
