#include "cli/connectionWords.h"

#include <cstdlib>
#include <filesystem>

#include "cli/passwordPrompt.h"
#include "platform/connection_string.h"
#include "platform/dialogs.h"
#include "platform/odbc/driver_string.h"
#include "schema/modConnectionForm.h"
#include "schema/modConnectionString.h"

namespace vellumark {

namespace {

// False when it was to be typed and was not.
bool TakePassword(const ConnectionWords& words, ConnectionDetails& details) {
    const char* inEnvironment = std::getenv("VELLUMARK_PASSWORD");
    if (words.askPassword) {
        const std::optional<std::string> typed = AskPassword();
        if (!typed)
            return platform::Refuse("No password was given.");
        details.password = *typed;
    } else if (details.password.empty() && inEnvironment != nullptr) {
        details.password = inEnvironment;
    }
    return true;
}

// A file's path is no string of keys.
void AddPassword(ConnectionDetails& details) {
    const platform::ConnectionString parts(details.connectionString);
    const bool hasKeys =
        odbc::NamesSource(parts) || !parts.Value("Provider").empty() || !parts.Value("Data Source").empty();
    if (!hasKeys || details.password.empty() || !parts.Value("PWD").empty() ||
        !parts.Value("Password").empty())
        return;
    if (!details.connectionString.ends_with(';'))
        details.connectionString += ';';
    details.connectionString += "PWD=" + platform::WrittenValue(details.password);
}

}  // namespace

CLI::Option* AddConnectionOptions(CLI::App& command, ConnectionWords& words) {
    ConnectionDetails& details = words.details;
    CLI::Option* type = command.add_option("--type", details.dbmsType, "Database system");
    type->check(CLI::IsMember({"Jet", "MS/SQL Server", "Oracle", "DB2 Universal Database", "Other"}));
    command.add_option("--protocol", words.protocol, "Data access protocol")
        ->check(CLI::IsMember({"ado", "dao"}))
        ->capture_default_str();
    command.add_option("--access", words.access, "How to reach the database")
        ->check(CLI::IsMember({"direct", "odbc"}))
        ->capture_default_str();
    command.add_option("--mdb", details.mdbFile, "File of an embedded database, or a Microsoft Access file")
        ->type_name("FILE");
    command.add_option("--server", details.server, "Server");
    command.add_option("--database", details.database, "Database on the server");
    command.add_option("--dsn", details.dsn, "ODBC data source");
    command.add_option("--user", details.userId, "User");
    CLI::Option* password = command.add_option("--password", details.password,
                                               "Password (default: the environment's VELLUMARK_PASSWORD)");
    command.add_flag("--ask-password", words.askPassword, "Ask for the password without showing it")
        ->excludes(password);
    command.add_option("--owner", details.owner, "Read the tables of this owner only");
    command.add_option("--connection-string", details.connectionString,
                       "Use this string instead of a composed one");
    command.add_option("--ignore-table-prefix", words.tablePrefix,
                       "Leave out tables whose name starts so (dao)");
    command.add_option("--ignore-owner-prefix", words.ownerPrefix,
                       "Leave out tables whose owner starts so (dao)");
    return type;
}

std::optional<ConnectionDetails> CompleteConnection(const ConnectionWords& words) {
    ConnectionDetails details = words.details;
    details.protocol = words.protocol == "dao" ? 'D' : 'A';
    details.useODBC = words.access == "odbc";
    if (!details.mdbFile.empty())
        details.mdbFile = std::filesystem::absolute(details.mdbFile).lexically_normal().string();
    if (details.protocol == 'D')
        SetPrefixDefaults(details);
    details.ignoreTablePrefix = words.tablePrefix.value_or(details.ignoreTablePrefix);
    details.ignoreOwnerPrefix = words.ownerPrefix.value_or(details.ignoreOwnerPrefix);
    if (!TakePassword(words, details))
        return std::nullopt;
    details.useDefaultString = details.connectionString.empty();
    if (details.useDefaultString) {
        std::optional<std::string> text = ConnectionString(details);
        if (!text)
            return std::nullopt;
        details.connectionString = std::move(*text);
    } else {
        AddPassword(details);
    }
    return details;
}

}  // namespace vellumark
