#pragma once

#include <optional>
#include <string>

// Loading a delimited text file into a table of an embedded database.
namespace vellumark {

struct TableLoad {
    std::string database;  // name and path of the file
    std::string table;
    std::string file;
    std::string delimiter;
};

// What is offered: the delimited text that a run wrote last, and of the open schema the file of its Target
// Connection with the sister tool's table. What can't be read stays empty behind a message.
TableLoad ReadTableLoadDefaults();

enum class TableLoadField { Database, Table, File, Delimiter };

// The first field that is empty or names no file, after its message; nothing when all are well.
std::optional<TableLoadField> FindLoadFault(const TableLoad& load);

// Loads all rows or none, and says which: the number of rows, or nothing behind the messages.
std::optional<int> fLoadTable(const TableLoad& load);

}  // namespace vellumark
