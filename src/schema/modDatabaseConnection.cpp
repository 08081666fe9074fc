#include "schema/modDatabaseConnection.h"

#include <array>

#include "platform/ado/embedded_provider.h"
#include "platform/connection_string.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/odbc/driver_string.h"
#include "platform/text.h"
#include "repository/modDescriptions.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

// Every direct connection to DB2 goes through the installation's gateway, whatever the Server field says.
constexpr std::string_view kDB2Gateway = "db2gateway";

constexpr std::string_view kToBeConfigured = "To Be Configured";

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

// The columns of [Database Connection] that simply hold a text.
struct TextColumn {
    std::string_view name;
    std::string ConnectionDetails::*field;
};

constexpr std::array kTextColumns = {
    TextColumn{"Description", &ConnectionDetails::description},
    TextColumn{"Type", &ConnectionDetails::dbmsType},
    TextColumn{"Connection String", &ConnectionDetails::connectionString},
    TextColumn{"DSN", &ConnectionDetails::dsn},
    TextColumn{"Database", &ConnectionDetails::database},
    TextColumn{"MDB File", &ConnectionDetails::mdbFile},
    TextColumn{"Server", &ConnectionDetails::server},
    TextColumn{"UserId", &ConnectionDetails::userId},
    TextColumn{"Password", &ConnectionDetails::password},
    TextColumn{"Owner", &ConnectionDetails::owner},
    TextColumn{"Ignore Table Prefix", &ConnectionDetails::ignoreTablePrefix},
    TextColumn{"Ignore Owner Prefix", &ConnectionDetails::ignoreOwnerPrefix},
    TextColumn{"Table", &ConnectionDetails::table},
    TextColumn{"Column", &ConnectionDetails::column},
};

dao::Recordset ConnectionRow(int id) {
    return RepositoryDatabase.OpenRecordset("select * from [Database Connection] where [Id] = ?", {id});
}

void SetCodes(dao::Recordset& row, const ConnectionDetails& details) {
    row.Set("Access Method", details.useODBC ? "O" : "D")
        .Set("VB Data Access Objects", std::string(1, details.protocol))
        .Set("Flag VM Connection String", details.useDefaultString);
}

std::optional<ConnectionDetails> SourceOfSchema(const dao::Recordset& schema) {
    std::optional<ConnectionDetails> details = ReadConnection(schema.Long("FK CON Id Source"));
    if (!details)
        platform::ShowExclamation("Cannot open the Database Connnection Source");
    return details;
}

std::optional<ConnectionDetails> TargetOfSchema(const dao::Recordset& schema) {
    std::optional<ConnectionDetails> details = ReadConnection(schema.Long("FK CON Id Target"));
    if (!details) {
        platform::ShowExclamation("Cannot open the Database Connnection Target");
        return std::nullopt;
    }
    const std::string_view ending = platform::RightCharacters(details->description, kToBeConfigured.size());
    if (platform::EqualsIgnoringCase(ending, kToBeConfigured)) {
        platform::ShowExclamation("Please configure your Target Database Connnection details");
        return std::nullopt;
    }
    return details;
}

// The connection that ConnectMode means, or nothing after a message.
std::optional<ConnectionDetails> FindConnection() {
    if (ConnectMode == kConnectForm)
        return ConnectionForm;
    const RepositoryScope repository;
    const dao::Recordset schema =
        RepositoryDatabase.OpenRecordset("select * from [Database] where [Id] = ?", {CurrentDBSId});
    if (schema.IsEOF()) {
        platform::ShowExclamation("Cannot open the Database identifier " + std::to_string(CurrentDBSId));
        return std::nullopt;
    }
    if (ConnectMode == kConnectNew)
        return SourceOfSchema(schema);
    if (ConnectMode == kConnectTarget)
        return TargetOfSchema(schema);
    return ReadConnection(ValueConnectionId).value_or(ConnectionForm);
}

bool OpenFoundConnection() {
    const ConnectionDetails& found = FoundConnection;
    const bool open = found.protocol == 'A'
                          ? fOpenADOConnection(found.connectionString)
                          : fOpenDAODatabase(found.connectionString, found.useODBC, found.dsn);
    TargetConnectionState = open ? 'C' : 'D';
    ShowConnectionStatus();
    return open;
}

// The string of a direct connection to some other DBMS names a data source as well.
dao::Database OpenThroughDAO(const std::string& connectionString, bool useODBC, const std::string& dsn) {
    const platform::ConnectionString parts(connectionString);
    if (ado::EmbeddedProvider::Serves(parts))
        return ado::EmbeddedProvider::OpenFile(parts);
    if (useODBC || odbc::NamesSource(parts))
        return dao::OpenOdbcDatabase(dsn, connectionString);
    return dao::OpenDatabase(connectionString);
}

}  // namespace

void OpenConnections::Close() {
    ado.Close();
    dao.Close();
}

OpenConnections& CurrentConnections() {
    return ConnectMode == kConnectGetValue ? ValueConnections : TargetConnections;
}

std::optional<std::string> ConnectionString(const ConnectionDetails& details) {
    if (details.dbmsType.empty())
        return std::nullopt;
    if (details.protocol == 'A')
        return details.useODBC ? AdoThroughOdbc(details) : AdoDirect(details);
    return details.useODBC ? DaoThroughOdbc(details) : DaoDirect(details);
}

