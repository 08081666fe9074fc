#include "schema/modConnectionString.h"

#include "platform/connection_string.h"
#include "platform/dialogs.h"

namespace vellumark {

namespace {

// Every direct connection to DB2 goes through the installation's gateway, whatever the Server field says.
constexpr std::string_view kDB2Gateway = "db2gateway";

std::string UserAndPassword(const ConnectionDetails& details) {
    return ";UID=" + details.userId + ";PWD=" + details.password;
}

std::string DataSource(const ConnectionDetails& details) {
    return "DSN=" + details.dsn + UserAndPassword(details);
}

std::string DataSourceAndDatabase(const ConnectionDetails& details) {
    return DataSource(details) + ";DATABASE=" + details.database;
}

std::string AdoDirect(const ConnectionDetails& details) {
    if (details.dbmsType == kDbmsJet)
        return "driver={Microsoft Access Driver (*.mdb)}" + UserAndPassword(details) +
               ";DBQ=" + details.mdbFile;
    if (details.dbmsType == kDbmsSqlServer)
        return "server=" + details.server + UserAndPassword(details) + ";DATABASE=" + details.database +
               ";Provider = sqloledb";
    if (details.dbmsType == kDbmsDB2)
        return "Provider = DB2OLEDB;PWD=" + details.password + ";DATABASE=" + details.database +
               ";UID=" + details.userId + ";SERVER = " + std::string(kDB2Gateway);
    const std::string provider = details.dbmsType == kDbmsOracle ? ";Provider = MSDAORA" : "";
    return "User Id=" + details.userId + ";Password=" + details.password +
           ";Data Source=" + details.database + provider + ";server=" + details.server;
}

std::string AdoThroughOdbc(const ConnectionDetails& details) {
    return details.dbmsType == kDbmsOracle ? DataSource(details) : DataSourceAndDatabase(details);
}

std::optional<std::string> DaoDirect(const ConnectionDetails& details) {
    if (details.dbmsType == kDbmsJet)
        return details.mdbFile;
    if (details.dbmsType == kDbmsOther)
        return DataSourceAndDatabase(details);
    const std::string refusal = "No DAO provider available for a direct connection to ";
    if (details.dbmsType == kDbmsSqlServer)
        platform::ShowExclamation(refusal + "MS/SQL\nPlease use ADO option or ODBC");
    else if (details.dbmsType == kDbmsDB2)
        platform::ShowExclamation(refusal + "DB2\nPlease use ODBC");
    else
        platform::ShowExclamation(refusal + "Oracle\nPlease use ADO option or ODBC");
    return std::nullopt;
}

std::string DaoThroughOdbc(const ConnectionDetails& details) {
    return details.dbmsType == kDbmsOracle ? "ODBC;" + DataSource(details) : DataSourceAndDatabase(details);
}

}  // namespace

std::optional<std::string> ConnectionString(const ConnectionDetails& details) {
    if (details.dbmsType.empty())
        return std::nullopt;
    if (details.protocol == 'A')
        return details.useODBC ? AdoThroughOdbc(details) : AdoDirect(details);
    return details.useODBC ? DaoThroughOdbc(details) : DaoDirect(details);
}

bool HasConnectionString(const ConnectionDetails& details) {
    const bool hasProvider = details.dbmsType == kDbmsJet || details.dbmsType == kDbmsOther;
    return !details.dbmsType.empty() && (details.protocol == 'A' || details.useODBC || hasProvider);
}

void fConnectionString(ConnectionDetails& details) {
    if (!details.useDefaultString)
        return;
    if (std::optional<std::string> text = ConnectionString(details))
        details.connectionString = std::move(*text);
}

// A password may hold a semicolon: a default string is better built anew than searched for it.
std::string ShownConnectionString(const ConnectionDetails& details) {
    if (!details.useDefaultString || !HasConnectionString(details))
        return platform::MaskPasswords(details.connectionString);
    ConnectionDetails masked = details;
    if (!masked.password.empty())
        masked.password = "***";
    return ConnectionString(masked).value_or("");
}

}  // namespace vellumark
