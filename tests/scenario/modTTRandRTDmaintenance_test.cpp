#include "scenario/modTTRandRTDmaintenance.h"

#include <gtest/gtest.h>
#include <limits>

#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modDependencies.h"
#include "scenario/modRuleSelection.h"
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

TEST_F(TableRuleTest, RangeFieldsHold32Bits) {
    const struct {
        const char* text;
        int number;
    } cases[] = {{"", 0}, {"7", 7}, {"2147483647", 2147483647}, {"-", 0}, {"-3", -3}, {"5-9", 5}};
    for (const auto& c : cases)
        EXPECT_EQ(fRangeNumber(c.text), c.number) << c.text;
    EXPECT_EQ(fRangeNumber("2147483648"), std::nullopt);
    EXPECT_EQ(recorder.Take(), "exclamation: Please enter a number of at most 2147483647");
}

// An Insert Scenario with a rule of Child whose two foreign keys have parents.
class SelectedRuleTest : public TableRuleTest {
 protected:
    void SetUp() override {
        TableRuleTest::SetUp();
        parent = AddTable("Parent", {"Id Long Integer"});
        child = AddTable("Child", {"Id Long Integer", "ParentId Long Integer", "OtherId Long Integer"});
        {
            const RepositoryScope repository;
            RepositoryDatabase.Execute(
                "update [Column] set [Role] = 'Foreign Key', [FK COL TAB Id] = ?, [FK COL Id] = 1 where "
                "[FK TAB Id] = ? and [Id] > 1",
                {parent, child});
            RepositoryDatabase.Execute("update [Table] set [Owner] = 'SHOP' where [Id] = ?", {child});
        }
        CreateSystemScenario();
        ASSERT_TRUE(CreateScenario("Fill"));
        childRule = AddTableRule(child, 1, 100, true);
    }

    // A Dependency on a parent rule with that many rows, or on the rule given.
    int Depend(const char* column, int parentRows, int perParent, bool generate, int existing = 0) {
        DependencyDetails details;
        EXPECT_TRUE(fReadDependency(childRule, column, details));
        EXPECT_TRUE(existing == 0 || fChooseParentRule(details, existing));
        details.parentStart = 1;
        details.parentEnd = parentRows;
        details.quantityPerParent = perParent;
        details.generateParent = generate;
        EXPECT_TRUE(fApplyDependency(details));
        return details.parentRuleId;
    }

    void Select(int scenarioId, int ruleId) {
        RuleScenarioId = scenarioId;
        CurrentTTRId = ruleId;
    }

    std::string Update(int start, int end) {
        TTRDetails details;
        details.startRange = start;
        details.endRange = end;
        EXPECT_TRUE(updateTTRDetails(details)) << recorder.Take();
        const std::optional<TTRDetails> shown = displayTTRDetails();
        EXPECT_EQ(shown->quantity, details.quantity);
        return shown->owner + "." + shown->tableName + " " + std::to_string(shown->startRange) + "-" +
               std::to_string(shown->endRange) + ": " + std::to_string(shown->quantity);
    }

    std::string RuleIds() { return Rows("select [Id] from [TSO Insert Table Rule] where [FK TSO Id] = 1"); }

    int parent = 0, child = 0, childRule = 0;
};

TEST_F(SelectedRuleTest, QuantityFollowsTheRangeOrTheParents) {
    Select(CurrentTSOId, childRule);
    EXPECT_EQ(Update(5, 0), "SHOP.Child 5-0: 1");
    Depend("ParentId", 10, 3, false);
    EXPECT_EQ(Update(1, 100), "SHOP.Child 1-100: 30");
    Depend("OtherId", 2, 4, false);
    EXPECT_EQ(Update(1, 0), "SHOP.Child 1-0: 30");
    // The defaults are another list: a Dependency of the rule with the same Id is none of theirs.
    Select(0, childRule);
    EXPECT_EQ(Update(1, 50), ".Parent 1-50: 50");
    Select(CurrentTSOId, childRule);
    EXPECT_EQ(displayTTRDetails()->quantity, 30);
}

TEST_F(SelectedRuleTest, RuleThatIsGoneOrTooLargeStoresNothing) {
    TTRDetails details;
    Select(CurrentTSOId, 99);
    EXPECT_FALSE(displayTTRDetails());
    EXPECT_FALSE(updateTTRDetails(details));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Unexpected error occurred storing the Table rule.\n\nError: 3021 No current "
              "record.");
    Select(CurrentTSOId, childRule);
    details = {"", "", -1, std::numeric_limits<int>::max(), 0};
    EXPECT_FALSE(updateTTRDetails(details));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Unexpected error occurred storing the Table rule.\n\nError: 6 Overflow");
    EXPECT_EQ(displayTTRDetails()->endRange, 100);
}

TEST_F(SelectedRuleTest, RemovedChildTakesWhatOnlyStoodForItsParents) {
    const int standsAlone = Depend("ParentId", 10, 3, false);
    const int makesRows = Depend("OtherId", 10, 1, true);
    const int bystander = AddTableRule(parent, 1, 2, false);
    RemoveTableRule(childRule);
    EXPECT_EQ(RuleIds(), std::to_string(makesRows) + "\n" + std::to_string(bystander));
    EXPECT_EQ(
        Count("TSO Insert Column Rule", "[FK TSO Id] = 1 and [FK TTR Id] in (" + std::to_string(childRule) +
                                            ", " + std::to_string(standsAlone) + ")"),
        0);
    EXPECT_EQ(Count("resolver TTR dependency"), 0);
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] = 0"), 2);
}

TEST_F(SelectedRuleTest, ParentThatAnotherChildNeedsStays) {
    const int shared = Depend("ParentId", 10, 3, false);
    const int first = childRule;
    childRule = AddTableRule(child, 1, 5, true);
    Depend("ParentId", 10, 2, false, shared);
    RemoveTableRule(first);
    EXPECT_EQ(RuleIds(), std::to_string(shared) + "\n" + std::to_string(childRule));
    // A removed parent leaves its children ordinary rules.
    RemoveTableRule(shared);
    EXPECT_EQ(RuleIds(), std::to_string(childRule));
    EXPECT_EQ(Count("resolver TTR dependency"), 0);
}

TEST_F(SelectedRuleTest, RemovedRuleTakesItsSourcesAndTheirConnections) {
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("insert into [Database Connection] ([Id]) values (70)");
        RepositoryDatabase.Execute("insert into [Database Connection] ([Id]) values (71)");
        for (const int scenario : {0, CurrentTSOId})
            RepositoryDatabase.Execute(
                "insert into [Value Source] ([FK DBS Id], [FK TSO Id], [FK TTR Id], [FK TCR Id], [FK CON "
                "Id]) "
                "values (?, ?, ?, 1, ?)",
                {CurrentDBSId, scenario, childRule, scenario == 0 ? 70 : 71});
    }
    RemoveTableRule(childRule);
    EXPECT_EQ(Rows("select [FK TSO Id] from [Value Source]"), "0");
    EXPECT_EQ(Count("Database Connection", "[Id] = 71"), 0);
    EXPECT_EQ(Count("Database Connection", "[Id] = 70"), 1);
}

}  // namespace
}  // namespace vellumark
