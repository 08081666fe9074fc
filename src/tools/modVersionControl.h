#pragma once

// Carries a change of a schema's tables and columns into all Scenarios of that schema. Each call needs an
// open Repository and throws platform::Error; callers with more than one change wrap them in a transaction.
namespace vellumark {

// A column by the Ids that name it.
struct ColumnKey {
    int schemaId = 0;
    int tableId = 0;
    int columnId = 0;
};

// Makes a new table available in every Scenario and gives it a Table rule without columns in each Insert
// Scenario, a Delete table rule in each Delete Scenario, and both in the System Scenario, whose rules are the
// defaults.
void AddTableToScenarios(int schemaId, int tableId);

// Removes the table's columns, its rules in all Scenarios and the Dependencies on both sides; the row of the
// table itself stays.
void DeleteTableRules(int schemaId, int tableId);

// Gives a new column its default Column rule in each Table rule of its table.
void AddColumnToRules(const ColumnKey& column);

// Removes the column's rules in all Scenarios, with their Value Sources and Dependencies.
void DeleteColumnRules(const ColumnKey& column);

// Removes the Dependencies in which the column is the child or the parent.
void DeleteColumnDependencies(const ColumnKey& column);

// Brings the rules of a column that may have changed in line with it. `typeChanged` tells that its data type
// is another than before, so that constants no longer fit.
void CorrectColumnRules(const ColumnKey& column, bool typeChanged);

// Brings the rules of a table's columns into the order of the columns.
void OrderColumnRules(int schemaId, int tableId);

}  // namespace vellumark