void fConnectionString(ConnectionDetails& details) {
    if (!details.useDefaultString)
        return;
    if (std::optional<std::string> text = ConnectionString(details))
        details.connectionString = std::move(*text);
}

void SetPrefixDefaults(ConnectionDetails& details) {
    const bool ownersOfSystem = details.dbmsType == kDbmsDB2 || details.dbmsType == kDbmsOracle;
    details.ignoreOwnerPrefix = ownersOfSystem ? "sys" : "";
    details.ignoreTablePrefix = details.dbmsType == kDbmsJet      ? "msys"
                                : details.dbmsType == kDbmsOracle ? ""
                                                                  : "sys";
}

std::string SourceDescription(const ConnectionDetails& details) {
    return details.schemaName + " (Source) -" +
           ConnectionDescription(details.dbmsType, details.dsn, details.database, details.mdbFile, "", "");
}

std::string TargetDescription(const ConnectionDetails& details) {
    return details.schemaName + " (Target) -" +
           ConnectionDescription(details.dbmsType, details.dsn, details.database, details.mdbFile, "", "");
}

int NextConnectionId() {
    const RepositoryScope repository;
    return NextId(RepositoryDatabase, "select max([Id]) from [Database Connection]");
}

std::optional<ConnectionDetails> ReadConnection(int id) {
    const RepositoryScope repository;
    const dao::Recordset row = ConnectionRow(id);
    if (row.IsEOF())
        return std::nullopt;
    ConnectionDetails details;
    for (const TextColumn& column : kTextColumns)
        details.*column.field = row.Text(column.name);
    details.useODBC = row.Text("Access Method") == "O";
    details.protocol = row.Text("VB Data Access Objects") == "D" ? 'D' : 'A';
    details.useDefaultString = row.Boolean("Flag VM Connection String");
    return details;
}

void AddConnection(int id, const ConnectionDetails& details) {
    const RepositoryScope repository;
    dao::Recordset row = RepositoryDatabase.OpenForAppend("Database Connection");
    row.AddNew();
    row.Set("Id", id);
    for (const TextColumn& column : kTextColumns)
        if (!(details.*column.field).empty())
            row.Set(column.name, details.*column.field);
    SetCodes(row, details);
    row.Update();
}

void UpdateConnection(int id, const ConnectionDetails& details) {
    const RepositoryScope repository;
    dao::Recordset row = ConnectionRow(id);
    row.Edit();
    for (const TextColumn& column : kTextColumns)
        row.Set(column.name, details.*column.field);
    SetCodes(row, details);
    row.Update();
}

bool fSaveTargetConnection(ConnectionDetails details) {
    const RepositoryScope repository;
    dao::Recordset schema =
        RepositoryDatabase.OpenRecordset("select * from [Database] where [Id] = ?", {CurrentDBSId});
    if (schema.IsEOF()) {
        platform::ShowExclamation("Database not found in Vellumark.");
        return false;
    }
    details.schemaName = schema.Text("Name");
    details.description = TargetDescription(details);
    const int id = schema.Long("FK CON Id Target");
    if (!ConnectionRow(id).IsEOF()) {
        UpdateConnection(id, details);
        return true;
    }
    const int newId = NextConnectionId();
    AddConnection(newId, details);
    schema.Edit();
    schema.Set("FK CON Id Target", newId);
    schema.Update();
    return true;
}

void fCreateTargetPlaceholder(int id, std::string_view schemaName) {
    ConnectionDetails details;
    details.description = std::string(schemaName) + " (Target) - " + std::string(kToBeConfigured);
    details.dbmsType.clear();
    AddConnection(id, details);
}

bool fOpenADOConnection(const std::string& connectionString) {
    ado::Connection& connection = CurrentConnections().ado;
    try {
        connection.Open(connectionString);
    } catch (const platform::Error& error) {
        platform::ShowExclamation(error.Line());
    }
    return connection.IsOpen();
}

bool fOpenDAODatabase(const std::string& connectionString, bool useODBC, const std::string& dsn) {
    dao::Database& database = CurrentConnections().dao;
    database.Close();
    try {
        database = OpenThroughDAO(connectionString, useODBC, dsn);
    } catch (const platform::Error& error) {
        platform::ShowExclamation(error.Line());
    }
    return database.IsOpen();
}

bool fDatabase_Connect_Main(char& protocol, bool lookupOnly) {
    try {
        std::optional<ConnectionDetails> details = FindConnection();
        if (!details)
            return false;
        FoundConnection = std::move(*details);
        protocol = FoundConnection.protocol;
        if (ConnectMode != kConnectGetValue)
            DBMSType = FoundConnection.dbmsType;
        return lookupOnly || OpenFoundConnection();
    } catch (const platform::Error&) {
        platform::ShowExclamation("Unexpected error occurred in function fDatabase_Connect_Main.");
        return false;
    }
}

bool ConnectTarget() {
    const RepositoryScope repository;
    ConnectMode = kConnectTarget;
    char protocol = DatabaseProtocol;
    const bool connected = fDatabase_Connect_Main(protocol, false);
    DatabaseProtocol = protocol;
    return connected;
}

void CloseTargetConnection() {
    TargetConnections.Close();
    TargetConnectionState = 'D';
    ShowConnectionStatus();
}

void ShowConnectionStatus() {
    ConnectionStatusText =
        TargetConnectionState == 'C' ? "Target Database: Connected" : "Target Database: Disconnected";
    RefreshCommands();
}

}  // namespace vellumark
