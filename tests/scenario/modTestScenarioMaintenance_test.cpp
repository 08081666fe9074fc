#include "scenario/modTestScenarioMaintenance.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;

class ScenarioTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
        tabId = AddTable("Zoo", {"A Character"});
        AddTable("Ark", {"A Character"});
        CreateSystemScenario();
    }

    int tabId = 0;
};

TEST_F(ScenarioTest, SystemScenarioIsHiddenAndHasNoFolder) {
    EXPECT_EQ(Rows("select [Id], [Name], [Type] from [Test Scenario]"), "0|System|0");
    EXPECT_EQ(Rows("select [FK TSO Id], [FK TAB Id] from [resolver Test Scenario Table]"), "0|2\n0|1");
    EXPECT_TRUE(fs::is_empty(CurrentDBSFolder));
    EXPECT_FALSE(OpenScenario("System"));
}

TEST_F(ScenarioTest, NewScenarioHasRowFolderTablesAndNoRules) {
    CurrentScenarioTab = ScenarioTab::Delete;
    ASSERT_TRUE(CreateScenario("Clear"));
    CurrentScenarioTab = ScenarioTab::Insert;
    ASSERT_TRUE(CreateScenario("Fill"));
    EXPECT_EQ(Rows("select [Id], [Name], [Type] from [Test Scenario] where [Id] > 0"), "1|Clear|D\n2|Fill|I");
    EXPECT_EQ(CurrentTSOId, 2);
    EXPECT_EQ(CurrentTSOType, 'I');
    EXPECT_EQ(CurrentTSOFolder, CurrentDBSFolder + "/Fill.tso");
    EXPECT_EQ(SessionState, kOpenWithScenario);
    EXPECT_TRUE(fs::is_directory(CurrentTSOFolder));
    EXPECT_EQ(InsertScenarioNames, std::vector<std::string>{"Fill"});
    EXPECT_EQ(Count("resolver Test Scenario Table", "[FK TSO Id] = 2"), 2);
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] = 2"), 0);
}

TEST_F(ScenarioTest, PromptAsksAgainUntilTheNameIsUsable) {
    fs::create_directory(ScenarioFolder("Taken"));
    recorder.promptAnswers = {std::string(51, 'x'), "Taken", std::string(50, 'y')};
    ASSERT_TRUE(CreateScenario(""));
    EXPECT_EQ(CurrentTSOName, std::string(50, 'y'));
    const std::string prompt = "prompt: Vellumark: Enter the new Insert Data Scenario name: []";
    EXPECT_EQ(recorder.Take(),
              prompt + "|exclamation: Scenario name may not be greater than 50 characters.|" + prompt +
                  "|exclamation: Scenario path '" + ScenarioFolder("Taken") + "' already exists.|" + prompt);
    recorder.promptAnswers = {std::nullopt};
    EXPECT_FALSE(SaveScenarioAs(""));
    EXPECT_EQ(Count("Test Scenario"), 2);
}

TEST_F(ScenarioTest, FailedFolderLeavesNoRow) {
    fs::remove(CurrentDBSFolder);
    EXPECT_FALSE(CreateScenario("Fill"));
    EXPECT_EQ(Count("Test Scenario", "[Id] > 0"), 0);
    EXPECT_TRUE(InsertScenarioNames.empty());
    EXPECT_NE(recorder.Take(), "");
}

