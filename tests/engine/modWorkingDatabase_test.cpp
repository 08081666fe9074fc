#include "engine/modWorkingDatabase.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "engine/uniqueValues.h"
#include "insert_scenario.h"
#include "repository/modVellumark.h"

namespace vellumark {
namespace {

using test::Crlf;
using test::Fields;

TEST(UniqueValues, TellsTextsApartButNotTheirCase) {
    UniqueValues values;
    for (int i = 0; i < 5000; ++i) {
        const std::string text = "Value " + std::to_string(i);
        ASSERT_FALSE(values.Contains(text));
        values.Add(text);
    }
    EXPECT_TRUE(values.Contains("VALUE 0"));
    EXPECT_TRUE(values.Contains("value 4999"));
    EXPECT_FALSE(values.Contains("value 5000"));
    EXPECT_FALSE(values.Contains(""));
}

class WorkingDatabaseTest : public test::InsertScenarioTest {
 protected:
    // A Dependency of column `childColumn` of one rule on column 1 of another; rules and their tables share
    // Ids.
    void Depend(int childRule, int childColumn, int parentRule, int increment) {
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "insert into [resolver TTR dependency] ([FK DBS Id], [FK TSO Id], [FK Child TTR Id], [FK Child "
            "TAB Id],"
            " [FK Child COL Id], [FK Parent TTR Id], [FK Parent TAB Id], [FK Parent COL Id], [Increment "
            "parent count],"
            " [Quantity children per parent]) values (?, ?, ?, ?, ?, ?, ?, 1, ?, 1)",
            {CurrentDBSId, CurrentTSOId, childRule, TableOf(childRule), childColumn, parentRule,
             TableOf(parentRule), increment});
    }

    int TableOf(int rule) {
        return dao::ToLong(RepositoryDatabase.Lookup(
            "select [FK TAB Id] from [TSO Insert Table Rule] where [Id] = ?", {rule}));
    }

    static Fields Rows(int rows) { return {{"Start Range", 1}, {"End Range", rows}, {"Quantity", rows}}; }

