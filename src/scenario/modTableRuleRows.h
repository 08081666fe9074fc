#pragma once

#include <string_view>

// The rows of Table rules as they are stored. Each call needs an open Repository and throws platform::Error.
namespace vellumark {

struct InsertRuleRow {
    int schemaId = 0;
    int scenarioId = 0;
    int tableId = 0;
    int startRange = 1;
    int endRange = 100;
    bool useGenerated = true;
};

// Append a rule without Column rules at the end of its Scenario and return its Id.
int AddInsertRuleRow(const InsertRuleRow& row);
int AddDeleteRuleRow(int schemaId, int scenarioId, int tableId, std::string_view whereClause);

}  // namespace vellumark
