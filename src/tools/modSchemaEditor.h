#pragma once

#include <optional>
#include <string>
#include <vector>

#include "repository/modTargetFormats.h"
#include "tools/modVersionControl.h"

// Editing the open schema's tables, columns and foreign keys by hand. Each change is carried into all
// Scenarios of the schema at once.
namespace vellumark {

struct EditedTable {
    int id = 0;  // 0 while it is new
    std::string name;
    std::string owner;
    std::string entityName;
};

// Numbers that aren't there are Null.
struct EditedColumn {
    int id = 0;  // 0 while it is new
    int tableId = 0;
    std::string name;
    std::string attributeName;
    DataType dataType = DataType::Character;
    std::optional<int> maximumLength;
    std::optional<int> precision;
    std::optional<int> scale;
    std::optional<int> size;
    bool identifier = false;
    bool optional = false;
    std::string role = "Data";
    int parentTableId = 0;  // 0 unless the role is "Foreign Key"
    int parentColumnId = 0;
    std::string parentTable;  // the names of those, for showing
    std::string parentColumn;
};

// The tables by name.
std::vector<EditedTable> ListEditedTables();
// The columns of a table in their order.
std::vector<EditedColumn> ListEditedColumns(int tableId);
// The columns of all tables, table by table, each in its order.
std::vector<EditedColumn> ListAllColumns();
// The columns that may be the parent of `child`: those of the table with its type and size, by name, less
// itself.
std::vector<EditedColumn> ListParentColumns(const EditedColumn& child, int parentTableId);

// Show what is wrong with a row and return true, or return false.
bool fTABValidateError(const EditedTable& table);
bool fCOLValidateError(const EditedColumn& column);

// What a new column starts with.
EditedColumn NewColumn(int tableId);
// Sets lengths and sizes as the data type has them, after it has been chosen.
void SetTypeDefaults(EditedColumn& column);
// Which numbers a type lets the user set.
bool TakesMaximumLength(DataType type);
bool TakesPrecision(DataType type);
bool TakesScale(DataType type);

// Write a row; a new one gets its Id. False behind a message, with nothing written.
bool fSaveTable(EditedTable& table);
bool fSaveColumn(EditedColumn& column);
// Ask first. False when the user doesn't want to.
bool fDeleteTable(const EditedTable& table);
bool fDeleteColumn(const EditedColumn& column);

// Makes `child` refer to `parent`. False, behind a message, when their types or sizes differ.
bool fSetForeignKey(const EditedColumn& child, const EditedColumn& parent);
bool fClearForeignKey(const EditedColumn& child);

std::string ReadSchemaDescription();
bool fSaveSchemaDescription(const std::string& description);

}  // namespace vellumark
