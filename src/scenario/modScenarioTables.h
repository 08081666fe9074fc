#pragma once

#include <string>
#include <vector>

// Which tables of the schema the open Scenario has on offer. Rules go by nothing of this.
namespace vellumark {

struct ScenarioTable {
    int id = 0;
    std::string name;
    std::string entity;  // in lower case; empty when the table comes from no model
};

// "Name (entity)", or "(entity) Name" with the entity first.
std::string ScenarioTableText(const ScenarioTable& table, bool entityFirst);

// The tables that the Scenario does not offer, and those that it does. Throw platform::Error.
std::vector<ScenarioTable> TablesOutsideScenario();
std::vector<ScenarioTable> TablesOfScenario();

// All of the tables, by their Ids, or behind a message none.
bool fOfferTables(const std::vector<int>& tables);
bool fWithdrawTables(const std::vector<int>& tables);

}  // namespace vellumark
