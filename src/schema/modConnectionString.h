#pragma once

#include <optional>
#include <string>

#include "schema/modConnectionDetails.h"

// The strings that open users' databases.
namespace vellumark {

// The default string. Nothing when no DBMS is chosen or, with its message, when the protocol can't reach it
// directly.
std::optional<std::string> ConnectionString(const ConnectionDetails& details);

// Whether the details have a default string.
bool HasConnectionString(const ConnectionDetails& details);

// Brings the string up to date after a change of another field, unless the user types it.
void fConnectionString(ConnectionDetails& details);

// The string as people may see it, "***" in place of its password.
std::string ShownConnectionString(const ConnectionDetails& details);

}  // namespace vellumark