    std::string Delimited() { return Generate(TargetFormat::Delimited); }
};

TEST_F(WorkingDatabaseTest, PlainScenarioMakesNone) {
    AddRule("PLAIN", {{"ID", "Long Integer"}}, Rows(2));
    EXPECT_EQ(Delimited(), Crlf("1\n2\n"));
    EXPECT_FALSE(std::filesystem::exists(WorkingDatabasePath()));
}

TEST_F(WorkingDatabaseTest, ChildrenTakeTheirParentsInTurn) {
    const int parent = AddRule(
        "P", {{"ID", "Long Integer", 0, 0, 0, {{"Start Range", "11"}, {"End Range", "12"}}}}, Rows(2));
    const int child =
        AddRule("C", {{"ID", "Long Integer"}, {"PID", "Long Integer"}, {"NAME", "Character", 9}}, Rows(10));
    const int grandchild = AddRule("G", {{"PID", "Long Integer"}}, Rows(3));
    Depend(child, 2, parent, 3);
    Depend(grandchild, 1, child, 2);
    EXPECT_EQ(Delimited(), Crlf("11\n12\n"
                                "1,11,NAME1\n2,11,NAME2\n3,11,NAME3\n4,12,NAME4\n5,12,NAME5\n6,12,NAME6\n"
                                "7,11,NAME7\n8,11,NAME8\n9,11,NAME9\n10,12,NAME10\n"
                                "1\n1\n2\n"));
    const dao::Database store = dao::OpenDatabase(WorkingDatabasePath());
    EXPECT_EQ(store.TableNames(), (std::vector<std::string>{"MSysProperties", "SHOPP", "SHOPC", "SHOPG"}));
    EXPECT_EQ(test::RowsOf(store, "select * from [SHOPC] where [Vellumark Id] < 3"),
              "1|2|-1|1|11\n2|2|-1|2|11");
    EXPECT_EQ(progress.captions,
              (std::vector<std::string>{
                  "Preparing Test Scenario for data generation", "Creating empty temporary database",
                  "Creating data in temporary database", "Resolving foreign keys", "Generating data"}));
}

TEST_F(WorkingDatabaseTest, LongPassesGiveSignsOfLife) {
    AddRule("U", {{"A", "Long Integer", 0, 0, 0, {{"Flag Column Unique", true}}}},
            {{"End Range", 100}, {"Quantity", 100}});
    Delimited();
    EXPECT_GE(progress.signs, 1);
    EXPECT_EQ(progress.rows, 100);
}

TEST_F(WorkingDatabaseTest, GrandchildSeesResolvedValuesOnlyBehindItsParent) {
    const int grandchild = AddRule("G", {{"PID", "Long Integer"}}, Rows(1));
    const int child = AddRule("C", {{"PID", "Long Integer"}}, Rows(1));
    const int parent = AddRule(
        "P", {{"ID", "Long Integer", 0, 0, 0, {{"Start Range", "50"}, {"End Range", "50"}}}}, Rows(1));
    Depend(grandchild, 1, child, 1);
    Depend(child, 1, parent, 1);
    // The grandchild stands first and takes what the child had before its own turn came.
    EXPECT_EQ(Delimited(), Crlf("1\n50\n50\n"));
}

TEST_F(WorkingDatabaseTest, StandAloneParentsFeedButPrintNothing) {
    Fields silent = Rows(2);
    silent.emplace_back("Flag Use Generated Data", false);
    const int parent =
        AddRule("P", {{"ID", "Long Integer", 0, 0, 0, {{"Start Range", "7"}, {"End Range", "8"}}}}, silent);
    const int child = AddRule("C", {{"PID", "Long Integer"}}, Rows(3));
    Depend(child, 1, parent, 1);
    EXPECT_EQ(Delimited(), Crlf("7\n8\n7\n"));
}

TEST_F(WorkingDatabaseTest, TwoRulesOfOneTableKeepTheirRowsApart) {
    const int first = AddRule("EMP", {{"ID", "Long Integer"}, {"BOSS", "Long Integer"}}, Rows(2));
    const int second = AddRuleOf(first, {{"ID", "Long Integer"}, {"BOSS", "Long Integer"}},
                                 {{"Start Range", 31}, {"End Range", 33}, {"Quantity", 3}});
    Depend(second, 2, first, 2);
    EXPECT_EQ(Delimited(), Crlf("1,1\n2,2\n31,1\n32,1\n33,2\n"));
    // A rule that is its own parent.
    RepositoryScope repository;
    RepositoryDatabase.Execute("update [resolver TTR dependency] set [FK Parent TTR Id] = ?", {second});
    EXPECT_EQ(Delimited(), Crlf("1,1\n2,2\n31,31\n32,31\n33,32\n"));
}

TEST_F(WorkingDatabaseTest, BrokenDependenciesEndTheRun) {
    const int parent = AddRule("P", {{"ID", "Long Integer"}}, Rows(2));
    const int child = AddRule("C", {{"PID", "Long Integer"}}, Rows(2));
    Depend(child, 1, parent, 0);
    recorder.choiceAnswers = {0, 0};
    const std::string choice = "choice: Unexpected error occurred during the data generation.\n";
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle), choice + "Error: 11 Division by zero");
    RepositoryScope repository;
    RepositoryDatabase.Execute("update [resolver TTR dependency] set [Increment parent count] = 1");
    RepositoryDatabase.Execute("update [TSO Insert Table Rule] set [Quantity] = 0 where [Id] = ?", {parent});
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle), choice + "Error: 3021 No current record.");
}

TEST_F(WorkingDatabaseTest, UniqueRandomValuesAreTriedAgain) {
    AddRule(
        "U",
        {{"N",
          "Long Integer",
          0,
          0,
          0,
          {{"Start Range", "1"}, {"End Range", "40"}, {"Range order", "R"}, {"Flag column unique", true}}}},
        Rows(40));
    const std::string text = Delimited();
    std::vector<bool> seen(41);
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
        const int number = std::stoi(text.substr(at));
        EXPECT_FALSE(seen.at(static_cast<std::size_t>(number))) << number;
        seen[static_cast<std::size_t>(number)] = true;
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 40);
}

TEST_F(WorkingDatabaseTest, UniquenessGivesUpWithItsMessage) {
    AddRule("U", {{"N", "Long Integer", 0, 0, 0, {{"Constant Value", "5"}, {"Flag column unique", true}}}},
            Rows(2));
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle),
              "exclamation: Cannot generate another unique value for \n\nTable: U\nColumn: N\n\nLast "
              "generated value: 5");
}

