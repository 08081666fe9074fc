#include "engine/modDeleteData.h"

#include <gtest/gtest.h>

#include "insert_scenario.h"
#include "platform/dao/database.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark::test {

namespace {

const std::string kNoTables =
    "information: No tables were selected in this scenario for delete SQL generation!\n\nEdit the scenario "
    "and drag "
    "and drop the desired tables to the right hand tree to select them.";

class DeleteTest : public InsertScenarioTest {
 protected:
    void SetUp() override {
        InsertScenarioTest::SetUp();
        CurrentTSOType = 'D';
    }
    void AddDelete(const std::string& table, const std::string& where, int order) {
        const int tableId = SessionTest::AddTable(table, {});
        RepositoryScope repository;
        RepositoryDatabase.Execute("update [Table] set [Owner] = 'SHOP'");
        RepositoryDatabase.Execute(
            "insert into [TSO Delete Table Rule] ([Id], [FK DBS Id], [FK TSO Id], [FK TAB Id], [Sort Order],"
            " [Where Clause]) values (?, ?, ?, ?, ?, ?)",
            {tableId, CurrentDBSId, CurrentTSOId, tableId, order, where});
    }
    void OpenTarget() {
        const std::string path = folder.Path("target.db");
        dao::CreateDatabase(path);
        TargetConnections.dao = dao::OpenDatabase(path);
        DatabaseProtocol = 'D';
        SetOption("Code DataBase Owner", "N");
        for (const char* table : {"A", "B", "C"}) {
            TargetConnections.dao.Execute("create table " + std::string(table) + " (N INTEGER)");
            TargetConnections.dao.Execute("insert into " + std::string(table) + " values (1), (2)");
        }
    }
};

TEST_F(DeleteTest, WritesEachFormatsStatements) {
    AddDelete("B", "where A = 1", 2);
    AddDelete("A", "", 1);
    struct Case {
        TargetFormat format;
        std::string text;
    };
    for (const Case& c :
         {Case{TargetFormat::Oracle, "delete from SHOP.A\n/\ndelete from SHOP.B where A = 1\n/\n"},
          Case{TargetFormat::Db2, "delete from SHOP.A\n;\ndelete from SHOP.B where A = 1\n;\n"},
          Case{TargetFormat::SqlServer, "delete from SHOP.A\n \ndelete from SHOP.B where A = 1\n \n"},
          Case{TargetFormat::NonStopSql, "delete from SHOP.A\n;\ndelete from SHOP.B where A = 1\n;\n"},
          Case{TargetFormat::NonStopSqlWithDefine,
               "delete from =SHOP.A\n;\ndelete from =SHOP.B where A = 1\n;\n"},
          Case{TargetFormat::Sybase, "delete from SHOP.A\nGo\ndelete from SHOP.B where A = 1\nGo\n"},
          Case{TargetFormat::Jet, "delete from [SHOP.A]\n \ndelete from [SHOP.B] where A = 1\n \n"}}) {
        EXPECT_TRUE(fDeleteSQL({false, outputPath, c.format}, progress));
        EXPECT_EQ(WithoutComments(ReadFile(outputPath), c.format), Crlf(c.text));
        EXPECT_EQ(progress.started, "2 rows, 2 tables");
        EXPECT_EQ(progress.rows, 2);
    }
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(DeleteTest, StopsAtTheFormatWithoutStatements) {
    AddDelete("A", "", 1);
    AddDelete("B", "", 2);
    EXPECT_TRUE(fDeleteSQL({false, outputPath, TargetFormat::Delimited}, progress));
    EXPECT_EQ(recorder.Take(),
              "critical: Function 'InsertEndofStatement' Text File - Delimited not fully supported");
    EXPECT_EQ(WithoutComments(ReadFile(outputPath), TargetFormat::Delimited), "\r\n");
}

TEST_F(DeleteTest, SaysSoWithoutRules) {
    EXPECT_TRUE(fDeleteSQL({false, outputPath, TargetFormat::Oracle}, progress));
    EXPECT_EQ(recorder.Take(), kNoTables);
    EXPECT_EQ(progress.captions, std::vector<std::string>{"Creating Delete SQL statements"});
}

TEST_F(DeleteTest, DeletesUntilAStatementFails) {
    OpenTarget();
    AddDelete("A", "where N = 1", 1);
    AddDelete("B", "where Q = 1", 2);
    AddDelete("C", "", 3);
    EXPECT_FALSE(fDeleteSQL({true, "", TargetFormat::Oracle}, progress));
    const std::string shown = recorder.Take();
    EXPECT_TRUE(shown.starts_with("critical: Error no: 3061 ")) << shown;
    EXPECT_EQ(RowsOf(TargetConnections.dao,
                     "select (select count(*) from A), (select count(*) from B),"
                     " (select count(*) from C)"),
              "1|2|2");
}

TEST_F(DeleteTest, TellsOfAFileThatCannotBeWritten) {
    AddDelete("A", "", 1);
    EXPECT_FALSE(fDeleteSQL({false, folder.Path("none/out.sql"), TargetFormat::Oracle}, progress));
    EXPECT_TRUE(recorder.Take().starts_with("critical: Error no: 76 "));
    EXPECT_EQ(progress.finished, 1);
}

}  // namespace

}  // namespace vellumark::test
