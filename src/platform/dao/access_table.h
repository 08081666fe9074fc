#pragma once

#include <memory>
#include <sqlite3.h>
#include <string>

#include "platform/access/file.h"

namespace vellumark::dao {

inline constexpr const char* kAccessModule = "access_file";

// Lets statements of `create virtual table T using access_file(page)` on that connection show the tables of
// the file, by the pages of their definitions. The file stays open as long as the connection.
void RegisterAccessModule(sqlite3* connection, const std::shared_ptr<access::File>& file);

// From here on the connection refuses every statement that would change something.
void MakeReadOnly(sqlite3* connection);

}  // namespace vellumark::dao
