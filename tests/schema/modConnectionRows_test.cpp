#include "schema/modConnectionRows.h"

#include "connections.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"
#include "session.h"

namespace vellumark {
namespace {

class ConnectionRowsTest : public test::SessionTest {
 protected:
    void TearDown() override {
        ValueConnectionId = 0;
        SessionTest::TearDown();
    }
};

TEST_F(ConnectionRowsTest, RowsKeepEveryField) {
    EXPECT_EQ(NextConnectionId(), 1);
    ConnectionDetails details = test::FilledConnection(kDbmsOracle, 'D', true);
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

TEST_F(ConnectionRowsTest, EmptyFieldsOfANewRowAreNull) {
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

// A description as the list and the screens show it.
std::string StoredRow(int id) {
    const std::optional<ConnectionDetails> row = ReadConnection(id);
    return row ? row->description + "|" + row->table + "|" + row->column : "none";
}

TEST_F(ConnectionRowsTest, SavesTheTargetUnderItsDescription) {
    ConnectionDetails details = test::FilledConnection(kDbmsOther, 'A', true);
    details.table = "Left over";
    EXPECT_FALSE(fSaveConnection(kConnectTarget, details));
    EXPECT_EQ(recorder.Take(), "exclamation: Database not found in Vellumark.");
    MakeSchema("Depot");
    EXPECT_TRUE(fSaveConnection(kConnectTarget, details));
    EXPECT_EQ(StoredRow(1), "Depot (Target) - DBMS: 'Other' DSN: 'ds' Database: 'db' MDB: 'a;b.mdb'||");
    details.dsn = "other";
    EXPECT_TRUE(fSaveConnection(kConnectTarget, details));
    EXPECT_EQ(Rows("select [Id], [DSN] from [Database Connection]"), "1|other");
    EXPECT_EQ(Rows("select [FK CON Id Target] from [Database]"), "1");
    EXPECT_EQ(ShowConnection(kConnectTarget).dsn, "other");
    EXPECT_EQ(ShowConnection(kConnectTarget).schemaName, "Depot");
}

TEST_F(ConnectionRowsTest, SavesAValueConnectionWithItsTable) {
    ConnectionDetails details = test::FilledConnection(kDbmsOther, 'A', true);
    details.table = "audit.Log.2";
    details.column = "Text";
    EXPECT_FALSE(fSaveConnection(kConnectValue, details));
    EXPECT_EQ(recorder.Take(), "exclamation: Database not found in Vellumark.");
    EXPECT_EQ(ValueConnectionId, 0);
    MakeSchema("Depot");
    AddConnection(4, details);
    EXPECT_TRUE(fSaveConnection(kConnectValue, details));
    EXPECT_EQ(ValueConnectionId, 5);
    EXPECT_EQ(
        StoredRow(5),
        " DBMS: 'Other' DSN: 'ds' Database: 'db' MDB: 'a;b.mdb' Table: 'Log.2' Column: 'Text'|Log.2|Text");
    details.column = "At";
    EXPECT_TRUE(fSaveConnection(kConnectValue, details));
    EXPECT_EQ(ShowConnection(kConnectValue).column, "At");
    EXPECT_EQ(Rows("select [Id], [Column] from [Database Connection] order by [Id]"), "4|Text\n5|At");
    ValueConnectionId = 9;
    EXPECT_TRUE(fSaveConnection(kConnectValue, details));
    EXPECT_EQ(ValueConnectionId, 6);
}

TEST_F(ConnectionRowsTest, AFailedSaveIsToldAndKeepsTheRows) {
    MakeSchema("Depot");
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(
            "create trigger [Broken] before update on [Database] begin select raise(abort, 'no room'); end");
    }
    EXPECT_FALSE(fSaveConnection(kConnectTarget, test::FilledConnection(kDbmsJet, 'A', false)));
    EXPECT_NE(recorder.Take().find("Unexpected error occurred saving the connection."), std::string::npos);
    EXPECT_EQ(Count("Database Connection"), 0);
}

TEST_F(ConnectionRowsTest, ListsByDescription) {
    int id = 0;
    for (const char* description : {"shop (Target)", " DBMS: 'Jet'", "Shop (Source)", "Depot", "depot"}) {
        ConnectionDetails details;
        details.description = description;
        AddConnection(++id, details);
    }
    std::string list;
    for (const ConnectionEntry& entry : ListConnections())
        list += std::to_string(entry.id) + entry.details.description + "|";
    EXPECT_EQ(list, "2 DBMS: 'Jet'|4Depot|5depot|3Shop (Source)|1shop (Target)|");
}

}  // namespace
}  // namespace vellumark
