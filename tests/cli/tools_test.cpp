// Reports, version control and merge by command.

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
