#include <gtest/gtest.h>

#include "embedded.h"
#include "platform/ado/connection.h"
#include "platform/dao/database.h"
#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark::ado {
namespace {

// What a failing Open says; the connection must be closed afterwards.
std::string OpenError(Connection& connection, const std::string& text) {
    try {
        connection.Open(text);
    } catch (const platform::Error& error) {
        EXPECT_FALSE(connection.IsOpen());
        return error.Line();
    }
    return "opened";
}

TEST(AdoConnectionTest, OpensWithAClearError) {
    const test::TempFolder folder;
    const std::string good = test::MakeEmbedded(folder.Path("good.mdb"), "create table A (x);");
    const std::string locked = folder.Path("locked.mdb");
    dao::CreateDatabase(locked, "secret");
    const std::string alien = folder.Write("alien.mdb", std::string(4096, 'x'));
    const std::string driver = "DRIVER={microsoft access driver (*.mdb, *.accdb)};";
    const struct {
        std::string text, outcome;
    } cases[] = {
        {driver + "dbq = " + good, "opened"},
        {driver + "DBQ=" + folder.Path("none.mdb"),
         "Error: 3024 Could not find file '" + folder.Path("none.mdb") + "'."},
        {driver + "UID=u", "Error: 3024 The connection string names no database file (DBQ)."},
        {driver + "DBQ=" + alien, "Error: 3343 Unrecognized database format '" + alien + "'."},
        {driver + "DBQ=" + locked, "Error: 3031 Not a valid password."},
        {driver + "PWD=secret;DBQ=" + locked, "opened"},
        {"server=s;UID=sa;PWD=pw1;DATABASE=d;Provider = sqloledb",
         "Error: 3706 Provider cannot be found. No driver is installed for the provider 'sqloledb'. Please "
         "install "
         "the package tdsodbc or Microsoft's msodbcsql18. Installed are: SQLite3, Ghost Driver."},
        {"User Id=u;Password=pw1;Data Source=orders;server=s",
         "Error: 3706 Provider cannot be found. No data source 'orders' is set up. Please define it in "
         "odbc.ini."},
        {"DRIVER={No Such};PWD=pw1",
         "Error: 3706 Provider cannot be found. The driver 'No Such' is not installed. Please install it, "
         "with an entry in odbcinst.ini. Installed are: SQLite3, Ghost Driver."},
        {"PWD=pw1",
         "Error: 3706 Provider cannot be found. The connection string names no driver and no data source."},
    };
    Connection connection;
    for (const auto& c : cases)
        EXPECT_EQ(OpenError(connection, c.text), c.outcome) << c.text;
}

std::string Texts(Rowset rows, const std::vector<std::string_view>& fields) {
    std::string text;
    for (; !rows.IsEOF(); rows.MoveNext()) {
        text += text.empty() ? "" : "\n";
        for (const std::string_view field : fields)
            text += (field == fields.front() ? "" : "|") + (rows.IsNull(field) ? "null" : rows.Text(field));
    }
    return text;
}

class EmbeddedProviderTest : public ::testing::Test {
 protected:
    EmbeddedProviderTest() {
        test::MakeEmbedded(path, R"(
            create table Log (Id INTEGER primary key autoincrement, Text_ MEMO);
            create view Latest as select max(Id) as Id from Log;
            create table [Order Line] (OrderId INTEGER, Line SMALLINT, Price NUMERIC(10,2) not null, Part NVARCHAR(20),
                                       Twice NUMERIC generated always as (Price * 2),
                                       primary key (Line, OrderId), unique (Part),
                                       foreign key (OrderId) references Orders);
            create index ByPrice on [Order Line] (Price);
            create table Orders (Id LONG primary key, Before LONG references Orders (Id));
            create table Delivery (L SMALLINT, O INTEGER,
                                   foreign key (O, L) references [order line] (OrderId, Line));)");
        connection.Open(test::AccessString(path));
    }

