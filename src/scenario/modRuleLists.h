#pragma once

#include <string>
#include <vector>

// What the two lists of the rule screen show, one query a list. Ids are those of the rules.
namespace vellumark {

struct TableRuleNode {
    int ruleId = 0;
    int tableId = 0;
    std::string text;

    bool operator==(const TableRuleNode&) const = default;
};

struct ColumnRuleNode {
    int ruleId = 0;
    std::string text;
    std::string source;  // the Value Source in words; empty when the rule has none
    bool identifier = false;
    bool foreignKey = false;
};

// The System Scenario's rules of the tables that are selected for the current Scenario, of its kind.
std::vector<TableRuleNode> LoadDefaultRuleList();

// The current Scenario's rules in their order, without those that stand for rows already there.
std::vector<TableRuleNode> LoadScenarioRuleList();
std::vector<TableRuleNode> LoadDeleteRuleList();

// The columns of a rule of the System Scenario, and of one of the current Scenario.
std::vector<ColumnRuleNode> LoadDefaultColumnNodes(int ruleId);
std::vector<ColumnRuleNode> LoadRuleColumnNodes(int ruleId);

}  // namespace vellumark
