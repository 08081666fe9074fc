#include "schema/modPhysicalSchema.h"

#include "access_file.h"
#include "embedded.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionForm.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "session.h"
#include "test_files.h"

namespace vellumark {
namespace {

class PhysicalSchemaTest : public test::SessionTest {
 protected:
    void TearDown() override {
        ConnectionForm = {};
        DBMSType.clear();
        SessionTest::TearDown();
    }

    // Reads the database into a new schema; "True" or "False" and what was shown.
    std::string Read(char protocol) {
        MakeSchema(std::string("Schema ") + protocol);
        ConnectionForm.protocol = protocol;
        ConnectionForm.mdbFile = path;
        if (protocol == 'D' && ConnectionForm.dbmsType == kDbmsJet)
            SetPrefixDefaults(ConnectionForm);
        ConnectionForm.connectionString = protocol == 'A' ? test::AccessString(path) : path;
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

    std::string Schema() const { return " where c.[FK DBS Id] = " + std::to_string(CurrentDBSId); }

    std::string TableRows() {
        return Rows("select c.[Id], c.[Name], c.[Owner], c.[COOLGen Entity Name] from [Table] c" + Schema());
    }

    // Table and column Id, name, identifier, optional, sort order, role and the parent's two Ids.
    std::string ColumnRows() {
        return Rows(
            "select c.[FK TAB Id], c.[Id], c.[Name], c.[Flag Identifier], c.[Flag Optional], c.[Sort Order],"
            " c.[Role], c.[FK COL TAB Id], c.[FK COL Id] from [Column] c" +
            Schema());
    }

    std::string TypeRows() {
        return Rows(
            "select c.[Name], c.[ADO Data Type], c.[ADO Character Maximum Length], c.[ADO Numeric Precision],"
            " c.[ADO Numeric Scale], c.[Vellumark Data Type], c.[Vellumark Character Maximum Length],"
            " c.[Vellumark Numeric Precision], c.[Vellumark Numeric Scale], c.[Vellumark Size] from [Column] "
            "c" +
            Schema());
    }

    std::string path = folder.Path("shop.mdb");
};

constexpr const char* kShop = R"(
    create table Country (Code CHAR(2) primary key, Name NVARCHAR(50) not null unique, Capital TEXT);
    create table [Order Line] (OrderId INTEGER, Line SMALLINT, Note VARCHAR(20),
                               primary key (OrderId, Line), foreign key (OrderId) references orders);
    create view Totals as select OrderId from [Order Line];
    create table Orders (Id INTEGER primary key autoincrement, Ship CHAR(2) references Country (CODE),
                         Previous INTEGER references Orders (Id), Missing INTEGER references Nowhere (Id));
    create table Delivery (O INTEGER not null, L SMALLINT not null,
                           foreign key (O, L) references [Order Line] (OrderId, Line));)";

TEST_F(PhysicalSchemaTest, ReadsTablesAndKeysThroughBothProtocols) {
    test::MakeEmbedded(path, kShop);
    for (const char protocol : {'A', 'D'}) {
        EXPECT_EQ(Read(protocol), "True");
        EXPECT_EQ(TableRows(), "1|Country||\n2|Order Line||\n3|Orders||\n4|Delivery||");
        // Under ADO any unique index identifies, under DAO the primary key alone.
        const std::string nameIdentifies = protocol == 'A' ? "-1" : "0";
        EXPECT_EQ(ColumnRows(),
                  "1|1|Code|-1|0|1|Data|0|0\n"
                  "1|2|Name|" +
                      nameIdentifies +
                      "|0|2|Data|0|0\n"
                      "1|3|Capital|0|-1|3|Data|0|0\n"
                      "2|1|OrderId|-1|0|1|Foreign Key|3|1\n"
                      "2|2|Line|-1|0|2|Data|0|0\n"
                      "2|3|Note|0|-1|3|Data|0|0\n"
                      "3|1|Id|-1|0|1|Data|0|0\n"
                      "3|2|Ship|0|-1|2|Foreign Key|1|1\n"
                      "3|3|Previous|0|-1|3|Foreign Key|3|1\n"
                      "3|4|Missing|0|-1|4|Data|0|0\n"
                      "4|1|O|0|0|1|Foreign Key|2|1\n"
                      "4|2|L|0|0|2|Foreign Key|2|2");
        EXPECT_EQ(TargetConnectionState, 'D');
        EXPECT_EQ(ConnectionStatusText, "Target Database: Disconnected");
        EXPECT_FALSE(TargetConnections.ado.IsOpen() || TargetConnections.dao.IsOpen());
        EXPECT_EQ(recorder.statuses, std::vector<std::string>{"Reading in database tables and columns"});
        recorder.statuses.clear();
    }
}

// What a full-text index is kept in, and a table of a module that is not there.
TEST_F(PhysicalSchemaTest, LeavesOutWhatNobodyCanFill) {
    test::MakeEmbedded(path, R"(
        create virtual table Words using fts5(Word);
        create table Plain (Id INTEGER primary key);
        create view Broken as select Gone from Nowhere;
        pragma writable_schema = on;
        insert into sqlite_master values ('table', 'Map', 'Map', 0, 'CREATE VIRTUAL TABLE Map USING atlas(x)');)");
    for (const char protocol : {'A', 'D'}) {
        EXPECT_EQ(Read(protocol), "True");
        EXPECT_EQ(TableRows(), "1|Words||\n2|Plain||");
        EXPECT_EQ(ColumnRows(), "1|1|Word|0|-1|1|Data|0|0\n2|1|Id|-1|0|1|Data|0|0");
    }
}

TEST_F(PhysicalSchemaTest, ReadsMicrosoftAccessFilesThroughBothProtocols) {
    test::AccessFile shop(test::AccessVersion::Access97);
    shop.AddTable(
        {"Sale",
         {{"Id", 4}, {"Line", 3}, {"Code", 10, 8, true}, {"Note", 10, 20, false, false}, {"Before", 4}},
         {{{0, 1}, true}, {{2}, true}},
         {{"Unique", 0, 1}, {"PrimaryKey", 1, 0}}});
    shop.AddTable({"Delivery", {{"Sale", 4}, {"SaleLine", 3}, {"Due", 8}}});
    shop.AddRelation({"Deliveries", "Sale", "Delivery", {{"Id", "Sale"}, {"Line", "SaleLine"}}});
    shop.AddRelation({"Earlier", "Sale", "Sale", {{"Id", "Before"}}});
    const std::string made = shop.Save(folder.Path("shop97.mdb"));
    for (const char protocol : {'A', 'D'}) {
        path = made;
        EXPECT_EQ(Read(protocol), "True");
        EXPECT_EQ(TableRows(), "1|Delivery||\n2|Sale||");
        // Text that may not be empty counts as required under DAO.
        const bool isADO = protocol == 'A';
        EXPECT_EQ(ColumnRows(), std::string("1|1|Sale|0|-1|1|Foreign Key|2|1\n"
                                            "1|2|SaleLine|0|-1|2|Foreign Key|2|2\n"
                                            "1|3|Due|0|-1|3|Data|0|0\n"
                                            "2|1|Id|-1|0|1|Data|0|0\n"
                                            "2|2|Line|-1|0|2|Data|0|0\n") +
                                    (isADO ? "2|3|Code|-1|0|3|Data|0|0\n2|4|Note|0|-1|4|Data|0|0\n"
                                           : "2|3|Code|0|0|3|Data|0|0\n2|4|Note|0|0|4|Data|0|0\n") +
                                    "2|5|Before|0|-1|5|Foreign Key|2|1");
        path = test::TestData("fruit.mdb");
        EXPECT_EQ(Read(protocol), "True");
        EXPECT_EQ(TableRows(), "1|Dried||\n2|Fruit||\n3|Fruit Salad||\n4|Muffin/Bread||\n5|Veggie Salad||");
        EXPECT_EQ(Rows("select c.[FK TAB Id], c.[Name], c.[Vellumark Size], c.[Role], c.[FK COL TAB Id], "
                       "c.[FK COL Id] from [Column] c" +
                       Schema() + " and c.[Flag Identifier] and not c.[Flag Optional]"),
                  "1|Fruit|50|Foreign Key|2|1\n2|Fruit|50|Data|0|0\n3|Fruit|50|Foreign Key|2|1\n"
                  "4|fruit|50|Foreign Key|2|1\n5|fruit|50|Foreign Key|2|1");
        path = test::TestData("soci_test.mdb");
        EXPECT_EQ(Read(protocol), "True");
        EXPECT_EQ(TableRows(), "");
    }
    // Without the prefix DAO shows the file's own tables.
    ConnectionForm.dbmsType = kDbmsOther;
    ConnectionForm.ignoreTablePrefix = "";
    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(TableRows(), "1|MSysACEs||\n2|MSysObjects||\n3|MSysQueries||\n4|MSysRelationships||");
}

TEST_F(PhysicalSchemaTest, ADataSourceBehindDAOTellsNoKeys) {
    test::MakeEmbedded(path, "create table A (Id LONG primary key, B LONG references A (Id));");
    ConnectionForm.useODBC = true;
    EXPECT_EQ(Read('D'),
              "Falseexclamation: Error: 3706 Provider cannot be found. The connection string names no driver "
              "and no data "
              "source.|exclamation: Cannot connect to source database.");
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Database Connection] set [Access Method] = 'D'");
    }
    EXPECT_TRUE(fReadSchemaDAO());
    EXPECT_EQ(ColumnRows(), "1|1|Id|0|0|1|Data|0|0\n1|2|B|0|-1|2|Data|0|0");
}