TEST_F(WorkingDatabaseTest, CompoundUniquenessLooksAtTheWholeSet) {
    const auto part = [](const char* name, const char* end) {
        return test::RuleColumn{name,
                                "Long Integer",
                                0,
                                0,
                                0,
                                {{"Start Range", "1"},
                                 {"End Range", end},
                                 {"Range order", "R"},
                                 {"Flag compound column unique", true}}};
    };
    const int rule = AddRule("U", {part("A", "3"), part("B", "4")}, Rows(12));
    std::string text = Delimited();
    std::vector<std::string> lines;
    for (std::size_t end; (end = text.find("\r\n")) != std::string::npos; text.erase(0, end + 2))
        lines.push_back(text.substr(0, end));
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(std::unique(lines.begin(), lines.end()) - lines.begin(), 12);
    RepositoryScope repository;
    RepositoryDatabase.Execute(
        "update [TSO Insert Table Rule] set [Quantity] = 13, [End Range] = 13 where [Id] = ?", {rule});
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle),
              "exclamation: Cannot generate another set of compound unique values for \n\nTable: U\n");
}

TEST_F(WorkingDatabaseTest, MarkedColumnsKeepTheirLiteralsAndNulls) {
    AddRule("M",
            {{"ID", "Long Integer", 0, 0, 0, {{"Flag column unique", true}}},
             {"DAY", "Date", 0, 0, 0, {{"date time increment", "D"}, {"Flag column unique", true}}},
             {"NIL",
              "Character",
              3,
              0,
              0,
              {{"Code Generate Data Type", "N"},
               {"Fill the column", "B"},
               {"Flag compound column unique", true},
               {"Flag Exclude", false}}},
             {"OUT", "Long Integer", 0, 0, 0, {{"Flag Exclude", true}, {"Flag column unique", true}}}},
            Rows(1));
    EXPECT_EQ(Generate(TargetFormat::Oracle),
              Crlf("insert into SHOP.M\n(\nID,\nDAY,\nNIL\n)\nvalues (\n1,\n"
                   "TO_DATE('2000-01-0200.00.00', 'YYYY-MM-DDHH24.MI.SS'),\nnull\n)\n/\nCOMMIT\n/\n\n"));
    const dao::Database store = dao::OpenDatabase(WorkingDatabasePath());
    EXPECT_EQ(test::RowsOf(store, "select [ID], [DAY], [NIL], [OUT] from [SHOPM]"),
              "1|2000-01-0200.00.00|###|1");
}

TEST_F(WorkingDatabaseTest, FieldSizesFollowTheFormat) {
    const Fields unique = {{"Flag column unique", true}};
    const int rule = AddRule("S",
                             {{"TXT", "Character", 30, 0, 0, unique},
                              {"MEMO", "Character", 2000, 0, 0, unique},
                              {"NUM", "Double", 0, 12, 0, unique},
                              {"PLAIN", "Boolean", 0, 0, 0, unique},
                              {"DAY", "Date", 0, 0, 0, unique},
                              {"AT", "Time", 0, 0, 0, unique},
                              {"MOM", "TimeStamp", 0, 0, 0, unique}},
                             Rows(1));
    ASSERT_EQ(rule, 1);
    const struct {
        TargetFormat format;
        const char* sizes;
    } cases[] = {
        {TargetFormat::Db2, "30 memo 12 80 80 80 26 "},
        {TargetFormat::NonStopSqlWithDefine, "30 memo 12 80 80 80 26 "},
        {TargetFormat::Oracle, "30 memo 12 80 18 18 18 "},
        {TargetFormat::SqlServer, "30 memo 12 80 19 19 19 "},
        {TargetFormat::Jet, "30 memo 12 80 19 19 19 "},
        {TargetFormat::Sybase, "30 memo 12 80 11 7 19 "},
        {TargetFormat::Delimited, "30 memo 12 80 50 50 50 "},
    };
    for (const auto& c : cases) {
        Generate(c.format);
        const dao::Database store = dao::OpenDatabase(WorkingDatabasePath());
        std::string sizes;
        for (const dao::Field& field : store.TableDefinition("SHOPS").fields)
            if (field.ordinalPosition >= 3)
                sizes +=
                    (field.type.daoType == dao::dbMemo ? "memo" : std::to_string(field.type.daoSize)) + " ";
        EXPECT_EQ(sizes, c.sizes) << TargetFormatName(c.format);
    }
}

}  // namespace
}  // namespace vellumark
