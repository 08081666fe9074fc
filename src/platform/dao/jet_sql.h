#pragma once

#include <string>
#include <string_view>

namespace vellumark::dao {

// Turns a statement in the data engine's own dialect into SQLite's: `delete * from`, True and False, text in
// double quotes, `like` with * and ?, dates between number signs. Names stay in square
// brackets, comments as they are.
std::string TranslateJetSql(std::string_view sql);

// A name in square brackets, safe for a statement whatever it holds.
std::string Bracketed(std::string_view name);

}  // namespace vellumark::dao
