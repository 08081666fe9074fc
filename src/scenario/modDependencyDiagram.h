#pragma once

#include <string>
#include <vector>

// What the screen of foreign keys shows of the current Insert Scenario.
namespace vellumark {

struct ChildRule {
    int id = 0;
    int tableId = 0;
    std::string table;
    std::string label;  // as TableRuleLabel
    int start = 0;
    int end = 0;
    int quantity = 0;
};

// The Table rules that generate data, in their order.
std::vector<ChildRule> ListChildRules();

// A foreign-key column of a child rule with the parent behind it: the parent's rule where a Dependency is
// set, else the parent table with the range of its default rule.
struct ParentBox {
    std::string column;  // of the child
    std::string table;
    std::string parentColumn;
    int start = 0;
    int end = 0;
    int quantity = 0;
    int ruleId = 0;  // of the parent; 0 while no Dependency is set
    bool generates = false;
};

// One for each foreign-key column of the rule's table, in the columns' order.
std::vector<ParentBox> ListParentBoxes(const ChildRule& child);

// The Quantity of a rule as it is stored; 0 when there is none.
int StoredQuantity(int ruleId);

}  // namespace vellumark
