#pragma once

// The order of Table rules, Delete table rules and Column rules.
namespace vellumark {

enum class SortedRules { TTR, DTR, TCR };

// Moves a rule to the place immediately above another one of its list: of the current Scenario, or of the
// System Scenario. `ruleId` is the Table rule of Column rules. A rule that isn't there moves nothing.
void UpdateSortOrder(bool useScenario, SortedRules rules, int ruleId, int sourceId, int targetId);

}  // namespace vellumark
