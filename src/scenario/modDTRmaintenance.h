#pragma once

#include <optional>
#include <string>
#include <string_view>

// Delete table rules of a Delete Scenario.
namespace vellumark {

// Adds a Delete table rule for the table to the current Scenario and returns its Id.
int AddDeleteTableRule(int tabId, std::string_view whereClause);

// Removes a rule of the current Scenario.
void RemoveDeleteTableRule(int ruleId);

// A Delete table rule as the rule screen shows it.
struct DTRDetails {
    std::string owner;
    std::string whereClause;
};

// The rule selected on the rule screen; nothing when none is, or when it is gone.
std::optional<DTRDetails> displayDTRDetails();
// Stores the Where Clause of the selected rule. False behind a message.
bool updateDTRDetails(std::string_view whereClause);

}  // namespace vellumark
