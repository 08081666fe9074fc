#pragma once

#include <iosfwd>
#include <map>
#include <memory>
#include <string>

#include "platform/ado/connection.h"
#include "temp_folder.h"

namespace vellumark::test {

enum class Engine { PostgreSQL, MariaDB, SQLite };

// For the names of tests.
std::string EngineName(Engine engine);
void PrintTo(Engine engine, std::ostream* out);

// An engine and the protocol that reaches it, 'A' or 'D'.
struct ServerRoute {
    Engine engine;
    char protocol;
};
void PrintTo(const ServerRoute& route, std::ostream* out);

// A fresh database of one engine, reached through its ODBC driver; it goes with the object. The servers are
// those that the test run has started.
class ServerDatabase {
 public:
    explicit ServerDatabase(Engine engine);
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    const std::string& Name() const { return name_; }
    // The file of SQLite's.
    std::string Path() const { return folder_->Path("x.db"); }
    const std::string& ConnectionString() const { return connectionString_; }
    // The same with other values for some keys.
    std::string ConnectionStringWith(const std::map<std::string, std::string>& values) const;
    int Port() const;

    // Statements with a semicolon behind each. Names may stand in double quotes on every engine.
    void Run(const std::string& statements);

 private:
    Engine engine_;
    std::string name_;
    std::string connectionString_;
    std::unique_ptr<TempFolder> folder_;
    ado::Connection connection_;
};

// The rows of a query: fields joined by "|" with Null as "null", rows by line ends.
std::string TextOf(platform::Cursor& rows);

}  // namespace vellumark::test
