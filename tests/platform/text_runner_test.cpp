#include "platform/dao/text_runner.h"

#include <gtest/gtest.h>

#include "embedded.h"
#include "platform/ado/connection.h"
#include "platform/dao/database.h"
#include "platform/error.h"
#include "session.h"
#include "temp_folder.h"

namespace vellumark::dao {
namespace {

TEST(StoredDateTest, ReadsWhatDatabasesWrite) {
    const struct {
        DateForm form;
        std::string_view text, stored;
    } cases[] = {
        {DateForm::Moment, "2001-02-03", "2001-02-03 00:00:00"},
        {DateForm::Moment, "2001-02-03 04:05:06", "2001-02-03 04:05:06"},
        {DateForm::Moment, "2001-02-03 04:05:06.123456", "2001-02-03 04:05:06"},
        {DateForm::Moment, "2001-02-03-04.05.06.123456", "2001-02-03 04:05:06"},
        {DateForm::Moment, "2001-02-0304.05.06", "2001-02-03 04:05:06"},
        {DateForm::Moment, "Feb 3 2001", "2001-02-03 00:00:00"},
        {DateForm::Moment, "feb 13 2001 04:05pm", "2001-02-13 16:05:00"},
        {DateForm::Moment, "Feb  3 2001 12:05AM", "2001-02-03 00:05:00"},
        {DateForm::Moment, "Dec 31 2000 12:05PM", "2000-12-31 12:05:00"},
        {DateForm::Moment, "04:05:06", "1899-12-30 04:05:06"},
        {DateForm::Day, "2001-02-03", "2001-02-03"},
        {DateForm::Day, "Feb 3 2001 12:00AM", "2001-02-03"},
        {DateForm::Day, "Feb 3 2001 01:00AM", "2001-02-03 01:00:00"},
        {DateForm::Time, "Jan 1 1900 04:05PM", "16:05:00"},
        {DateForm::Time, "04.05.06", "04:05:06"},
        {DateForm::Time, "11:59PM", "23:59:00"},
        {DateForm::None, "2001-02-03", "refused"},
        {DateForm::Moment, "", "refused"},
        {DateForm::Moment, "Feb 30 2001", "refused"},
        {DateForm::Moment, "2001-13-03", "refused"},
        {DateForm::Moment, "2001-02-03 ", "refused"},
        {DateForm::Moment, "2001-02-03 24:00:00", "refused"},
        {DateForm::Moment, "2001-02-03 04:05", "refused"},
        {DateForm::Moment, "13:05PM", "refused"},
        {DateForm::Moment, "00:05AM", "refused"},
        {DateForm::Moment, "Feb 3 2001x", "refused"},
        {DateForm::Moment, "Febr 3 2001", "refused"},
        {DateForm::Moment, "20010203", "refused"},
    };
    for (const auto& c : cases) {
        std::string stored = "<";
        const bool done = AppendStoredDate(stored, c.form, c.text);
        EXPECT_EQ(done ? stored.substr(1) : "refused", c.stored) << c.text;
        EXPECT_EQ(done, stored.size() > 1) << c.text;
    }
}

TEST(InsertTextTest, FindsTheHead) {
    const struct {
        std::string_view statement, parts;
    } cases[] = {
        {"insert into [T]\r\n(\r\n[A],\r\n[B c]\r\n) values (\r\n1,\r\n2\r\n)", "T:A,B c,"},
        {"INSERT INTO shop.orders(a , \"b\")VALUES(1)", "shop.orders:a,b,"},
        {" insert  into t values (1)", "t:"},
        {"insert into [a]b (c) values (1)", "none"},
        {"insert or replace into t values (1)", "none"},
        {"insert into t select 1", "none"},
        {"insert into t (a) select values (1)", "none"},
        {"insert into t (a", "none"},
        {"insert into t (a,) values (1)", "none"},
        {"insert into [t", "none"},
        {"delete from t", "none"},
        {"insert", "none"},
        {"", "none"},
    };
    for (const auto& c : cases) {
        const std::optional<InsertHead> head = ParseInsertHead(c.statement);
        std::string parts = head ? std::string(head->table) + ":" : "none";
        if (head)
            for (const std::string_view column : head->columns)
                parts.append(column).append(",");
        EXPECT_EQ(parts, c.parts) << c.statement;
        if (head) {
            EXPECT_TRUE(c.statement.starts_with(head->text) && head->text.ends_with('(')) << head->text;
        }
    }
}

// What a row holds must not depend on how its statement was executed.
class TextRunnerTest : public ::testing::Test {
 protected:
    TextRunnerTest() {
        test::MakeEmbedded(path, R"(
            create table Plain (Id INTEGER primary key, T TEXT, R REAL, N NUMERIC, B BLOB);
            create table Dated (Id INTEGER primary key, D DATE, M DATETIME, S TIMESTAMP, H TIME, V VARCHAR(30));
            create table Child (P INTEGER not null references Plain (Id));)");
        database = OpenDatabase(path);
    }

    std::string Run(const std::string& statement) {
        try {
            runner.Execute(statement);
            return "done";
        } catch (const platform::Error& error) {
            return error.Line();
        }
    }

