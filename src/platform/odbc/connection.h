#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cursor.h"
#include "platform/error.h"
#include "platform/odbc/handle.h"

namespace vellumark::odbc {

// What stands for a "?" of a statement.
struct Parameter {
    Parameter(std::string text) : value(std::move(text)) {}
    Parameter(std::string bytes, SQLSMALLINT bytesForm) : value(std::move(bytes)), form(bytesForm) {}

    std::string value;
    SQLSMALLINT form = SQL_C_CHAR;  // SQL_C_BINARY for bytes, SQL_C_DEFAULT for Null
};
using Parameters = std::vector<Parameter>;

// An open connection through an ODBC driver; it closes itself. Every call may throw what ThrowDiagnostics
// throws.
class Connection {
 public:
    // Takes a string for the driver manager, as DriverManagerString makes it.
    explicit Connection(const std::string& connectionString);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // One statement, or several where the database takes them so; rows that it gives are thrown away.
    void Execute(std::string_view sql);
    bool TakesSeveral() const { return takesSeveral_; }
    // "?" takes the parameters in turn.
    std::unique_ptr<platform::Cursor> Query(std::string_view sql, const Parameters& parameters = {}) const;
    // The same, for rows of any number: where the driver would hold them all in memory unless told otherwise,
    // it is told so.
    std::unique_ptr<platform::Cursor> Stream(std::string_view sql) const;

    // From Begin to Commit or Rollback nothing is certain; outside, each statement stands by itself.
    void Begin();
    void Commit() { EndTransaction(SQL_COMMIT); }
    void Rollback() { EndTransaction(SQL_ROLLBACK); }

    // Text items of SQLGetInfo; empty when the driver doesn't know.
    std::string Info(SQLUSMALLINT item) const;
    // "PostgreSQL 15.0.14 through psqlodbcw.so 13.02.0000".
    std::string ServerName() const;
    // Empty when the database has no catalogs or none is chosen.
    std::string CurrentCatalog() const;

    Handle NewStatement() const { return NewHandle(SQL_HANDLE_STMT, connection_.get()); }

 private:
    void Open(const std::string& connectionString);
    void CheckAlive() const;
    [[noreturn]] void Fail(const Handle& handle);
    void SetAutocommit(bool on);
    void EndTransaction(SQLSMALLINT how);

    Handle environment_;
    Handle connection_;
    bool takesSeveral_ = false;
    bool declaresCursors_ = false;
    std::optional<platform::Error> lost_;  // what told that the line is gone
    Handle executor_;                      // used for one statement after the other
};

}  // namespace vellumark::odbc
