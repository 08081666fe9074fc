#pragma once

#include <optional>
#include <string>

// HTML reports of the open Database schema. Names go into them as they stand.
namespace vellumark {

enum class TableSort { Table, Entity };

// Asks how to sort the list of tables; nothing when the user cancels.
std::optional<TableSort> AskTableSort();

// Each writes its report into the folder and returns the file's path, or nothing behind a message or when an
// older report is to stay.
std::optional<std::string> fDefinitionReport(const std::string& folder);
std::optional<std::string> fTablesReport(const std::string& folder, TableSort sort);

}  // namespace vellumark
