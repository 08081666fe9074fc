#include "cli/connectionWords.h"

#include <filesystem>

#include "schema/modConnectionForm.h"
#include "schema/modConnectionString.h"

namespace vellumark {

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
    command.add_option("--mdb", details.mdbFile, "File of an embedded database")->type_name("FILE");
    command.add_option("--server", details.server, "Server");
    command.add_option("--database", details.database, "Database on the server");
    command.add_option("--dsn", details.dsn, "ODBC data source");
    command.add_option("--user", details.userId, "User");
    command.add_option("--password", details.password, "Password");
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
    details.useDefaultString = details.connectionString.empty();
    if (details.useDefaultString) {
        std::optional<std::string> text = ConnectionString(details);
        if (!text)
            return std::nullopt;
        details.connectionString = std::move(*text);
    }
    return details;
}

}  // namespace vellumark
