#include "scenario/modDependencies.h"

#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

class DependencyTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
        parent = AddTable("Parent", {"Id Long Integer"});
        child = AddTable("Child", {"Id Long Integer", "ParentId Long Integer", "OtherId Long Integer"});
        {
            RepositoryScope repository;
            RepositoryDatabase.Execute(
                "update [Column] set [Role] = 'Foreign Key', [FK COL TAB Id] = ?, [FK COL Id] = 1 "
                "where [FK TAB Id] = ? and [Id] > 1",
                {parent, child});
        }
        CreateSystemScenario();
        ASSERT_TRUE(CreateScenario("Fill"));
        childRule = AddTableRule(child, 1, 5, true);
    }

    DependencyDetails Read(const char* column) {
        DependencyDetails details;
        EXPECT_TRUE(fReadDependency(childRule, column, details));
        return details;
    }

    std::string RuleRows() {
        return Rows(
            "select [Id], [FK TAB Id], [Start Range], [End Range], [Quantity], [Flag Use Generated Data] "
            "from [TSO Insert Table Rule] where [FK TSO Id] = 1 order by [Id]");
    }

    int parent = 0, child = 0, childRule = 0;
};

TEST_F(DependencyTest, NewOneMakesItsParentRuleAndSetsTheQuantities) {
    DependencyDetails details = Read("parentid");
    EXPECT_EQ(details.parentStart, 1);
    EXPECT_EQ(details.parentEnd, 5);
    EXPECT_FALSE(details.generateParent);
    details.parentEnd = 10;
    details.quantityPerParent = 3;
    details.increment = 2;
    ASSERT_TRUE(fApplyDependency(details));
    EXPECT_EQ(RuleRows(), "1|2|1|5|30|-1\n2|1|1|10|10|0");
    EXPECT_EQ(Rows("select [FK Child TTR Id], [FK Child TAB Id], [FK Child COL Id], [FK Parent TTR Id], "
                   "[FK Parent TAB Id], [FK Parent COL Id], [Increment parent count], [Quantity children per "
                   "parent] "
                   "from [resolver TTR dependency]"),
              "1|2|2|2|1|1|2|3");

    // A smaller second parent leaves the larger product standing.
    DependencyDetails second = Read("OtherId");
    second.parentStart = 7;
    second.parentEnd = 0;
    second.quantityPerParent = 5;
    ASSERT_TRUE(fApplyDependency(second));
    EXPECT_EQ(RuleRows(), "1|2|1|5|30|-1\n2|1|1|10|10|0\n3|1|7|7|1|0");

    DependencyDetails again = Read("ParentId");
    EXPECT_EQ(again.parentRuleId, 2);
    EXPECT_EQ(again.increment, 2);
    again.generateParent = true;
    again.parentEnd = 20;
    ASSERT_TRUE(fApplyDependency(again));
    EXPECT_EQ(RuleRows(), "1|2|1|5|60|-1\n2|1|1|20|20|-1\n3|1|7|7|1|0");
    EXPECT_EQ(Count("resolver TTR dependency"), 2);
    EXPECT_TRUE(fColumnHasDependency(CurrentTSOId, childRule, child, 2));
    EXPECT_FALSE(fColumnHasDependency(CurrentTSOId, childRule, child, 1));
    EXPECT_FALSE(fColumnHasDependency(0, 2, 2, 2));
}

TEST_F(DependencyTest, ExistingRuleOfTheParentTableMayServe) {
    const int shared = AddTableRule(parent, 1, 4, true);
    DependencyDetails details = Read("ParentId");
    EXPECT_FALSE(fChooseParentRule(details, childRule));
    EXPECT_FALSE(fChooseParentRule(details, 99));
    ASSERT_TRUE(fChooseParentRule(details, shared));
    ASSERT_TRUE(fApplyDependency(details));
    EXPECT_EQ(RuleRows(), "1|2|1|5|4|-1\n2|1|1|4|4|-1");
    EXPECT_EQ(recorder.Take(),
              "exclamation: Table rule 1 is no rule of the table that the foreign key refers to.|"
              "exclamation: Table rule 99 is no rule of the table that the foreign key refers to.");
}

TEST_F(DependencyTest, NumbersAreCheckedInTheirOrder) {
    const DependencyDetails good = Read("ParentId");
    const struct {
        void (*spoil)(DependencyDetails&);
        const char* message;
    } cases[] = {
        {[](auto& d) { d.childStart = 6, d.parentStart = 0; },
         "Child start range must be less than or equal to Child end range"},
        {[](auto& d) { d.childStart = 0; }, "Please enter a Child start range greater than zero"},
        {[](auto& d) { d.parentStart = 6; },
         "Parent start range must be less than or equal to Parent end range"},
        {[](auto& d) { d.parentStart = 0, d.generateParent = true; },
         "Please enter a Parent start range greater than zero"},
        {[](auto& d) { d.quantityPerParent = 0; }, "Please enter a generation quantity greater than zero"},
        {[](auto& d) { d.increment = 0; }, "Please enter an increment quantity greater than zero"},
    };
    for (const auto& c : cases) {
        DependencyDetails details = good;
        c.spoil(details);
        EXPECT_FALSE(fApplyDependency(details));
        EXPECT_EQ(recorder.Take(), std::string("exclamation: ") + c.message);
    }
    EXPECT_EQ(RuleRows(), "1|2|1|5|5|-1");
    DependencyDetails details;
    EXPECT_FALSE(fReadDependency(childRule, "Id", details));
    EXPECT_FALSE(fReadDependency(9, "ParentId", details));
    EXPECT_EQ(recorder.Take(),
              "exclamation: The rule's table has no foreign-key column 'Id'.|"
              "exclamation: There is no Table rule 9 in this Scenario.");
}

TEST_F(DependencyTest, ClearingTakesStandAloneParentsAlong) {
    DependencyDetails first = Read("ParentId");
    ASSERT_TRUE(fApplyDependency(first));
    DependencyDetails second = Read("OtherId");
    ASSERT_TRUE(fChooseParentRule(second, first.parentRuleId));
    ASSERT_TRUE(fApplyDependency(second));
    fClearDependency(first);
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] = 1"), 2);
    fClearDependency(second);
    EXPECT_EQ(RuleRows(), "1|2|1|5|5|-1");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TSO Id] = 1 and [FK TTR Id] = 2"), 0);

    DependencyDetails made = Read("ParentId");
    made.generateParent = true;
    ASSERT_TRUE(fApplyDependency(made));
    DependencyDetails standing = Read("OtherId");
    ASSERT_TRUE(fApplyDependency(standing));
    fClearAllDependencies();
    EXPECT_EQ(Count("resolver TTR dependency"), 0);
    EXPECT_EQ(RuleRows(), "1|2|1|5|5|-1\n2|1|1|5|5|-1");
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] = 0"), 2);
}

TEST_F(DependencyTest, QuantityBeyond32BitsIsRefused) {
    DependencyDetails details = Read("ParentId");
    details.parentEnd = 100000;
    details.quantityPerParent = 100000;
    EXPECT_FALSE(fApplyDependency(details));
    EXPECT_NE(recorder.Take().find("Error: 6 Overflow"), std::string::npos);
    EXPECT_EQ(RuleRows(), "1|2|1|5|5|-1");
}

}  // namespace
}  // namespace vellumark
