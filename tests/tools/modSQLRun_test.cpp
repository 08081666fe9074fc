#include "tools/modSQLRun.h"

#include <gtest/gtest.h>

#include "embedded.h"
#include "sql_rows.h"
#include "temp_folder.h"

namespace vellumark::test {
namespace {

// The same small database under each protocol.
class SQLRunTest : public ::testing::TestWithParam<char> {
 protected:
    void SetUp() override {
        MakeEmbedded(path,
                     "create table Item (Id LONG primary key, Name TEXT(20), Price DOUBLE, Made DATE);"
                     "insert into Item values (1, 'Bolt', 1.5, '2001-02-03'), (2, null, null, null);"
                     "create table [Order Details] (Id LONG);");
        if (GetParam() == 'A')
            connections.ado.Open(AccessString(path));
        else
            connections.dao = dao::OpenDatabase(path);
    }

    // Fields and rows, then the line of the result.
    std::string Run(const std::string& text) {
        ListedRows rows;
        const SQLResult result = RunSQL(connections, GetParam(), text, rows);
        return rows.text + result.Line();
    }

    TempFolder folder;
    std::string path = folder.Path("x.mdb");
    OpenConnections connections;
};

TEST_P(SQLRunTest, RunsOneStatementAsItStands) {
    const std::string items = "Id|Name\n1|Bolt\n2|null\n";
    const struct {
        std::string_view text, result;
    } cases[] = {
        {"select Id, Name from Item order by Id", items},
        {"\r\n select Id, Name from Item order by Id ;\r\n -- it's all\r\n", items},
        {"/* don't; \"really\" */ select Id, Name -- what's its name\n from Item order by Id", items},
        {"select Price, Made from Item where Name like \"B*\"", "Price|Made\n1.5|2001-02-03\n"},
        {"with Two as (select 2 as Id) select Id from Two", "Id\n2\n"},
        {"select Id from [Order Details]", "Id\n"},
        {"update Item set Name = \"Nut\" where Id = 2", "SQL statement processed"},
        {"insert into Item (Id, Made) values (3, 'Feb 3 2001 04:05AM')", "SQL statement processed"},
        {"select Name, Made from Item where Id > 1", "Name|Made\nNut|null\nnull|2001-02-03 04:05:00\n"},
        {"insert into Item (Id) values (4) returning Id", "Id\n4\n"},
        {"delete * from Item where Id > 2", "SQL statement processed"},
        {"delete from Item; delete from [Order Details]",
         "Error 3142: Characters found after end of SQL statement."},
        {"select Id from Item; nonsense", "Error 3142: Characters found after end of SQL statement."},
        {"select count(*) as n from Item", "n\n2\n"},
        {"selec", "Error 3075: near \"selec\": syntax error"},
        {"select * from Missing", "Error 3078: no such table: Missing"},
        {"insert into Item (Id) values (1)", "Error 3022: UNIQUE constraint failed: Item.Id"},
        {"-- nothing", "Error 3075: The statement is empty."},
        {"select abs(-9223372036854775808) as n", "n\nError 3146: integer overflow"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Run(std::string(c.text)), c.result) << c.text;
}

TEST_P(SQLRunTest, StopsWhenTheSinkHasEnough) {
    ListedRows rows;
    rows.limit = 3;
    const SQLResult result = RunSQL(connections, GetParam(),
                                    "with recursive n(i) as (select 1 union all select i + 1 from n) "
                                    "select i from n",
                                    rows);
    EXPECT_EQ(rows.text + result.Line(), "i\n1\n2\n3\n");
    EXPECT_EQ(result.outcome, SQLOutcome::Stopped);
    EXPECT_EQ(result.rowCount, 3U);
    EXPECT_EQ(Run("drop table Item"), "SQL statement processed");
}

INSTANTIATE_TEST_SUITE_P(Protocols, SQLRunTest, ::testing::Values('A', 'D'),
                         [](const auto& test) { return std::string(1, test.param); });

TEST(SQLRun, ListsATableByItsNameUnderDAO) {
    const TempFolder folder;
    OpenConnections connections;
    connections.dao = dao::OpenDatabase(MakeEmbedded(folder.Path("x.mdb"),
                                                     "create table [Order Details] (Id LONG); insert into "
                                                     "[Order Details] values (7);"));
    ListedRows rows;
    EXPECT_EQ(RunSQL(connections, 'D', " Order Details ", rows).rowCount, 1U);
    EXPECT_EQ(rows.text, "Id\n7\n");
}

TEST(SQLRun, TellsThatAConnectionIsClosed) {
    ListedRows rows;
    EXPECT_EQ(RunSQL({}, 'A', "select 1", rows).Line(),
              "Error 3704: Operation is not allowed when the object is closed.");
    EXPECT_EQ(RunSQL({}, 'D', "select 1", rows).Line(), "Error 3021: The database is not open.");
}

}  // namespace
}  // namespace vellumark::test
