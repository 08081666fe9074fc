#pragma once

#include <string>
#include <string_view>

// What a connection to a user's database is made of.
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

// What a connection serves: the words of ConnectMode.
inline constexpr std::string_view kConnectNew = "New";
inline constexpr std::string_view kConnectTarget = "Target";
inline constexpr std::string_view kConnectValue = "Value";
inline constexpr std::string_view kConnectGetValue = "Get_Value";
inline constexpr std::string_view kConnectForm = "frmDatabaseConnection";

}  // namespace vellumark