    test::TempFolder folder;
    std::string path = folder.Path("x.mdb");
    Database database;
    TextRunner runner{database};
};

TEST_F(TextRunnerTest, StoresWhatTheStatementSays) {
    constexpr std::string_view kRows =
        "select typeof(T), T, typeof(R), R, typeof(N), N, typeof(B), B from Plain";
    const std::string values[] = {
        "1, 'x', 2, 3, null",
        "1, 'it''s', 1.50, '7', ''",
        "1,\r\n'',\r\n-2.5e3,\r\n+7,\r\n'07'",
        "1, 007, .5, 99999999999999999999, -9223372036854775808",
        "1, ('a, b)'), ((2)), True, false",
        "1, NULL, '2', 'x', '#1#'",
        "1, \"say 'x'\", 1 + 1, lower('X'), x'41'",
        "1, 'größe 😀', 1e308, 0x10, 'a?b'",
        "1, 'a' || 'b', - 5, 5., 'Feb 3 2001'",
    };
    for (const std::string& each : values) {
        const std::string statement = "insert into [Plain]\r\n(Id, T, R, N, B) values (" + each + ")";
        database.Execute(statement);
        const std::string expected = test::RowsOf(database, std::string(kRows));
        database.Execute("delete * from Plain");
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(Run(statement), "done") << each;
            EXPECT_EQ(test::RowsOf(database, std::string(kRows)), expected) << each;
            EXPECT_EQ(Run("delete * from Plain"), "done");
        }
    }
}

TEST_F(TextRunnerTest, BringsDatesToTheirStoredForm) {
    const std::string head = "insert into Dated\r\n([Id],\r\n[V],\r\n[H],\r\n[S],\r\n[M],\r\n[d]) values (";
    EXPECT_EQ(Run(head + "1,'Feb 3 2001','Jan 1 1900 04:05AM','Feb 3 2001 04:05AM',('Feb 3 2001 04:05PM'),"
                         "'2001-02-03')"),
              "done");
    EXPECT_EQ(Run(head + "2,'2001-02-03','04:05:06','2001-02-03-04.05.06.123456','no date',null)"), "done");
    EXPECT_EQ(Run("insert into Dated values (3, 'Feb 3 2001', 5, '', 'a''b', 'x', '04:05AM')"),
              "Error: 3146 table Dated has 6 columns but 7 values were supplied");
    EXPECT_EQ(Run("insert into Dated values (3, 'Feb 3 2001', 5, '', 'a''b', '04:05AM')"), "done");
    EXPECT_EQ(test::RowsOf(database, "select Id, D, M, S, H, V from Dated"),
              "1|2001-02-03|2001-02-03 16:05:00|2001-02-03 04:05:00|04:05:00|Feb 3 2001\n"
              "2||no date|2001-02-03 04:05:06|04:05:06|2001-02-03\n"
              "3|2001-02-03|5||a'b|04:05AM");
}

TEST_F(TextRunnerTest, FailsAsTheStatementDoes) {
    const struct {
        std::string statement, outcome;
    } cases[] = {
        {"insert into Plain (Id) values (1)", "done"},
        {"insert into Plain (Id) values (1)", "Error: 3022 UNIQUE constraint failed: Plain.Id"},
        {"insert into Plain (Id) values (2)", "done"},
        {"insert into Plain (Id) values (3, 4)", "Error: 3146 2 values for 1 columns"},
        {"insert into Plain (Id) values ('O'Brien')", "Error: 3075 near \"Brien\": syntax error"},
        {"insert into Plain (Nope) values (1)", "Error: 3061 table Plain has no column named Nope"},
        {"insert into Nowhere (Id) values (1)", "Error: 3078 no such table: Nowhere"},
        {"insert into Child (P) values (9)", "Error: 3201 FOREIGN KEY constraint failed"},
        {"insert into Child (P) values (null)", "Error: 3314 NOT NULL constraint failed: Child.P"},
        {"insert into Child (P) values (2)", "done"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Run(c.statement), c.outcome) << c.statement;
    EXPECT_EQ(test::RowsOf(database, "select Id from Plain"), "1\n2");
}

TEST_F(TextRunnerTest, FollowsAChangeOfTheTable) {
    const std::string insert = "insert into Plain (Id, T) values (";
    EXPECT_EQ(Run(insert + "1, 'Feb 3 2001')"), "done");
    EXPECT_EQ(Run("drop table Child"), "done");
    EXPECT_EQ(Run("drop table Plain"), "done");
    EXPECT_EQ(Run("create table Plain (T DATE, Id INTEGER)"), "done");
    EXPECT_EQ(Run(insert + "1, 'Feb 3 2001')"), "done");
    EXPECT_EQ(test::RowsOf(database, "select Id, T from Plain"), "1|2001-02-03");
}

TEST_F(TextRunnerTest, ServesAdoWithTransactionsAndCursors) {
    ado::Connection connection;
    connection.Open(test::AccessString(path));
    connection.Begin();
    connection.Execute("insert into [Dated] ([Id], [M]) values (1, 'Feb 3 2001 04:05AM')");
    connection.Commit();
    connection.Begin();
    connection.Execute("insert into Dated ([Id]) values (2)");
    connection.Rollback();
    connection.OpenRecordset("insert into Dated (Id, V) values (3, \"x\")");
    const std::unique_ptr<platform::Cursor> rows = connection.OpenRecordset("select Id, M, V from [Dated]");
    EXPECT_EQ(rows->FieldNames(), (std::vector<std::string>{"Id", "M", "V"}));
    std::string text;
    while (rows->Next())
        for (std::size_t column = 0; column < 3; ++column)
            text += rows->IsNull(column) ? "null|" : std::string(rows->Text(column)) + "|";
    EXPECT_EQ(text, "1|2001-02-03 04:05:00|null|3|null|x|");
    connection.Close();
    EXPECT_THROW(connection.Execute("delete from Dated"), platform::Error);
}

}  // namespace
}  // namespace vellumark::dao