TEST_F(PhysicalSchemaTest, OwnersAndPrefixesChooseTables) {
    test::MakeEmbedded(path, R"(
        create table [sys.Log] (Id LONG primary key);
        create table [shop.Part] (Id LONG primary key);
        create table [shop.Sale.Old] (Id LONG primary key, Part LONG references [shop.Part] (Id),
                                      Log LONG references Left_ (Id));
        create table Left_ (Id LONG primary key);)");
    ConnectionForm.ignoreOwnerPrefix = "SYS";
    ConnectionForm.ignoreTablePrefix = "left";
    ConnectionForm.dbmsType = kDbmsOracle;
    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(TableRows(), "1|Part|shop|\n2|Sale.Old|shop|");
    EXPECT_EQ(Count("Column", "[Role] = 'Foreign Key'"), 0);

    ConnectionForm.owner = "other";
    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(TableRows(), "");

    ConnectionForm.owner = "";
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(TableRows(), "1|sys.Log||\n2|shop.Part||\n3|shop.Sale.Old||\n4|Left_||");
    ConnectionForm.owner = "shop";
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(TableRows(), "");
}

// Declared type, then the column's row under ADO and under DAO: type name, reported length, precision and
// scale, own type, length, precision, scale and size.
const struct {
    std::string_view declared, ado, dao;
} kTypes[] = {
    {"BOOLEAN", "adBoolean|0|0|0|Boolean|0|0|0|2", "dbBoolean|0|0|0|Boolean|0|0|0|1"},
    {"BIT", "adBoolean|0|0|0|Boolean|0|0|0|2", "dbBoolean|0|0|0|Boolean|0|0|0|1"},
    {"YESNO", "adBoolean|0|0|0|Boolean|0|0|0|2", "dbBoolean|0|0|0|Boolean|0|0|0|1"},
    {"BYTE", "adUnsignedTinyInt|0|3|0|Tiny Integer|0|3|0|2", "dbByte|0|0|0|Tiny Integer|0|3|0|1"},
    {"TINYINT", "adUnsignedTinyInt|0|3|0|Tiny Integer|0|3|0|2", "dbByte|0|0|0|Tiny Integer|0|3|0|1"},
    {"SMALLINT", "adSmallInt|0|5|0|Integer|0|5|0|2", "dbInteger|0|0|0|Integer|0|5|0|2"},
    {"SHORT", "adSmallInt|0|5|0|Integer|0|5|0|2", "dbInteger|0|0|0|Integer|0|5|0|2"},
    {"INT2", "adSmallInt|0|5|0|Integer|0|5|0|2", "dbInteger|0|0|0|Integer|0|5|0|2"},
    {"INTEGER", "adInteger|0|10|0|Long Integer|0|10|0|4", "dbLong|0|0|0|Long Integer|0|10|0|4"},
    {"int", "adInteger|0|10|0|Long Integer|0|10|0|4", "dbLong|0|0|0|Long Integer|0|10|0|4"},
    {"LONG", "adInteger|0|10|0|Long Integer|0|10|0|4", "dbLong|0|0|0|Long Integer|0|10|0|4"},
    {"COUNTER", "adInteger|0|10|0|Long Integer|0|10|0|4", "dbLong|0|0|0|Long Integer|0|10|0|4"},
    {"BIGINT", "adBigInt|0|19|0|Big Integer|0|19|0|8", "dbBigInt|0|0|0|Long Integer|0|10|0|4"},
    {"INT8", "adBigInt|0|19|0|Big Integer|0|19|0|8", "dbBigInt|0|0|0|Long Integer|0|10|0|4"},
    {"CURRENCY", "adCurrency|0|19|0|Double|0|19|0|8", "dbCurrency|0|0|0|Double|0|15|0|8"},
    {"MONEY", "adCurrency|0|19|0|Double|0|19|0|8", "dbCurrency|0|0|0|Double|0|15|0|8"},
    {"SINGLE", "adSingle|0|7|0|Single|0|7|0|4", "dbSingle|0|0|0|Single|0|7|0|4"},
    {"FLOAT4", "adSingle|0|7|0|Single|0|7|0|4", "dbSingle|0|0|0|Single|0|7|0|4"},
    {"REAL", "adDouble|0|15|0|Double|0|15|0|8", "dbDouble|0|0|0|Double|0|15|0|8"},
    {"DOUBLE", "adDouble|0|15|0|Double|0|15|0|8", "dbDouble|0|0|0|Double|0|15|0|8"},
    {"FLOAT", "adDouble|0|15|0|Double|0|15|0|8", "dbDouble|0|0|0|Double|0|15|0|8"},
    {"NUMERIC(10,2)", "adNumeric|0|10|2|Double|0|10|2|8", "dbNumeric|0|0|0|Double|0|15|0|8"},
    {"DECIMAL(7)", "adNumeric|0|7|0|Double|0|7|0|8", "dbNumeric|0|0|0|Double|0|15|0|8"},
    {"DATE", "adDBDate|0|0|0|Date|0|0|0|8", "dbDate|0|0|0|TimeStamp|0|0|0|8"},
    {"DATETIME", "adDBTimeStamp|0|0|0|TimeStamp|0|0|0|8", "dbDate|0|0|0|TimeStamp|0|0|0|8"},
    {"TIMESTAMP", "adDBTimeStamp|0|0|0|TimeStamp|0|0|0|8", "dbDate|0|0|0|TimeStamp|0|0|0|8"},
    {"TIME", "adDBTime|0|0|0|Time|0|0|0|8", "dbTime|0|0|0|Time|0|0|0|8"},
    {"CHAR(5)", "adChar|5|0|0|Character|5|0|0|5", "dbChar|0|0|0|Character|5|0|0|5"},
    {"NCHAR(6)", "adWChar|6|0|0|Character|6|0|0|6", "dbChar|0|0|0|Character|6|0|0|6"},
    {"VARCHAR(30)", "adVarChar|30|0|0|Character|30|0|0|30", "dbText|0|0|0|Character|30|0|0|30"},
    {"TEXT(31)", "adVarChar|31|0|0|Character|31|0|0|31", "dbText|0|0|0|Character|31|0|0|31"},
    {"NVARCHAR(32)", "adVarWChar|32|0|0|Character|32|0|0|32", "dbText|0|0|0|Character|32|0|0|32"},
    {"NVARCHAR", "adVarWChar|255|0|0|Character|255|0|0|255", "dbText|0|0|0|Character|255|0|0|255"},
    {"BLOB", "adLongVarBinary|0|0|0|Blob|0|0|0|4096", "dbLongBinary|0|0|0|Blob|0|0|0|1024"},
    {"LONGBINARY", "adLongVarBinary|0|0|0|Blob|0|0|0|4096", "dbLongBinary|0|0|0|Blob|0|0|0|1024"},
    {"OLEOBJECT", "adLongVarBinary|0|0|0|Blob|0|0|0|4096", "dbLongBinary|0|0|0|Blob|0|0|0|1024"},
    {"BINARY(8)", "adBinary|8|0|0|Blob|8|0|0|8", "dbBinary|0|0|0|Blob|0|0|0|8"},
    {"VARBINARY(20)", "adVarBinary|20|0|0|Blob|20|0|0|20", "dbVarBinary|0|0|0|Blob|0|0|0|20"},
    {"GUID", "adGUID|0|0|0|Blob|0|0|0|1024", "dbGUID|0|0|0|Blob|0|0|0|16"},
    {"UUID", "adGUID|0|0|0|Blob|0|0|0|1024", "dbGUID|0|0|0|Blob|0|0|0|16"},
    {"BIGINT UNSIGNED", "adBigInt|0|19|0|Big Integer|0|19|0|8", "dbBigInt|0|0|0|Long Integer|0|10|0|4"},
    {"TIMESTAMP WITH TIME ZONE", "adDBTimeStamp|0|0|0|TimeStamp|0|0|0|8", "dbDate|0|0|0|TimeStamp|0|0|0|8"},
    {"timestamptz", "adDBTimeStamp|0|0|0|TimeStamp|0|0|0|8", "dbDate|0|0|0|TimeStamp|0|0|0|8"},
    {"BYTEA", "adLongVarBinary|0|0|0|Blob|0|0|0|4096", "dbLongBinary|0|0|0|Blob|0|0|0|1024"},
    {"", "adLongVarBinary|0|0|0|Blob|0|0|0|4096", "dbLongBinary|0|0|0|Blob|0|0|0|1024"},
    {"NATIVE CHARACTER(70)", "adVarChar|70|0|0|Character|70|0|0|70", "dbText|0|0|0|Character|70|0|0|70"},
    {"INT(11)", "adInteger|0|10|0|Long Integer|0|10|0|4", "dbLong|0|0|0|Long Integer|0|10|0|4"},
    {"UNSIGNED WIDEINT", "adInteger|0|10|0|Long Integer|0|10|0|4", "dbLong|0|0|0|Long Integer|0|10|0|4"},
    {"FOLIO", "adNumeric|0|0|0|Double|0|0|0|8", "dbNumeric|0|0|0|Double|0|15|0|8"},
};

