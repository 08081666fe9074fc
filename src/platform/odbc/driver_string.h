#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/connection_string.h"
#include "platform/odbc/sources.h"

namespace vellumark::odbc {

struct Installed {
    std::vector<std::string> drivers;
    std::vector<DataSource> sources;
};

// The driver manager's string for a user's: provider words become the driver that serves them, a data source
// goes by DSN, a driver that is named is taken as it stands, and what makes a known driver quick and exact is
// added unless the user says otherwise. Empty values are dropped, so that a data source's own ones hold.
// Throws kProviderNotFound, saying what to install but none of the string's secrets.
std::string DriverManagerString(std::string_view connectionString, const Installed& installed);
// With what this machine has. Throws kFileCannotBeFound as well, for SQLite.
std::string DriverManagerString(std::string_view connectionString);

// True when the string names a driver or a data source.
bool NamesSource(const platform::ConnectionString& parts);

}  // namespace vellumark::odbc
