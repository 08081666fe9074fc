#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cursor.h"
#include "platform/dao/recordset.h"
#include "platform/dao/statement.h"
#include "platform/dao/table_def.h"
#include "platform/dao/value.h"

namespace vellumark::dao {

struct OpenOptions {
    bool readOnly = false;
    // Data written by others stays as its owner set it up; our own stores commit without a flush per change.
    bool ownStore = false;
};

struct AccessCatalog;
class OdbcLink;
class RowAccess;

// An open database: an embedded one, a Microsoft Access file, or one behind an ODBC data source. Movable;
// closes itself.
class Database {
 public:
    Database() = default;
    explicit Database(ConnectionHandle connection, std::string path);
    explicit Database(std::shared_ptr<OdbcLink> link);
    Database(ConnectionHandle connection, std::string path, std::shared_ptr<const AccessCatalog> access);

    bool IsOpen() const { return IsEmbedded() || link_ != nullptr; }
    // A Microsoft Access file counts as embedded, but it can't be changed.
    bool IsEmbedded() const { return connection_ != nullptr; }
    void Close();
    // Empty for a data source.
    const std::string& Path() const { return path_; }
    // The system of an open database and its version, with the driver's where there is one.
    std::string ServerName() const;
    // Throws kReadOnlyDatabase for a Microsoft Access file.
    void CheckWritable() const;

    // One statement in the data engine's dialect, or in the data source's own; "?" takes the parameters in
    // turn.
    void Execute(std::string_view sql, const Parameters& parameters = {}) const;
    // A table's name or a select statement. The rows of a data source are texts and can't be changed.
    Recordset OpenRecordset(std::string_view source, const Parameters& parameters = {}) const;
    // The rows of a select statement, not held in memory.
    std::unique_ptr<platform::Cursor> OpenCursor(std::string_view sql) const;

    // One transaction at a time, for statements of the user's; our own bulk work takes a Transaction.
    void BeginTrans() const;
    void CommitTrans() const;
    void Rollback() const;

    // Tables in the order they were made, without the engine's own. Those of a data source are called
    // "owner.table" and have neither indexes nor relations; those of a Microsoft Access file come by name,
    // its MSys tables too.
    std::vector<std::string> TableNames() const;
    // Throws kNoSuchItem for an unknown name.
    TableDef TableDefinition(std::string_view name) const;
    std::vector<TableDef> TableDefs() const;
    std::vector<Relation> Relations() const;

    // To read and change single rows, whatever the database is; must not outlive it.
    std::unique_ptr<RowAccess> OpenRowAccess() const;

    // From here on, what changes tables and looks inside works on an embedded database only.

    // An empty recordset on a table, for AddNew alone.
    Recordset OpenForAppend(std::string_view table) const;
    // A statement in SQLite's dialect, for work that repeats.
    Statement Prepare(std::string_view sql) const;
    // The first column of the first row; Null when there is none.
    Value Lookup(std::string_view sql, const Parameters& parameters = {}) const;

    bool HasTable(std::string_view name) const;
    void CreateTable(const TableDef& table) const;
    void AddField(std::string_view table, const Field& field) const;
    void DropTable(std::string_view table) const;

    // How long changes from here on wait for another program; kBusyWaitSeconds before that.
    void WaitWhenBusy(int seconds) const { sqlite3_busy_timeout(Handle(), seconds * 1000); }

    sqlite3* Handle() const { return connection_.get(); }

 private:
    ConnectionHandle connection_;
    std::string path_;
    std::shared_ptr<const AccessCatalog> access_;  // of a Microsoft Access file
    std::shared_ptr<OdbcLink> link_;
};

// Opens an existing file, which may be Microsoft Access's own. `connect` is ";pwd=..." or empty. Throws
// kFileCannotBeFound, kUnrecognizedFormat, kNotAValidPassword, kCannotOpenFile, kLocked.
Database OpenDatabase(const std::string& path, std::string_view connect = "",
                      const OpenOptions& options = {});

// Opens a data source by its name and a connection string, whose own data source or driver goes first. Throws
// kProviderNotFound or the driver's error.
Database OpenOdbcDatabase(std::string_view dsn, std::string_view connect);

// Makes an empty file, which must not exist yet and which only its owner may read; a password other than ""
// must be given at each open.
void CreateDatabase(const std::string& path, std::string_view password = "", bool ownStore = false);

// Groups changes: all of them, or with no Commit none. Transactions nest.
class Transaction {
 public:
    explicit Transaction(const Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

 private:
    sqlite3* connection_;
    bool outermost_;
    bool open_ = true;
};

}  // namespace vellumark::dao