TEST_F(PhysicalSchemaTest, ReadsEveryDeclaredType) {
    std::string columns, adoRows, daoRows;
    for (const auto& type : kTypes) {
        const std::string name = "C" + std::to_string(&type - kTypes);
        columns += (columns.empty() ? "" : ", ") + name + " " + std::string(type.declared);
        adoRows += (adoRows.empty() ? "" : "\n") + name + "|" + std::string(type.ado);
        daoRows += (daoRows.empty() ? "" : "\n") + name + "|" + std::string(type.dao);
    }
    test::MakeEmbedded(path, "create table Types (" + columns + ");");
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(TypeRows(), adoRows);
    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(TypeRows(), daoRows);
}

TEST_F(PhysicalSchemaTest, TextWithoutASizeIsUnlimited) {
    test::MakeEmbedded(path, "create table T (A TEXT, B MEMO, C JSON);");
    EXPECT_EQ(Read('D'), "True");
    EXPECT_EQ(TypeRows(),
              "A|dbMemo|0|0|0|Character|1024|0|0|1024\n"
              "B|dbMemo|0|0|0|Character|1024|0|0|1024\n"
              "C|dbMemo|0|0|0|Character|1024|0|0|1024");
    EXPECT_EQ(Read('A'), "True");
    EXPECT_EQ(Count("Column",
                    "[ADO Data Type] = 'adLongVarChar' and [Vellumark Data Type] = 'Character' and"
                    " [Vellumark Size] = [Vellumark Character Maximum Length] and [Vellumark Size] > 65535"),
              3);
}