TEST_F(ScenarioTest, CopyKeepsIdsAndOwnsItsConnections) {
    ASSERT_TRUE(CreateScenario("Fill"));
    AddTableRule(tabId, 1, 9, true);
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute("insert into [Database Connection] ([Id], [Table]) values (7, 'src')");
        RepositoryDatabase.Execute(
            "insert into [Value Source] ([FK TCR Id], [FK TTR Id], [FK COL Id], [FK TAB Id], [FK DBS Id], "
            "[FK TSO Id],"
            " [Type], [FK CON Id], [FK CNV Id], [End at Column], [Column end Cell], [Row end Cell])"
            " values (1, 1, 1, ?, ?, 1, 'O', 7, 3, 12, 'stop', 'end')",
            {tabId, CurrentDBSId});
        RepositoryDatabase.Execute(
            "insert into [resolver TTR dependency] ([FK DBS Id], [FK TSO Id], [FK Child TTR Id]) values (?, "
            "1, 1)",
            {CurrentDBSId});
    }
    ASSERT_TRUE(SaveScenarioAs("Copy"));
    EXPECT_EQ(CurrentTSOName, "Fill");
    EXPECT_TRUE(fs::is_directory(ScenarioFolder("Copy")));
    EXPECT_EQ(Rows("select [Id], [Start Range], [End Range], [Quantity] from [TSO Insert Table Rule] where "
                   "[FK TSO Id] = 2"),
              "1|1|9|9");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TSO Id] = 2 and [FK TTR Id] = 1"), 1);
    EXPECT_EQ(Count("resolver TTR dependency", "[FK TSO Id] = 2 and [FK Child TTR Id] = 1"), 1);
    EXPECT_EQ(Rows("select [FK CON Id], [FK CNV Id], [Column end Cell], [Row end Cell] from [Value Source] "
                   "where [FK TSO Id] = 2"),
              "8||12|");
    EXPECT_EQ(Rows("select [Id], [Table] from [Database Connection]"), "7|src\n8|src");

    ASSERT_TRUE(OpenScenario("Copy"));
    ASSERT_TRUE(DeleteScenario());
    EXPECT_EQ(Rows("select [Id] from [Database Connection]"), "7");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TSO Id] = 2"), 0);
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TSO Id] = 1"), 1);
    EXPECT_FALSE(fs::exists(ScenarioFolder("Copy")));
    EXPECT_EQ(SessionState, kOpenNoScenario);
    EXPECT_EQ(CurrentTSOId, 0);
    EXPECT_EQ(InsertScenarioNames, std::vector<std::string>{"Fill"});
}

TEST_F(ScenarioTest, LastModifiedIsTheLatestTimeInTheFolder) {
    using std::chrono::days;
    ASSERT_TRUE(CreateScenario("Fill"));
    const fs::file_time_type made = fs::last_write_time(CurrentTSOFolder);
    const std::string before = ScenarioLastModified("Fill");
    const std::string output = folder.Write("databases/Shop.dbs/Fill.tso/out.sql", "x");
    fs::last_write_time(output, made - days(2));
    fs::last_write_time(CurrentTSOFolder, made);
    EXPECT_EQ(ScenarioLastModified("Fill"), before);
    fs::last_write_time(output, made + days(400));
    EXPECT_GT(ScenarioLastModified("Fill"), before);
    EXPECT_EQ(ScenarioLastModified("None"), "");
}

TEST_F(ScenarioTest, RenameMovesRowListAndFolderTogether) {
    ASSERT_TRUE(CreateScenario("Fill"));
    ASSERT_TRUE(RenameScenario("Pour"));
    EXPECT_EQ(Rows("select [Name] from [Test Scenario] where [Id] = 1"), "Pour");
    EXPECT_EQ(InsertScenarioNames, std::vector<std::string>{"Pour"});
    EXPECT_TRUE(fs::is_directory(ScenarioFolder("Pour")));
    EXPECT_FALSE(fs::exists(ScenarioFolder("Fill")));

    fs::remove(ScenarioFolder("Pour"));
    EXPECT_FALSE(RenameScenario("Gone"));
    EXPECT_EQ(Rows("select [Name] from [Test Scenario] where [Id] = 1"), "Pour");
}

TEST_F(ScenarioTest, IdOfADeletedLastScenarioIsGivenOutAgain) {
    ASSERT_TRUE(CreateScenario("One"));
    ASSERT_TRUE(CreateScenario("Two"));
    ASSERT_TRUE(DeleteScenario());
    ASSERT_TRUE(CreateScenario("Three"));
    EXPECT_EQ(CurrentTSOId, 2);
}

TEST_F(ScenarioTest, DeleteQuestionNamesTheScenarioInLowerCase) {
    ASSERT_TRUE(CreateScenario("Fill UP"));
    recorder.yesNoAnswers = {false};
    EXPECT_FALSE(fConfirmDeleteScenario());
    EXPECT_EQ(recorder.Take(),
              "question: Do you really want to delete the selected Insert Data Scenario: fill up?");
}

}  // namespace
}  // namespace vellumark
