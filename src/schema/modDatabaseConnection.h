#pragma once

#include <string>

#include "platform/ado/connection.h"
#include "platform/dao/database.h"
#include "schema/modConnectionDetails.h"

// The connections to users' databases that the session holds open, and how they open.
namespace vellumark {

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

// While it stands, another database can be connected in the Target's place; at the end that one is closed and
// the Target is back, open or not as it was.
class TargetAside {
 public:
    TargetAside();
    ~TargetAside();
    TargetAside(const TargetAside&) = delete;
    TargetAside& operator=(const TargetAside&) = delete;

 private:
    OpenConnections target_;
    char state_;
    std::string mode_;
    std::string dbmsType_;
};

}  // namespace vellumark
