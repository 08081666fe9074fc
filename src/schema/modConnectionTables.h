#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/modConnectionDetails.h"
#include "schema/modTableList.h"

// A look into the database that the connection screen describes. Each opens it and closes it again, and
// leaves the session's Target alone; a failure gives nothing, behind its message.
namespace vellumark {

// The tables that owner and prefixes let through, in the database's order.
std::optional<std::vector<TableEntry>> ListConnectionTables(const ConnectionDetails& form);
std::optional<std::vector<std::string>> ListConnectionColumns(const ConnectionDetails& form,
                                                              const TableEntry& table);

// "owner.table", as a box of tables shows it.
std::string QualifiedName(const TableEntry& entry);
// The entry that a stored table or a typed name means, with or without its owner; nothing when there is none.
std::optional<std::size_t> FindTableEntry(const std::vector<TableEntry>& entries, std::string_view name);

// The system and driver at the other end, as "PostgreSQL 15.14 through psqlodbcw.so 13.02".
std::optional<std::string> TestConnection(const ConnectionDetails& form);

}  // namespace vellumark
