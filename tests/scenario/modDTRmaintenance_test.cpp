#include "scenario/modDTRmaintenance.h"

#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

using DeleteRuleTest = test::SessionTest;

TEST_F(DeleteRuleTest, WhereClauseIsStoredForTheSelectedRuleAlone) {
    MakeSchema("Shop");
    const int table = AddTable("T", {"A Character"});
    CreateSystemScenario();
    CurrentScenarioTab = ScenarioTab::Delete;
    ASSERT_TRUE(CreateScenario("Empty"));
    AddDeleteTableRule(table, "");
    const int second = AddDeleteTableRule(table, "where 1 = 1");
    RuleScenarioId = CurrentTSOId;
    CurrentTTRId = second;
    ASSERT_TRUE(updateDTRDetails("where [A] = \"it's\""));
    EXPECT_EQ(displayDTRDetails()->whereClause, "where [A] = \"it's\"");
    const std::string rules =
        "select [FK TSO Id], [Id], [Where Clause] from [TSO Delete Table Rule] order by 1, 2";
    EXPECT_EQ(Rows(rules), "0|1|\n1|1|\n1|2|where [A] = \"it's\"");

    RuleScenarioId = 0;
    CurrentTTRId = 1;
    ASSERT_TRUE(updateDTRDetails("where 0"));
    RemoveDeleteTableRule(1);
    EXPECT_EQ(Rows(rules), "0|1|where 0\n1|2|where [A] = \"it's\"");
    RuleScenarioId = CurrentTSOId;
    EXPECT_FALSE(displayDTRDetails());
    EXPECT_FALSE(updateDTRDetails("where 0"));
    EXPECT_EQ(
        recorder.Take(),
        "exclamation: Unexpected error occurred storing the where clause.\n\nError: 3021 No current record.");
}

}  // namespace
}  // namespace vellumark
