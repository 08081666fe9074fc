#include "scenario/modTTRandRTDmaintenance.h"

#include <gtest/gtest.h>
#include <limits>

#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

class TableRuleTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
    }
};

TEST(TableRule, QuantityAndLabelFollowTheRange) {
    const struct {
        int start, end, quantity;
        const char* label;
    } cases[] = {
        {5, 0, 1, "T (5)"},
        {5, 5, 1, "T (5)"},
        {5, 9, 5, "T (5-9)"},
        {1, std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), "T (1-2147483647)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(RangeQuantity(c.start, c.end), c.quantity);
        EXPECT_EQ(TableRuleLabel("T", c.start, c.end), c.label);
    }
    EXPECT_THROW(RangeQuantity(0, std::numeric_limits<int>::max()), platform::Error);
}

TEST_F(TableRuleTest, RangeChecksShowTheirMessages) {
    EXPECT_TRUE(fValidTableRange(3, 0));
    EXPECT_TRUE(fValidTableRange(3, 3));
    EXPECT_FALSE(fValidTableRange(4, 3));
    EXPECT_FALSE(fValidTableRange(0, 3));
    EXPECT_FALSE(fValidTableRange(4, -1));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Start number must be less than or equal to end number|"
              "exclamation: Please enter a start number greater than zero|"
              "exclamation: Start number must be less than or equal to end number");
}

TEST_F(TableRuleTest, SystemRulesTakeTheirDefaultsFromTheDataType) {
    AddTable("T", {"A Character", "B Blob", "C TimeStamp", "D Time", "E Date", "F Long Integer"});
    CreateSystemScenario();
    EXPECT_EQ(
        Rows("select [Id], [Sort Order], [Start Range], [End Range], [Quantity], [Flag Use Generated Data], "
             "[Retry Count Data Unique], [Status] from [TSO Insert Table Rule]"),
        "1|1|1|100|100|-1|1000|");
    EXPECT_EQ(Rows("select [Id], [FK TTR Id], [Code Generate Data Type], [Flag Exclude], [Constant Value], "
                   "[date time increment], [Fill the column], [generated value too large], [Range order], "
                   "[Code Output Datetime Edit Pattern] from [TSO Insert Column Rule]"),
              "1|1|D|0|||N|B|S|\n"
              "2|1|D|-1|Note: Objects will be supported in a future release||N|B|S|\n"
              "3|1|D|0||N|N|B|S|\n"
              "4|1|D|0||N|N|B|S|\n"
              "5|1|D|0||D|N|B|S|\n"
              "6|1|D|0|||N|B|S|");
    EXPECT_EQ(Rows("select [Id], [Sort Order], [Where Clause] from [TSO Delete Table Rule]"), "1|1|");
}

TEST_F(TableRuleTest, SisterSchemasGetTheirOwnPatterns) {
    MakeSchema("Cases", 'T');
    AddTable("T", {"S TimeStamp", "T Time", "D Date", "(GROUP_VIEW) Character"});
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute("update [Column] set [Name] = '(GROUP_VIEW) x' where [Id] = 4");
    }
    CreateSystemScenario();
    EXPECT_EQ(
        Rows("select [Code Output Datetime Edit Pattern], [Constant Value] from [TSO Insert Column Rule]"),
        "Y001M001D001H001I001S001N001|\nH001C009I001C009S001|\nD001C001M001C001Y001|\n|Drill down...");
}

TEST_F(TableRuleTest, NewRuleInheritsFromTheSystemRule) {
    const int tabId = AddTable("T", {"A Character", "B Character"});
    CreateSystemScenario();
    ASSERT_TRUE(CreateScenario("Mine"));
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "update [TSO Insert Column Rule] set [Code Generate Data Type] = 'V', [Fill the column] = 'E',"
            " [Start Range] = '7', [End Range] = '9', [Char Output Textfile in Quotes] = '%', [Constant "
            "Value] = 'c'"
            " where [FK TSO Id] = 0 and [Id] = 2");
        RepositoryDatabase.Execute(
            "insert into [Value Source] ([FK TCR Id], [FK TTR Id], [FK COL Id], [FK TAB Id], [FK DBS Id], "
            "[FK TSO Id],"
            " [Type], [FK CON Id], [FK CNV Id], [Name and Path]) values (2, 1, 2, ?, ?, 0, 'O', 5, 6, "
            "'x.txt')",
            {tabId, CurrentDBSId});
    }
    EXPECT_EQ(AddTableRule(tabId, 3, 5, true), 1);
    EXPECT_EQ(LastTableRuleLabel, "T (3-5)");
    EXPECT_EQ(AddTableRule(tabId, 3, 0, false), 2);
    EXPECT_EQ(Rows("select [Id], [Code Generate Data Type], [Fill the column], [Start Range], [End Range], "
                   "[Char Output Textfile in Quotes], [Constant Value] from [TSO Insert Column Rule] "
                   "where [FK TSO Id] = 1 and [FK TTR Id] = 2"),
              "1|D|N||||\n2|V|E||||c");
    EXPECT_EQ(
        Rows(
            "select [FK TCR Id], [FK TTR Id], [FK TSO Id], [Type], [FK CON Id], [FK CNV Id], [Name and Path] "
            "from [Value Source] where [FK TSO Id] = 1 and [FK TTR Id] = 2"),
        "2|2|1|O|||x.txt");
}

TEST_F(TableRuleTest, OverflowingRangeLeavesNothingBehind) {
    const int tabId = AddTable("T", {"A Character"});
    CreateSystemScenario();
    ASSERT_TRUE(CreateScenario("Mine"));
    EXPECT_THROW(AddTableRule(tabId, -5, std::numeric_limits<int>::max(), true), platform::Error);
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] = 1"), 0);
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TSO Id] = 1"), 0);
}

}  // namespace
}  // namespace vellumark
