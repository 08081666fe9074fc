#include "schema/modDatabaseConnection.h"

#include <optional>
#include <utility>

#include "platform/ado/embedded_provider.h"
#include "platform/connection_string.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/odbc/driver_string.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"

namespace vellumark {

namespace {

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
    if (IsToBeConfigured(*details)) {
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

// A string that was taken for a file's name stands in the engine's text.
void ShowFailure(const platform::Error& error) {
    platform::ShowExclamation(platform::MaskPasswords(error.Line()));
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

bool fOpenADOConnection(const std::string& connectionString) {
    ado::Connection& connection = CurrentConnections().ado;
    try {
        connection.Open(connectionString);
    } catch (const platform::Error& error) {
        ShowFailure(error);
    }
    return connection.IsOpen();
}

bool fOpenDAODatabase(const std::string& connectionString, bool useODBC, const std::string& dsn) {
    dao::Database& database = CurrentConnections().dao;
    database.Close();
    try {
        database = OpenThroughDAO(connectionString, useODBC, dsn);
    } catch (const platform::Error& error) {
        ShowFailure(error);
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
        return platform::Refuse("Unexpected error occurred in function fDatabase_Connect_Main.");
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

TargetAside::TargetAside()
    : target_(std::exchange(TargetConnections, {})),
      state_(std::exchange(TargetConnectionState, 'D')),
      mode_(ConnectMode),
      dbmsType_(DBMSType) {}

TargetAside::~TargetAside() {
    TargetConnections = std::move(target_);
    TargetConnectionState = state_;
    ConnectMode = mode_;
    DBMSType = dbmsType_;
    ShowConnectionStatus();
}

}  // namespace vellumark
