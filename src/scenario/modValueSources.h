#pragma once

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
};

// The bounds that the screen shows when a kind of source is chosen.
void SetSourceKind(ValueSourceDetails& details, char type);

// Shows what is wrong with the source and returns false, or returns true. A Category whose values are of
// another type than the column's is told, and passes.
bool fValidateValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule);

// Validates and stores the source and makes the rule take its values from it. False leaves what is stored.
bool fSaveValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule);

}  // namespace vellumark
