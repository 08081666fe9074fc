#pragma once

#include <string>
#include <string_view>
#include <vector>

// The tables of a connected database, and which of them count.
namespace vellumark {

struct TableEntry {
    std::string table;
    std::string owner;

    bool operator==(const TableEntry&) const = default;
};

// What fListTables found last.
inline std::vector<TableEntry> ListedTables;

// Fills ListedTables from the connection of ConnectMode. `protocol` is 'A' or 'D'; the prefixes count under
// 'D' only.
bool fListTables(char protocol, std::string_view ownerFilter, std::string_view ownerPrefix,
                 std::string_view tablePrefix);

// Parts "owner.table" at the first point.
TableEntry SplitOwnerName(std::string_view fullName);

// True when a table is to be left out.
bool fIgnoreTable(std::string_view ownerFilter, const TableEntry& entry, std::string_view ownerPrefix,
                  std::string_view tablePrefix);
bool fSkipADOTable(std::string_view schema, std::string_view tableType, std::string_view ownerFilter);

}  // namespace vellumark
