#include "schema/modConnectionString.h"

#include <gtest/gtest.h>

#include "connections.h"
#include "recorder.h"

namespace vellumark {
namespace {

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
        ConnectionDetails details = test::FilledConnection(c.dbms, c.protocol, c.useODBC);
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

TEST(ConnectionStrings, ArePresentedWithoutTheirPassword) {
    ConnectionDetails details = test::FilledConnection(kDbmsSqlServer, 'A', false);
    details.password = "p;w";
    fConnectionString(details);
    EXPECT_EQ(ShownConnectionString(details), "server=srv;UID=me;PWD=***;DATABASE=db;Provider = sqloledb");
    details.password.clear();
    EXPECT_EQ(ShownConnectionString(details), "server=srv;UID=me;PWD=;DATABASE=db;Provider = sqloledb");
    details.protocol = 'D';
    details.connectionString = "password = {p;w};DSN=old";
    EXPECT_EQ(ShownConnectionString(details), "password = ***;DSN=old");
    details.protocol = 'A';
    details.useDefaultString = false;
    EXPECT_EQ(ShownConnectionString(details), "password = ***;DSN=old");
}

}  // namespace
}  // namespace vellumark
