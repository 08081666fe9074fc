#pragma once

#include <string_view>

// Delete table rules of a Delete Scenario.
namespace vellumark {

// Adds a Delete table rule for the table to the current Scenario and returns its Id.
int AddDeleteTableRule(int tabId, std::string_view whereClause);

}  // namespace vellumark
