#pragma once

#include <memory>
#include <sqlite3.h>
#include <string>

#include "platform/access/file.h"

namespace vellumark::access {

inline constexpr const char* kModuleName = "access_file";

// Lets statements of `create virtual table T using access_file(page)` on that connection show the tables of
// the file, by the pages of their definitions. The file stays open as long as the connection.
void RegisterModule(sqlite3* connection, const std::shared_ptr<File>& file);

// From here on the connection refuses every statement that would change something.
void MakeReadOnly(sqlite3* connection);

}  // namespace vellumark::access
