#include <gtest/gtest.h>

#include "platform/ado/connection.h"
#include "platform/dao/database.h"
#include "platform/dao/odbc_type.h"
#include "platform/error.h"
#include "platform/odbc/driver_string.h"
#include "platform/odbc/sources.h"
#include "temp_folder.h"

namespace vellumark::odbc {
namespace {

using platform::Error;

const Installed kMachine{
    {"FreeTDS", "ODBC Driver 17 for SQL Server", "ODBC Driver 18 for SQL Server", "Oracle 21 ODBC driver",
     "IBM DB2 ODBC DRIVER", "PostgreSQL Unicode", "MariaDB Unicode", "SQLite3"},
    {{"orders", "PostgreSQL Unicode"}, {"ledger", "/opt/acme/libacme.so"}}};
const Installed kWithFreeTds{
    {"FreeTDS", "SQLite3"},
    {{"bare", ""}, {"sales", "Oracle 19"}, {"notes", "Acme"}, {"file", "libacme.so"}}};

std::string Outcome(std::string_view text, const Installed& installed) {
    try {
        return DriverManagerString(text, installed);
    } catch (const Error& error) {
        return error.Line();
    }
}

TEST(DriverStringTest, FindsTheDriver) {
    const std::string postgres = ";Protocol=7.4-0;UseServerSidePrepare=0;BoolsAsChar=0";
    const struct {
        std::string text, expected;
    } cases[] = {
        {"server=s;UID=sa;PWD={a;b};DATABASE=d;Provider = sqloledb",
         "DRIVER={ODBC Driver 18 for SQL Server};SERVER=s;DATABASE=d;UID=sa;PWD={a;b}"},
        {"Provider = DB2OLEDB;PWD=p;DATABASE=d;UID=u;SERVER = db2gateway",
         "DRIVER={IBM DB2 ODBC DRIVER};HOSTNAME=db2gateway;PORT=50000;PROTOCOL=TCPIP;DATABASE=d;UID=u;PWD=p"},
        {"User Id=u;Password=p;Data Source=tns;Provider = MSDAORA;server=",
         "DRIVER={Oracle 21 ODBC driver};DBQ=tns;UID=u;PWD=p"},
        {"User Id=u;Password=p;Data Source=shop;Provider = msdaora;server=host",
         "DRIVER={Oracle 21 ODBC driver};DBQ=//host/shop;UID=u;PWD=p"},
        {"User Id=u;Password=p;Data Source=Orders;server=", "UID=u;PWD=p;DSN=Orders" + postgres},
        {"Provider=MSDASQL.1;Password=p;Data Source=ledger", "PWD=p;DSN=ledger"},
        {"ODBC;DSN=orders;UID=;PWD=;DATABASE=", "DSN=orders" + postgres},
        {"DSN=orders;BOOLSASCHAR=1", "DSN=orders;BOOLSASCHAR=1;Protocol=7.4-0;UseServerSidePrepare=0"},
        {"Driver = {MariaDB Unicode};SERVER=s;PWD={}};}",
         "Driver={MariaDB Unicode};SERVER=s;PWD={}};};NO_SSPS=1;OPTION=67108864"},
        {"DRIVER=sqlite3;Database=/x.db", "DRIVER=sqlite3;Database=/x.db;FKSupport=1;NoCreat=1"},
        {"DRIVER=/opt/acme/libacme.so;Data Source=x", "DRIVER=/opt/acme/libacme.so;Data Source=x"},
        {"FILEDSN=/x.dsn;PWD=p", "FILEDSN=/x.dsn;PWD=p"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Outcome(c.text, kMachine), c.expected) << c.text;
    EXPECT_EQ(Outcome("Provider=SQLOLEDB;Server=s;UID=u", kWithFreeTds),
              "DRIVER={FreeTDS};SERVER=s;PORT=1433;UID=u");
    EXPECT_EQ(Outcome("Provider=SQLOLEDB;Server={s,1500}", kWithFreeTds), "DRIVER={FreeTDS};SERVER=s,1500");
}

TEST(DriverStringTest, SaysWhatIsMissing) {
    const std::string start = "Error: 3706 Provider cannot be found. ";
    const std::string installed = " Installed are: FreeTDS, SQLite3.";
    const struct {
        std::string text, expected;
    } cases[] = {
        {"Provider = MSDAORA;Password=secret",
         "No driver is installed for the provider 'MSDAORA'. Please install Oracle's Instant Client with its "
         "ODBC "
         "part." +
             installed},
        {"Provider=Acme;PWD=secret",
         "No driver is installed for the provider 'Acme'. Please install an ODBC driver and name it instead, "
         "as DRIVER={...}." +
             installed},
        {"Driver={PostgreSQL Unicode};PWD=secret",
         "The driver 'PostgreSQL Unicode' is not installed. Please install the package "
         "odbc-postgresql." +
             installed},
        {"DSN=shop;PWD=secret", "No data source 'shop' is set up. Please define it in odbc.ini."},
        {"Data Source=bare;Password=secret",
         "The data source 'bare' names no driver. Please set its Driver in odbc.ini."},
        {"DSN=Sales;PWD=secret",
         "The driver 'Oracle 19' of the data source 'Sales' is not installed. Please install "
         "Oracle's Instant Client with its ODBC part." +
             installed},
        {"DSN=notes",
         "The driver 'Acme' of the data source 'notes' is not installed. Please install it, with an entry in "
         "odbcinst.ini." +
             installed},
        {"Driver={Firebird};PWD=secret",
         "The driver 'Firebird' is not installed. Please install it, with an entry in odbcinst.ini." +
             installed},
        {"Driver={Acme;PWD=secret", "The driver 'Acme;PWD=***"},
        {"User Id=u;Password=secret;Data Source=;server=s",
         "The connection string names no driver and no data source."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Outcome(c.text, kWithFreeTds), start + c.expected) << c.text;
    EXPECT_EQ(Outcome("DSN=file", kWithFreeTds), "DSN=file");
    EXPECT_EQ(Outcome("Provider=sqloledb", {}),
              start +
                  "No driver is installed for the provider 'sqloledb'. Please install the package tdsodbc or "
                  "Microsoft's msodbcsql18.");
}

TEST(OdbcSourcesTest, ListsWhatIsSetUp) {
    EXPECT_EQ(Drivers(), (std::vector<std::string>{"SQLite3", "Ghost Driver"}));
    std::string sources;
    for (const DataSource& source : DataSources())
        sources += source.name + "|" + source.driver + "\n";
    EXPECT_EQ(sources, "ghosts|Ghost Driver\nshop|SQLite3\n");
}

TEST(OdbcSourcesTest, OpensByNameUnderBothProtocols) {
    const test::TempFolder folder;
    const std::string path = folder.Path("x.db");
    dao::CreateDatabase(path);
    ado::Connection connection;
    connection.Open("User Id=;Password=;Data Source=shop;server=;Database=" + path);
    connection.Execute("create table T (A integer)");
    const dao::Database database = dao::OpenOdbcDatabase("shop", "ODBC;DATABASE=" + path + ";PWD=");
    EXPECT_FALSE(database.IsEmbedded());
    EXPECT_EQ(database.TableNames(), (std::vector<std::string>{"T"}));
}

TEST(OdbcSourcesTest, DaoReadsTextsAndChangesNothing) {
    const test::TempFolder folder;
    dao::CreateDatabase(folder.Path("x.db"));
    const dao::Database database = dao::OpenOdbcDatabase("shop", "DATABASE=" + folder.Path("x.db"));
    database.Execute("create table T (A integer primary key, B varchar(20))");
    database.Execute("insert into T values (?, ?)", {1, "it's ?"});
    database.Execute("insert into T values (2, null)");
    dao::Recordset rows = database.OpenRecordset("T");
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.Long("a"), 1);
    EXPECT_EQ(rows.Text("B"), "it's ?");
    rows.MoveNext();
    EXPECT_TRUE(rows.IsNull("B"));
    rows.Edit();
    rows.Set("B", "x");
    EXPECT_THROW(rows.Update(), Error);
    EXPECT_THROW(rows.Delete(), Error);
    EXPECT_EQ(database.OpenRecordset("select B from T where A = ?", {1}).Text("B"), "it's ?");
    EXPECT_THROW(database.OpenRecordset("update T set B = ''"), Error);
    EXPECT_EQ(database.TableDefinition("t").fields.size(), 2U);
    EXPECT_THROW(database.TableDefinition("U"), Error);
    EXPECT_TRUE(database.Relations().empty());
}

TEST(OdbcTypeTest, KnowsEveryCode) {
    const struct {
        CatalogColumn column;
        int ado, dao, size;
        std::optional<int> length, precision, scale;
    } cases[] = {
        {{"", 9, "DATE", 10, {}, true}, 133, dao::dbDate, 8, {}, {}, {}},
        {{"", 10, "TIME", 8, {}, true}, 134, dao::dbTime, 8, {}, {}, {}},
        {{"", 11, "TIMESTAMP", 26, 6, true}, 135, dao::dbTimeStamp, 8, {}, {}, {}},
        {{"", -155, "datetimeoffset", 34, 7, true}, 135, dao::dbTimeStamp, 8, {}, {}, {}},
        {{"", -152, "xml", 0, {}, true}, 203, dao::dbMemo, 0, {}, {}, {}},
        {{"", -11, "uniqueidentifier", 36, {}, true}, 72, dao::dbGUID, 16, {}, {}, {}},
        {{"", -4, "bytea", -4, {}, true}, 205, dao::dbLongBinary, 0, {}, {}, {}},
        {{"", 2, "NUMBER", 38, -84, true}, 131, dao::dbNumeric, 16, {}, 38, -84},
        {{"", 101, "INTERVAL YEAR", 4, {}, true}, 200, dao::dbText, 4, 4, {}, {}},
        {{"", -9, "nvarchar", {}, {}, true}, 202, dao::dbText, 0, {}, {}, {}},
        {{"", 4, "int identity", 10, 0, true}, 3, dao::dbLong, 4, {}, 10, {}},
        {{"", 0, "DECIMAL(8,3)", {}, {}, true}, 131, dao::dbNumeric, 16, {}, 8, 3},
    };
    for (const auto& c : cases) {
        const dao::ColumnType type = dao::ReadOdbcType(c.column);
        EXPECT_EQ(type.adoType, c.ado) << c.column.typeName;
        EXPECT_EQ(type.daoType, c.dao) << c.column.typeName;
        EXPECT_EQ(type.daoSize, c.size) << c.column.typeName;
        EXPECT_EQ(type.maximumLength, c.length) << c.column.typeName;
        EXPECT_EQ(type.precision, c.precision) << c.column.typeName;
        EXPECT_EQ(type.scale, c.scale) << c.column.typeName;
    }
}

TEST(OdbcSourcesTest, TellsOfABrokenDriverAndAMissingFile) {
    const auto error = [](const std::string& text) {
        try {
            ado::Connection().Open(text);
        } catch (const Error& failure) {
            return failure.Line();
        }
        return std::string("opened");
    };
    EXPECT_EQ(error("DSN=ghosts;PWD=secret"),
              "Error: 3146 [01000] [unixODBC][Driver Manager]Can't open lib '/nowhere/libghost.so' : file "
              "not found");
    EXPECT_EQ(error("DSN=shop;DATABASE=/nowhere/x.db;PWD=secret"),
              "Error: 3024 Could not find file '/nowhere/x.db'.");
    const test::TempFolder folder;
    EXPECT_EQ(error("DSN=shop;DATABASE=" + folder.Path("new.db") + ";NoCreat=0"), "opened");
}

}  // namespace
}  // namespace vellumark::odbc