    test::TempFolder folder;
    std::string path = folder.Path("x.mdb");
    Connection connection;
};

TEST_F(EmbeddedProviderTest, ListsTables) {
    const auto fields = {std::string_view("TABLE_SCHEMA"), std::string_view("table_name"),
                         std::string_view("Table_Type")};
    EXPECT_EQ(Texts(connection.OpenSchema(SchemaKey::Tables), fields),
              "null|MSysProperties|SYSTEM TABLE\n"
              "null|Log|TABLE\n"
              "null|sqlite_sequence|SYSTEM TABLE\n"
              "null|Latest|VIEW\n"
              "null|Order Line|TABLE\n"
              "null|Orders|TABLE\n"
              "null|Delivery|TABLE");
    EXPECT_EQ(
        Texts(connection.OpenSchema(SchemaKey::Tables, {std::nullopt, "", std::nullopt, "VIEW"}), fields),
        "null|Latest|VIEW");
}

TEST_F(EmbeddedProviderTest, ListsColumns) {
    const Rowset rows = connection.OpenSchema(SchemaKey::Columns, {std::nullopt, std::nullopt, "order line"});
    EXPECT_EQ(Texts(rows, {"TABLE_NAME", "ORDINAL_POSITION", "COLUMN_NAME", "IS_NULLABLE", "DATA_TYPE",
                           "CHARACTER_MAXIMUM_LENGTH", "NUMERIC_PRECISION", "NUMERIC_SCALE"}),
              "Order Line|1|OrderId|0|3|null|10|null\n"
              "Order Line|2|Line|0|2|null|5|null\n"
              "Order Line|3|Price|0|131|null|10|2\n"
              "Order Line|4|Part|-1|202|20|null|null");
    EXPECT_EQ(
        Texts(connection.OpenSchema(SchemaKey::Columns), {"TABLE_NAME", "COLUMN_NAME"}),
        "MSysProperties|Name\nMSysProperties|Value\nLog|Id\nLog|Text_\nOrder Line|OrderId\nOrder Line|Line\n"
        "Order Line|Price\nOrder Line|Part\nOrders|Id\nOrders|Before\nDelivery|L\nDelivery|O");
    EXPECT_TRUE(connection.OpenSchema(SchemaKey::Columns, {std::nullopt, std::nullopt, "Missing"}).IsEOF());
}

TEST_F(EmbeddedProviderTest, ListsIndexes) {
    const auto of = [&](const std::string& table) {
        return Texts(connection.OpenSchema(SchemaKey::Indexes,
                                           {std::nullopt, std::nullopt, std::nullopt, std::nullopt, table}),
                     {"COLUMN_NAME", "PRIMARY_KEY", "UNIQUE"});
    };
    EXPECT_EQ(of("Order Line"), "Line|-1|-1\nOrderId|-1|-1\nPart|0|-1\nPrice|0|0");
    EXPECT_EQ(of("LOG"), "Id|-1|-1");
    EXPECT_EQ(of("Delivery"), "");
}

TEST_F(EmbeddedProviderTest, ListsForeignKeysByParent) {
    const auto of = [&](const std::string& parent) {
        return Texts(connection.OpenSchema(SchemaKey::ForeignKeys, {std::nullopt, std::nullopt, parent}),
                     {"PK_TABLE_NAME", "PK_COLUMN_NAME", "FK_TABLE_NAME", "FK_COLUMN_NAME"});
    };
    EXPECT_EQ(of("Orders"), "Orders|Id|Order Line|OrderId\nOrders|Id|Orders|Before");
    EXPECT_EQ(of("Order Line"), "order line|OrderId|Delivery|O\norder line|Line|Delivery|L");
    EXPECT_EQ(of("Delivery"), "");
    test::MakeEmbedded(path, "create table Late (D SMALLINT references Delivery (L));");
    EXPECT_EQ(of("Delivery"), "Delivery|L|Late|D");
}

TEST_F(EmbeddedProviderTest, RefusesWhatIsNotThere) {
    const Rowset tables = connection.OpenSchema(SchemaKey::Tables);
    EXPECT_THROW(tables.Text("TABLE_COLOUR"), platform::Error);
    const Rowset none = connection.OpenSchema(SchemaKey::Tables, {std::nullopt, std::nullopt, "Missing"});
    EXPECT_THROW(none.Text("TABLE_NAME"), platform::Error);
    connection.Close();
    EXPECT_THROW(connection.OpenSchema(SchemaKey::Tables), platform::Error);
}

}  // namespace
}  // namespace vellumark::ado
