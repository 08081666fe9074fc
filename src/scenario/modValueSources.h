#pragma once

#include <optional>
#include <string>

#include "scenario/modColumnRules.h"
#include "schema/modDatabaseConnection.h"

// The alternate data source of a Column rule, as its screen edits it.
namespace vellumark {

// The codes of [Value Source]. 'V' Category, 'D' delimited and 'P' positional text, 'X' spreadsheet, 'O'
// database.
struct ValueSourceDetails {
    char type = 'V';
    int categoryId = 0;
    int conversionId = 0;
    std::string path;
    std::string sheet;
    int startColumn = 0;
    int endColumn = 0;
    std::string columnTerminator;
    int startRow = 1;
    int endRow = 999999999;
    std::string rowTerminator;
    int fieldNumber = 0;
    std::string delimiter;
    int interval = 1;
    char order = 'R';
    int hold = 1;
    char quotes = 'D';
    char atEnd = 'L';
    std::string inputPattern;
    ConnectionDetails connection;  // of a database source, with its table and column
    int connectionId = 0;          // of its row; 0 while it has none
};

// The source of that rule; nothing when it has none.
std::optional<ValueSourceDetails> ReadValueSource(const ColumnRuleDetails& rule);

// The bounds that the screen shows when a kind of source is chosen.
void SetSourceKind(ValueSourceDetails& details, char type);

enum class ValueSourceField {
    None,
    StartColumn,
    StartRow,
    Interval,
    Hold,
    Path,
    Category,
    Connection,
    Column
};

// The first field at fault, behind a message that says what is wrong; Column when the rule's column takes no
// source at all.
ValueSourceField FaultyField(const ValueSourceDetails& details, const ColumnRuleDetails& rule);

// Tells the user when the values of a Category are of another type than the column's. The choice stands.
void WarnOfCategoryType(int categoryId, DataType columnType);

// Stores a source without fault and makes the rule take its values from it. Needs an open Repository; throws
// platform::Error.
void StoreValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule);

// Validates and stores the source. False, behind a message, leaves what is stored.
bool fSaveValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule);

}  // namespace vellumark