TEST_F(PhysicalSchemaTest, AnAnswerChangesOnlyItsColumn) {
    test::MakeEmbedded(path, "create table T (A VARCHAR(8), B VARCHAR(8), C VARCHAR(9));");
    ConnectionForm.dbmsType = kDbmsDB2;
    recorder.yesNoAnswers = {false, true};
    EXPECT_TRUE(Read('D').starts_with("Truequestion: "));
    EXPECT_EQ(Rows("select [Name], [Vellumark Data Type] from [Column] where [FK TAB Id] = 2"),
              "A|Big Integer\nB|Character\nC|Character");
}

TEST_F(PhysicalSchemaTest, AFailedConnectSaysSo) {
    const std::string outcome = "Falseexclamation: Error: 3024 Could not find file '" + path +
                                "'.|exclamation: Cannot connect to source database.";
    EXPECT_EQ(Read('A'), outcome);
    EXPECT_EQ(Read('D'), outcome);
    EXPECT_EQ(Count("Table") + Count("Column"), 0);
    EXPECT_EQ(TargetConnectionState, 'D');
}

TEST_F(PhysicalSchemaTest, AFailedReadLeavesNoRows) {
    test::MakeEmbedded(path, kShop);
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("drop table [Column]");
    }
    EXPECT_EQ(Read('A'), "Falseexclamation: Error: 3078 no such table: Column");
    EXPECT_EQ(Count("Table"), 0);
    EXPECT_FALSE(TargetConnections.ado.IsOpen());
}

}  // namespace
}  // namespace vellumark
