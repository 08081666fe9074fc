#pragma once

#include <string>

namespace vellumark::test {

// Makes an embedded database, or adds to one, from statements in SQLite's dialect that each end with a
// semicolon. Returns the path.
std::string MakeEmbedded(const std::string& path, const std::string& statements);

// The string that opens it under ADO.
std::string AccessString(const std::string& path);

}  // namespace vellumark::test
