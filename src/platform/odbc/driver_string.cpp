#include "platform/odbc/driver_string.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vellumark::odbc {

namespace {

using platform::ConnectionString;
using platform::ContainsIgnoringCase;
using platform::EqualsIgnoringCase;

// Drivers that are told by a word in their name: where they come from, and settings that serve us best.
struct KnownDriver {
    std::string_view word;
    std::string_view install;
    std::string_view settings;
};

// Statements come as finished texts, so preparing them on the server would only cost another round trip.
constexpr std::string_view kPostgres = "Protocol=7.4-0;UseServerSidePrepare=0;BoolsAsChar=0";
// The option lets several statements come in one text.
constexpr std::string_view kMariaDB = "NO_SSPS=1;OPTION=67108864";
// Without NoCreat a missing file would be made.
constexpr std::string_view kSqlite = "FKSupport=1;NoCreat=1";

constexpr std::string_view kPostgresInstall = "the package odbc-postgresql";
constexpr std::string_view kMariaDBInstall = "the package odbc-mariadb";
constexpr std::string_view kFreeTdsInstall = "the package tdsodbc";
constexpr std::string_view kSqlServerInstall = "the package tdsodbc or Microsoft's msodbcsql18";
constexpr std::string_view kOracleInstall = "Oracle's Instant Client with its ODBC part";
constexpr std::string_view kDB2Install = "IBM's Data Server Driver for ODBC and CLI";

constexpr std::array kKnownDrivers = {
    KnownDriver{"postgres", kPostgresInstall, kPostgres},
    KnownDriver{"psqlodbc", kPostgresInstall, kPostgres},
    KnownDriver{"maria", kMariaDBInstall, kMariaDB},
    KnownDriver{"libmaodbc", kMariaDBInstall, kMariaDB},
    KnownDriver{"mysql", kMariaDBInstall, kMariaDB},
    KnownDriver{"sqlite", "the package libsqliteodbc", kSqlite},
    KnownDriver{"freetds", kFreeTdsInstall, ""},
    KnownDriver{"libtdsodbc", kFreeTdsInstall, ""},
    KnownDriver{"sql server", kSqlServerInstall, ""},
    KnownDriver{"oracle", kOracleInstall, ""},
    KnownDriver{"db2", kDB2Install, ""},
};

const KnownDriver* FindKnownDriver(std::string_view name) {
    const auto found = std::ranges::find_if(
        kKnownDrivers, [&](const KnownDriver& known) { return ContainsIgnoringCase(name, known.word); });
    return found == kKnownDrivers.end() ? nullptr : &*found;
}

[[noreturn]] void ThrowNotFound(const std::string& what) {
    throw platform::Error(platform::kProviderNotFound,
                          platform::MaskPasswords("Provider cannot be found. " + what));
}

[[noreturn]] void ThrowNoDriver(std::string text, std::string_view install, const Installed& installed) {
    text.append(" Please install ").append(install).append(".");
    std::string names;
    for (const std::string& name : installed.drivers)
        names.append(names.empty() ? " Installed are: " : ", ").append(name);
    ThrowNotFound(text + names + (names.empty() ? "" : "."));
}

void Append(std::string& out, std::string_view key, std::string_view written) {
    if (!written.empty())
        out.append(out.empty() ? "" : ";").append(key).append("=").append(written);
}

std::string Written(const ConnectionString& parts, std::initializer_list<std::string_view> keys) {
    for (const std::string_view key : keys)
        if (!parts.Value(key).empty())
            return platform::WrittenValue(parts.Value(key));
    return {};
}

void AppendLogin(std::string& out, const ConnectionString& parts) {
    Append(out, "UID", Written(parts, {"UID", "User Id"}));
    Append(out, "PWD", Written(parts, {"PWD", "Password"}));
}

void ComposeSqlServer(std::string& out, const ConnectionString& parts) {
    const std::string server = Written(parts, {"Server", "Data Source"});
    Append(out, "SERVER", server);
    // FreeTDS knows no usual port; Microsoft's drivers take it behind a comma.
    if (ContainsIgnoringCase(out, "tds") && server.find_first_of(",\\") == server.npos)
        Append(out, "PORT", "1433");
    Append(out, "DATABASE", Written(parts, {"Database", "Initial Catalog"}));
    AppendLogin(out, parts);
}

void ComposeOracle(std::string& out, const ConnectionString& parts) {
    const std::string& server = parts.Value("Server");
    const std::string& service = parts.Value("Data Source");
    Append(out, "DBQ", platform::WrittenValue(server.empty() ? service : "//" + server + "/" + service));
    AppendLogin(out, parts);
}

void ComposeDB2(std::string& out, const ConnectionString& parts) {
    Append(out, "HOSTNAME", Written(parts, {"Server", "Network Address"}));
    Append(out, "PORT", "50000");
    Append(out, "PROTOCOL", "TCPIP");
    Append(out, "DATABASE", Written(parts, {"Database", "Initial Catalog"}));
    AppendLogin(out, parts);
}

// What a provider word stands for: words of the drivers that serve it, the best first.
struct Provider {
    std::string_view word;
    std::array<std::string_view, 2> drivers;
    std::string_view install;
    void (*compose)(std::string& out, const ConnectionString& parts);
};

constexpr std::array kProviders = {
    Provider{"sqloledb", {"SQL Server", "FreeTDS"}, kSqlServerInstall, ComposeSqlServer},
    Provider{"MSDAORA", {"Oracle", ""}, kOracleInstall, ComposeOracle},
    Provider{"DB2OLEDB", {"DB2", ""}, kDB2Install, ComposeDB2},
};

// The last of the names with the word, which is the newest version.
std::string FindDriver(const std::vector<std::string>& installed, std::span<const std::string_view> words) {
    for (const std::string_view word : words) {
        std::string best;
        for (const std::string& name : installed)
            if (!word.empty() && ContainsIgnoringCase(name, word) && name > best)
                best = name;
        if (!best.empty())
            return best;
    }
    return {};
}

std::string ComposeForProvider(const ConnectionString& parts, const Installed& installed) {
    const std::string& word = parts.Value("Provider");
    const std::string missing = "No driver is installed for the provider '" + word + "'.";
    const auto found = std::ranges::find_if(
        kProviders, [&](const Provider& provider) { return EqualsIgnoringCase(provider.word, word); });
    if (found == kProviders.end())
        ThrowNoDriver(missing, "an ODBC driver and name it instead, as DRIVER={...}", installed);
    const std::string driver = FindDriver(installed.drivers, found->drivers);
    if (driver.empty())
        ThrowNoDriver(missing, found->install, installed);
    std::string out = "DRIVER={" + driver + "}";
    found->compose(out, parts);
    return out;
}

// Does nothing for the file of a driver, which needs no entry.
void CheckInstalled(const std::string& name, const std::string& nameInText, const Installed& installed) {
    const bool known = std::ranges::any_of(
        installed.drivers, [&](const std::string& driver) { return EqualsIgnoringCase(driver, name); });
    if (known || name.find('/') != name.npos || ContainsIgnoringCase(name, ".so"))
        return;
    const KnownDriver* driver = FindKnownDriver(name);
    ThrowNoDriver("The driver " + nameInText + " is not installed.",
                  driver == nullptr ? "it, with an entry in odbcinst.ini" : driver->install, installed);
}

std::string DriverOfSource(const std::string& name, const Installed& installed) {
    const auto found = std::ranges::find_if(
        installed.sources, [&](const DataSource& source) { return EqualsIgnoringCase(source.name, name); });
    if (found == installed.sources.end())
        ThrowNotFound("No data source '" + name + "' is set up. Please define it in odbc.ini.");
    if (found->driver.empty())
        ThrowNotFound("The data source '" + name + "' names no driver. Please set its Driver in odbc.ini.");
    CheckInstalled(found->driver, "'" + found->driver + "' of the data source '" + name + "'", installed);
    return found->driver;
}

std::string DriverOf(const ConnectionString& parts, const Installed& installed) {
    const std::string& driver = parts.Value("Driver");
    if (!driver.empty()) {
        CheckInstalled(driver, "'" + driver + "'", installed);
        return driver;
    }
    for (const std::string_view key : {"DSN", "Data Source"})
        if (!parts.Value(key).empty())
            return DriverOfSource(parts.Value(key), installed);
    if (parts.Value("FileDSN").empty())
        ThrowNotFound("The connection string names no driver and no data source.");
    return {};
}

std::string_view DriverManagerKey(std::string_view key) {
    if (EqualsIgnoringCase(key, "Data Source"))
        return "DSN";
    if (EqualsIgnoringCase(key, "User Id"))
        return "UID";
    return EqualsIgnoringCase(key, "Password") ? "PWD" : key;
}

std::string PassOn(const ConnectionString& parts, std::string_view driver) {
    const bool isOleDb = !NamesSource(parts);
    std::string out;
    for (const ConnectionString::Part& part : parts.Parts())
        if (!part.value.empty() && !EqualsIgnoringCase(part.key, "Provider"))
            Append(out, isOleDb ? DriverManagerKey(part.key) : part.key, part.written);
    const KnownDriver* known = FindKnownDriver(driver);
    const ConnectionString settings(known == nullptr ? "" : known->settings);
    for (const ConnectionString::Part& setting : settings.Parts())
        if (parts.Value(setting.key).empty())
            Append(out, setting.key, setting.written);
    return out;
}

// Of a missing file SQLite's driver says no more than that it failed.
void CheckFile(const ConnectionString& parts) {
    const std::string& file = parts.Value("Database");
    if (parts.Value("NoCreat") == "1" && file.starts_with('/') && !platform::FileExists(file))
        throw platform::Error(platform::kFileCannotBeFound, "Could not find file '" + file + "'.");
}

}  // namespace

std::string DriverManagerString(std::string_view connectionString, const Installed& installed) {
    const ConnectionString parts(connectionString);
    const std::string& provider = parts.Value("Provider");
    if (!provider.empty() && !platform::StartsWithIgnoringCase(provider, "MSDASQL"))
        return ComposeForProvider(parts, installed);
    return PassOn(parts, DriverOf(parts, installed));
}

std::string DriverManagerString(std::string_view connectionString) {
    const std::string text = DriverManagerString(connectionString, {Drivers(), DataSources()});
    CheckFile(ConnectionString(text));
    return text;
}

bool NamesSource(const ConnectionString& parts) {
    return std::ranges::any_of(std::array<std::string_view, 3>{"Driver", "DSN", "FileDSN"},
                               [&](std::string_view key) { return !parts.Value(key).empty(); });
}

}  // namespace vellumark::odbc
