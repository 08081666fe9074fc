#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/ado/connection.h"
#include "platform/dao/database.h"

// Connections to users' databases: their records, the strings that open them, and the open ones of the
// session.
namespace vellumark {

inline constexpr std::string_view kDbmsJet = "Jet";
inline constexpr std::string_view kDbmsSqlServer = "MS/SQL Server";
inline constexpr std::string_view kDbmsOracle = "Oracle";
inline constexpr std::string_view kDbmsDB2 = "DB2 Universal Database";
inline constexpr std::string_view kDbmsOther = "Other";

// What the connection screen holds. A new record is as the screen opens: Jet, direct, ADO, the default
// string.
struct ConnectionDetails {
    std::string schemaName;
    std::string schemaDescription;
    std::string description;         // of the connection itself
    std::string dbmsType{kDbmsJet};  // empty when none is chosen
    char protocol = 'A';             // 'A' ADO, 'D' DAO
    bool useODBC = false;
    std::string mdbFile;
    std::string server;
    std::string database;
    std::string dsn;
    std::string userId;
    std::string password;
    std::string owner;
    std::string connectionString;
    bool useDefaultString = true;  // false when the user typed the string
    std::string ignoreTablePrefix;
    std::string ignoreOwnerPrefix;
    std::string table;   // only a connection of a Value Source
    std::string column;  // likewise
};

inline constexpr std::string_view kConnectNew = "New";
inline constexpr std::string_view kConnectTarget = "Target";
inline constexpr std::string_view kConnectValue = "Value";
inline constexpr std::string_view kConnectGetValue = "Get_Value";
inline constexpr std::string_view kConnectForm = "frmDatabaseConnection";

// What the next connect serves: one of the five words.
inline std::string ConnectMode;
inline char DatabaseProtocol = 'A';
inline std::string DBMSType;
inline std::string ConnectionStatusText = "Target Database: Disconnected";

// The fields of the connection screen, for the modes that read them from there.
inline ConnectionDetails ConnectionForm;
// The connection of the current Value Source; 0 when it has none yet.
inline int ValueConnectionId = 0;
// What fDatabase_Connect_Main found last, opened or not.
inline ConnectionDetails FoundConnection;

struct OpenConnections {
    ado::Connection ado;
    dao::Database dao;

    void Close();
};

inline OpenConnections TargetConnections;  // of the Target, or of the Source while a schema is read
inline OpenConnections ValueConnections;   // of the mode "Get_Value"

// The pair that the current ConnectMode uses.
OpenConnections& CurrentConnections();

// The default string. Nothing when no DBMS is chosen or, with its message, when the protocol can't reach it
// directly.
std::optional<std::string> ConnectionString(const ConnectionDetails& details);

// Brings the string up to date after a change of another field, unless the user types it.
void fConnectionString(ConnectionDetails& details);

// The Ignore prefixes that go with the DBMS under DAO.
void SetPrefixDefaults(ConnectionDetails& details);

// What the connections of a schema are called.
std::string SourceDescription(const ConnectionDetails& details);
std::string TargetDescription(const ConnectionDetails& details);

// Rows of [Database Connection].
int NextConnectionId();
std::optional<ConnectionDetails> ReadConnection(int id);
void AddConnection(int id, const ConnectionDetails& details);
// Throws kNoCurrentRecord when there is no such row.
void UpdateConnection(int id, const ConnectionDetails& details);
// Stores the connection as the current schema's Target under its own description. False behind a message.
bool fSaveTargetConnection(ConnectionDetails details);
void fCreateTargetPlaceholder(int id, std::string_view schemaName);

// Open into CurrentConnections; a failure shows the database's own error.
bool fOpenADOConnection(const std::string& connectionString);
bool fOpenDAODatabase(const std::string& connectionString, bool useODBC, const std::string& dsn);

// Finds the connection of ConnectMode, and opens it unless `lookupOnly`. `protocol` receives 'A' or 'D'.
bool fDatabase_Connect_Main(char& protocol, bool lookupOnly);

// Opens the current schema's Target Connection and keeps its protocol in DatabaseProtocol.
bool ConnectTarget();

// Closes the Target or Source, open or not, and shows it.
void CloseTargetConnection();

void ShowConnectionStatus();

}  // namespace vellumark
