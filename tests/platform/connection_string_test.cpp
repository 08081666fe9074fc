#include "platform/connection_string.h"

#include <gtest/gtest.h>

namespace vellumark::platform {
namespace {

TEST(ConnectionStringTest, FindsValues) {
    const struct {
        std::string_view text, key, value;
    } cases[] = {
        {"DSN=a;UID=b;PWD=c", "uid", "b"},
        {"server=s;DATABASE=d;Provider = sqloledb", "PROVIDER", "sqloledb"},
        {"Provider = DB2OLEDB;PWD=;DATABASE=x", "pwd", ""},
        {"Provider = DB2OLEDB;PWD=;DATABASE=x", "database", "x"},
        {"driver={Microsoft Access Driver (*.mdb)};DBQ=/a b/c=d.mdb", "Driver",
         "Microsoft Access Driver (*.mdb)"},
        {"driver={Microsoft Access Driver (*.mdb)};DBQ=/a b/c=d.mdb", "dbq", "/a b/c=d.mdb"},
        {"PWD={a;b}}c} ;UID=u", "PWD", "a;b}c"},
        {"PWD={a;b}}c} ;UID=u", "UID", "u"},
        {"PWD= {open;x", "PWD", "open;x"},
        {"ODBC;DSN=a", "DSN", "a"},
        {"DSN=first;dsn=second", "DSN", "first"},
        {"DSN=a", "ServerName", ""},
        {"DSN = ", "DSN", ""},
        {"DSN", "DSN", ""},
        {"", "DSN", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ConnectionString(c.text).Value(c.key), c.value) << c.text << " " << c.key;
}

TEST(ConnectionStringTest, KeepsValuesAsWritten) {
    const ConnectionString parts("ODBC;Driver = {Some Driver} ;PWD={a;b}}c};UID= u ;X=");
    std::string text;
    for (const ConnectionString::Part& part : parts.Parts())
        text += part.key + "=" + part.written + "|";
    EXPECT_EQ(text, "Driver={Some Driver}|PWD={a;b}}c}|UID=u|X=|");
    EXPECT_EQ(ConnectionString("PWD={open;x").Parts()[0].written, "{open;x}");
}

TEST(ConnectionStringTest, WritesAnyValue) {
    for (const std::string value : {"plain", "a;b", "}", "{x}", " blank ", "a}b;c", "p@ss=word", ""}) {
        const std::string text = "A=" + WrittenValue(value) + ";B=2";
        EXPECT_EQ(ConnectionString(text).Value("A"), value) << text;
        EXPECT_EQ(ConnectionString(text).Value("B"), "2") << text;
    }
    EXPECT_EQ(WrittenValue("p@ss=word"), "p@ss=word");
}

TEST(ConnectionStringTest, MasksPasswords) {
    const struct {
        std::string_view text, expected;
    } cases[] = {
        {"DSN=a;UID=b;PWD=secret;DATABASE=c", "DSN=a;UID=b;PWD=***;DATABASE=c"},
        {"User Id=u;Password = secret;Data Source=d", "User Id=u;Password = ***;Data Source=d"},
        {"pwd={sec;r}}et};UID=u;PWD=again", "pwd=***;UID=u;PWD=***"},
        {"Jet OLEDB:Database Password=secret", "Jet OLEDB:Database Password=***"},
        {"PWD={secret", "PWD=***"},
        {"PWD= ;UID=u", "PWD= ;UID=u"},
        {"PWD=", "PWD="},
        {"[08001] bad string 'PWD=se cret'\n[01000] more", "[08001] bad string 'PWD=***\n[01000] more"},
        {"password authentication failed for user \"u\"", "password authentication failed for user \"u\""},
        {"Cannot open /home/pwd", "Cannot open /home/pwd"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MaskPasswords(c.text), c.expected);
}

TEST(ConnectionStringTest, MasksThePasswordsOfAStringWhereverTheyStand) {
    const std::string text = "login {se;cret} of u failed near se;cret, PWD=x";
    EXPECT_EQ(MaskPasswords(text, "UID=u;Password={se;cret}"), "login *** of u failed near ***, PWD=***");
    EXPECT_EQ(MaskPasswords(text, "UID=login;PWD=u"), "login {se;cret} of u failed near se;cret, PWD=***");
}

}  // namespace
}  // namespace vellumark::platform
