#pragma once

#include <istream>
#include <string>
#include <string_view>

#include "platform/dao/database.h"

// Delimited text as rows of a table, with the columns in the table's order and of the table's types.
namespace vellumark {

// What schema.ini says about a text file that holds the table's rows.
std::string SchemaIni(const dao::TableDef& table, std::string_view textFile, std::string_view delimiter);

// Adds the rows of the text below the comments of a run and returns how many; a missing field is Null. Throws
// platform::Error with the row's number in the text, and its line's where they differ, for a value that does
// not fit its column, a field too many or a row that the table refuses; earlier rows are in then.
int AppendDelimitedText(const dao::Database& database, const dao::TableDef& table, std::istream& text,
                        std::string_view delimiter);

}  // namespace vellumark
