// Reports, version control, merge and SQL by command.

#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>

#include "cli.h"
#include "platform/dao/database.h"
#include "temp_folder.h"

namespace vellumark::test {
namespace {

// The schemas "Old" and "New" of a database that has gained a column and lost a table between them.
class CliToolsTest : public ::testing::Test {
 protected:
    void SetUp() override {
        folder.Write("Vellumark.INI", "REPOSITORY=" + folder.Path() + "\nVALUES=" + folder.Path() +
                                          "\nVM_DATABASES=" + folder.Path("databases") + "\n");
        const std::string shop = folder.Path("shop.mdb");
        dao::CreateDatabase(shop);
        dao::OpenDatabase(shop).Execute("create table [Item] ([Id] LONG, [Name] TEXT(20))");
        dao::OpenDatabase(shop).Execute("create table [Spare] ([Id] LONG)");
        Run({"init"});
        EXPECT_EQ(Run({"read", "Old", "--type", "Jet", "--mdb", shop}).status, 0);
        dao::OpenDatabase(shop).Execute("alter table [Item] add column [Price] CURRENCY");
        dao::OpenDatabase(shop).Execute("drop table [Spare]");
        EXPECT_EQ(Run({"read", "New", "--type", "Jet", "--mdb", shop}).status, 0);
    }

    CliResult Run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--settings", folder.Path("Vellumark.INI")});
        return RunCli(words);
    }
    std::string Output(const std::vector<std::string>& words) {
        const CliResult result = Run(words);
        return std::to_string(result.status) + " " + result.out + result.err;
    }

    TempFolder folder;
    std::string log = folder.Path("log.txt");
};

TEST_F(CliToolsTest, CarriesASchemaOntoAnother) {
    EXPECT_EQ(Output({"merge", "new", "Old", "--log", log}), "0 " + log + "\n");
    EXPECT_NE(ReadFile(log).find("Database Merge Log File\r\n\r\nUpdating details from source: New to "
                                 "target: Old\r\n"),
              std::string::npos);
    EXPECT_NE(ReadFile(log).find("        - Created Column: Price\r\n"), std::string::npos);
    EXPECT_EQ(Run({"tables", "Old"}).out, "Item\nSpare\n");

    const std::string question = "question: " + log + " already exists. Do you want to replace it?\n";
    EXPECT_EQ(Output({"version-control", "New", "Old", "--log", log}), "1 " + question);
    EXPECT_EQ(Output({"--yes", "version-control", "New", "Old", "--log", log}), "0 " + log + "\n" + question);
    EXPECT_NE(ReadFile(log).find("    *** Deleted Table: Spare\r\n"), std::string::npos);
    EXPECT_EQ(Run({"tables", "Old"}).out, "Item\n");
}

TEST_F(CliToolsTest, RefusesWhatItCanNotCarry) {
    EXPECT_EQ(Output({"merge", "New", "Older", "--log", log}),
              "1 exclamation: There is no Database schema 'Older'.\n");
    EXPECT_EQ(Output({"merge", "Newer", "Old", "--log", log}),
              "1 exclamation: There is no Database schema 'Newer'.\n");
    EXPECT_EQ(Output({"version-control", "Old", "old", "--log", log}),
              "1 exclamation: Please select a different target database schema to the open one.\n");
    EXPECT_EQ(Output({"--yes", "merge", "New", "Old", "--log", folder.Path("Vellumark.mdb")}),
              "1 exclamation: " + folder.Path("Vellumark.mdb") +
                  " is a store of Vellumark and cannot be replaced.\n");
    EXPECT_EQ(Run({"merge", "New", "Old"}).status, 2);
    EXPECT_FALSE(std::filesystem::exists(log));
}

TEST_F(CliToolsTest, RunsAStatement) {
    const struct {
        std::vector<std::string> words;
        std::string result;
    } cases[] = {
        {{"insert into [Item] values (1, 'Bolt \"M\"', 2.5), (12, null, null)"},
         "0 SQL statement processed\n"},
        {{"insert into [Item] values (3, 'a' || char(10) || 'é,b', 10), (4, '', 0)"},
         "0 SQL statement processed\n"},
        {{"select * from [Item] order by [Id];"},
         "0 Id  Name      Price\n"
         "--  --------  -----\n"
         " 1  Bolt \"M\"    2.5\n"
         " 3  a é,b        10\n"
         " 4                0\n"
         "12\n"
         "(4 rows)\n"},
        {{"select * from [Item] order by [Id]", "--csv"},
         "0 Id,Name,Price\r\n1,\"Bolt \"\"M\"\"\",2.5\r\n3,\"a\né,b\",10\r\n4,\"\",0\r\n12,,\r\n"},
        {{"select [Id] from [Item] where 1 = 0"}, "0 Id\n--\n(0 rows)\n"},
        {{"delete from [Item]; delete from [Item]"},
         "1 exclamation: Error 3142: Characters found after end of SQL statement.\n"},
        {{"select [Price] from [Nothing]", "--csv"}, "1 exclamation: Error 3078: no such table: Nothing\n"},
        {{"delete from [Item] where [Id] > 3"}, "0 SQL statement processed\n"},
        {{"select count(*) as n from [Item]", "--csv"}, "0 n\r\n2\r\n"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words = {"sql", "New"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        EXPECT_EQ(Output(words), c.result) << c.words[0];
    }
    EXPECT_EQ(Output({"sql", "Newer", "select 1"}), "1 exclamation: There is no Database schema 'Newer'.\n");
    EXPECT_EQ(Run({"sql", "New"}).status, 2);
}

TEST_F(CliToolsTest, ReadsAStatementFromStandardInput) {
    const std::string script =
        folder.Write("script.sql", "-- it's the items\nselect [Id],\n  [Name]\nfrom [Item];\n");
    const CliResult result = RunCli({"--settings", folder.Path("Vellumark.INI"), "sql", "New", "-", "--csv"},
                                    [&] { ASSERT_NE(std::freopen(script.c_str(), "r", stdin), nullptr); });
    EXPECT_EQ(result.out + result.err, "Id,Name\r\n");
}

TEST_F(CliToolsTest, WritesReports) {
    const std::string columns = folder.Path("VMColDef.htm"), tables = folder.Path("VMTables.htm");
    EXPECT_EQ(Output({"report", "columns", "Old", "--output", folder.Path()}), "0 " + columns + "\n");
    EXPECT_NE(ReadFile(columns).find("<h4>Table: Spare</h4>\r\n"), std::string::npos);
    EXPECT_EQ(Output({"report", "tables", "Old", "--sort", "entity", "--output", folder.Path()}),
              "0 " + tables + "\n");
    EXPECT_EQ(Output({"report", "tables", "Old", "--output", folder.Path()}),
              "1 question: " + tables + " already exists. Do you want to replace it?\n");
    EXPECT_EQ(Run({"report", "tables", "Old", "--sort", "size"}).status, 2);
}

}  // namespace
}  // namespace vellumark::test
