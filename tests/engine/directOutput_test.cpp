#include <gtest/gtest.h>

#include "embedded.h"
#include "engine/modGenerateData.h"
#include "insert_scenario.h"
#include "platform/dao/database.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark::test {

namespace {

class DirectOutputTest : public InsertScenarioTest {
 protected:
    void SetUp() override {
        InsertScenarioTest::SetUp();
        const std::string path = folder.Path("target.db");
        dao::CreateDatabase(path);
        TargetConnections.dao = dao::OpenDatabase(path);
        DatabaseProtocol = 'D';
        Target().Execute(
            "create table [T] ([A] INTEGER primary key, [B] VARCHAR(20), [C] INTEGER check ([C] < 1500))");
        SetOption("Code DataBase Owner", "N");
    }
    static const dao::Database& Target() { return TargetConnections.dao; }

    void AddRows(int quantity) {
        AddRule("T",
                {{"A", "Long Integer"},
                 {"B", "Character", 20, 0, 0, {{"Constant Value", "say \"x\""}}},
                 {"C", "Long Integer"}},
                {{"End Range", quantity}, {"Quantity", quantity}});
    }
    bool Run(TargetFormat format) { return TestDataGenerateAll({true, "", format}, progress); }
};

TEST_F(DirectOutputTest, SendsEachRow) {
    AddRows(3);
    EXPECT_TRUE(Run(TargetFormat::Jet));
    EXPECT_EQ(RowsOf(Target(), "select * from [T]"), "1|say \"x\"|1\n2|say \"x\"|2\n3|say \"x\"|3");
    EXPECT_EQ(progress.rows, 3);
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(DirectOutputTest, KeepsTheRowsBeforeAFailingOne) {
    AddRows(2000);
    recorder.choiceAnswers = {1};
    EXPECT_FALSE(Run(TargetFormat::Jet));
    EXPECT_EQ(RowsOf(Target(), "select count(*), max([A]) from [T]"), "1499|1499");
    const std::string shown = recorder.Take();
    EXPECT_TRUE(shown.starts_with("choice: Unexpected error occurred during the data generation.\nError: "))
        << shown;
    EXPECT_TRUE(shown.ends_with(
        "|message: insert into [T]\n(\n[A],\n[B],\n[C]\n) values (\n1500,\n'say \"x\"',\n1500\n)"))
        << shown;
}

TEST_F(DirectOutputTest, KeepsTheRowsBeforeAnErrorOfTheRun) {
    SetOption("Default Start Date", "9999-12-28");
    AddRule("T", {{"A", "Long Integer"}, {"B", "Date"}}, {{"End Range", 5}, {"Quantity", 5}});
    recorder.choiceAnswers = {0};
    EXPECT_FALSE(Run(TargetFormat::Sybase));
    EXPECT_EQ(RowsOf(Target(), "select [A], [B] from [T]"), "1|Dec 29 9999\n2|Dec 30 9999\n3|Dec 31 9999");
}

TEST_F(DirectOutputTest, DatesGetTheirStoredForm) {
    Target().Execute("create table [Dated] ([A] INTEGER, [D] DATE, [S] DATETIME, [H] TIME, [V] VARCHAR(30))");
    SetOption("Default Start Date", "2001-02-27");
    SetOption("Default Start Time", "14:05:00");
    SetOption("Default Start Timestamp", "2001-02-27 14:05:00");
    AddRule("Dated", {{"A", "Long Integer"},
                      {"D", "Date"},
                      {"S", "TimeStamp"},
                      {"H", "Time", 0, 0, 0, {{"date time increment", "N"}}},
                      {"V", "Character", 30, 0, 0, {{"Constant Value", "Feb 3 2001 04:05AM"}}}});
    TargetConnections.ado.Open(AccessString(Target().Path()));
    for (const char protocol : {'A', 'D'}) {
        DatabaseProtocol = protocol;
        EXPECT_TRUE(Run(TargetFormat::Jet));
        EXPECT_EQ(RowsOf(Target(), "select [D], [S], [H], [V] from [Dated]"),
                  "2001-02-28|2001-02-28 14:05:00|14:06:00|Feb 3 2001 04:05AM");
        Target().Execute("delete * from [Dated]");
    }
}

TEST_F(DirectOutputTest, SendsDelimitedTextAsItStands) {
    AddRows(1);
    recorder.choiceAnswers = {1};
    EXPECT_FALSE(Run(TargetFormat::Delimited));
    EXPECT_TRUE(recorder.Take().ends_with("|message: \n(\nA,\nB,\nC\n) values (\n1,say \"x\",1\n)"));
}

TEST_F(DirectOutputTest, NeedsAnOpenTarget) {
    AddRows(1);
    TargetConnections.Close();
    recorder.choiceAnswers = {0};
    EXPECT_FALSE(Run(TargetFormat::Jet));
    EXPECT_EQ(recorder.Take(),
              "choice: Unexpected error occurred during the data generation.\n"
              "Error: 3704 Operation is not allowed when the object is closed.");
    EXPECT_EQ(progress.finished, 1);
}

}  // namespace

}  // namespace vellumark::test
