#pragma once

#include <string_view>

// Dependencies of the current Scenario: a foreign-key column of one Table rule fed by a column of another.
namespace vellumark {

// A Dependency with what its screen edits along with it. Ranges are those of the two rules; an end of 0
// stands for none.
struct DependencyDetails {
    int childRuleId = 0;
    int childTableId = 0;
    int childColumnId = 0;
    int parentRuleId = 0;  // 0 while no rule of the parent table has been chosen or made
    int parentTableId = 0;
    int parentColumnId = 0;
    int quantityPerParent = 1;
    int increment = 1;
    int childStart = 0;
    int childEnd = 0;
    int parentStart = 0;
    int parentEnd = 0;
    bool generateParent = false;
};

// Finds the foreign key by the child rule and its column's name and fills in the Dependency, or the values a
// new one starts from. False, behind a message, when the rule has no such foreign-key column.
bool fReadDependency(int childRuleId, std::string_view columnName, DependencyDetails& details);

// Shows what is wrong with the numbers and returns false, or returns true.
bool fValidateDependency(const DependencyDetails& details);

// Stores the Dependency, making its parent rule when it names none, and brings the Quantities of parent and
// child up to date. Sets the parent rule's Id in `details`. False behind a message, with nothing stored.
bool fApplyDependency(DependencyDetails& details);

// Ranges and flag of a rule that is to be the parent in place of a new one. False, behind a message, when the
// rule is none of the parent table.
bool fChooseParentRule(DependencyDetails& details, int ruleId);

// Remove one Dependency or all of the Scenario, with the parent rules that stand for rows already there.
void fClearDependency(const DependencyDetails& details);
void fClearAllDependencies();

// Removes the rule's Column rules and Value Sources.
void fDeleteRuleDetails(int ruleId);

// What stands in the place of a value that a Dependency brings.
inline constexpr const char* kResolvedByParent =
    "This foreign key has been SET to be resolved by it's parent.";

// True when a Dependency of the Scenario feeds that column of the rule.
bool fColumnHasDependency(int scenarioId, int ruleId, int tableId, int columnId);

// Rows of a rule with that range: a child's follow from its parents. Throws kOverflow.
int fTTRQuantity(int ruleId, int start, int end);

}  // namespace vellumark
