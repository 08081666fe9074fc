#pragma once

#include <string>
#include <string_view>

#include "platform/dao/database.h"

// Databases of the embedded store: making files, tables and fields, and loading text into a table.
namespace vellumark {

// Makes an empty database in the place of an older file. A file that is open stays and gives false.
bool fCreateJetDatabase(const std::string& path);

inline constexpr std::string_view kCreateTable = "Create Table";
inline constexpr std::string_view kAddField = "Add Field";

struct TableRequest {
    std::string_view request = {};  // kCreateTable or kAddField
    std::string tableName = {};     // of a new table
    std::string fieldType = {};     // number of a dao::FieldType
    int fieldSize = 0;              // characters of a text field
    std::string fieldName = {};
};

// Starts a definition in `tableDef`, dropping an older table of its name, or adds a field to it; the table is
// made with its first field. False, with a message, for a request that can't be carried out; a failure of the
// database throws platform::Error. Either leaves the definition as it was.
bool Table_Create(const dao::Database& database, dao::TableDef& tableDef, const TableRequest& request);

void DeleteTableIfPresent(const dao::Database& database, std::string_view tableName);

struct TextLoad {
    std::string mdbName;
    std::string mdbFolder;
    std::string tableName;
    std::string textFolder;
    std::string textFile;
    std::string delimiter;
};

// Adds the rows of a delimited text file to a table, all or none, and leaves a schema.ini beside the file.
// `rows` receives how many there are.
bool fLoadTextIntoJetTable(const TextLoad& load, int* rows = nullptr);

}  // namespace vellumark
