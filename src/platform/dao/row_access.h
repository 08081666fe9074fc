#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cursor.h"
#include "platform/dao/database.h"
#include "platform/dao/table_def.h"
#include "platform/dao/value.h"
#include "platform/odbc/catalog.h"
#include "platform/odbc/connection.h"

namespace vellumark::dao {

// Reads and changes rows of a user's database by bound values, whatever protocol and driver lead to it. Must
// not outlive the open database. Every call may throw the database's error.
class RowAccess {
 public:
    virtual ~RowAccess() = default;

    // "SQLite", "PostgreSQL", "MariaDB" or another word of the driver's.
    virtual std::string System() const = 0;
    // Whether Query gives its rows as they are read, so that any number of them takes no memory.
    virtual bool Streams() const = 0;
    // A name as statements take it whatever it holds.
    virtual std::string Quoted(std::string_view name) const = 0;
    // With the indexes that say something of a row's columns, and without computed columns. Throws
    // kNoSuchItem for an unknown table.
    virtual TableDef Definition(std::string_view owner, std::string_view table) const = 0;
    // One statement in the database's own dialect; "?" takes the values in turn. The cursor has no fields
    // when the statement has no rows but only its effect.
    virtual std::unique_ptr<platform::Cursor> Query(std::string_view sql,
                                                    const std::vector<Value>& values = {}) const = 0;
    // Throws kReadOnlyDatabase when the database is of a kind that is only read.
    virtual void CheckWritable() const = 0;
};

class EmbeddedRowAccess : public RowAccess {
 public:
    explicit EmbeddedRowAccess(const Database& database) : database_(database) {}

    std::string System() const override { return "SQLite"; }
    bool Streams() const override { return true; }
    std::string Quoted(std::string_view name) const override;
    TableDef Definition(std::string_view owner, std::string_view table) const override;
    std::unique_ptr<platform::Cursor> Query(std::string_view sql,
                                            const std::vector<Value>& values) const override;
    void CheckWritable() const override { database_.CheckWritable(); }

 private:
    const Database& database_;
};

class OdbcRowAccess : public RowAccess {
 public:
    OdbcRowAccess(const odbc::Connection& connection, odbc::Catalog& catalog)
        : connection_(connection), catalog_(catalog) {}

    std::string System() const override { return connection_.Info(SQL_DBMS_NAME); }
    bool Streams() const override { return false; }
    std::string Quoted(std::string_view name) const override;
    TableDef Definition(std::string_view owner, std::string_view table) const override;
    std::unique_ptr<platform::Cursor> Query(std::string_view sql,
                                            const std::vector<Value>& values) const override;
    void CheckWritable() const override {}

 private:
    odbc::CatalogTable Find(std::string_view owner, std::string_view table) const;

    const odbc::Connection& connection_;
    odbc::Catalog& catalog_;
};

odbc::Parameter ToOdbc(const Value& value);

}  // namespace vellumark::dao
