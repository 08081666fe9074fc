#include "platform/dao/database.h"

#include <filesystem>

#include "platform/access/file.h"
#include "platform/connection_string.h"
#include "platform/dao/access_catalog.h"
#include "platform/dao/jet_sql.h"
#include "platform/dao/odbc_link.h"
#include "platform/dao/row_access.h"
#include "platform/dao/statement_cursor.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/odbc/driver_string.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

using platform::Error;

constexpr std::string_view kPasswordLookup = "select [Value] from [MSysProperties] where [Name] = 'Password'";

void Run(sqlite3* connection, const char* sql) {
    const int code = sqlite3_exec(connection, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        ThrowEngineError(connection, code);
}

ConnectionHandle Open(const std::string& path, int flags) {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &raw, flags | SQLITE_OPEN_EXRESCODE, nullptr);
    ConnectionHandle connection(raw);
    if (code != SQLITE_OK)
        throw Error(platform::kCannotOpenFile, "Cannot open file '" + path + "': " + sqlite3_errstr(code));
    sqlite3_busy_timeout(raw, kBusyWaitSeconds * 1000);
    return connection;
}

std::string PasswordIn(std::string_view connect) {
    constexpr std::string_view key = ";pwd=";
    return platform::StartsWithIgnoringCase(connect, key) ? std::string(connect.substr(key.size()))
                                                          : std::string();
}

odbc::Parameters Bound(const Parameters& parameters) {
    odbc::Parameters bound;
    for (const Parameter& parameter : parameters)
        bound.push_back(ToOdbc(parameter.Get()));
    return bound;
}

bool HasKnownFormat(const Database& database) {
    try {
        database.Lookup("select count(*) from sqlite_master");
        return true;
    } catch (const Error& error) {
        if (error.Number() != platform::kUnrecognizedFormat)
            throw;
        return false;
    }
}

Database OpenAccess(const std::string& path, std::string_view connect) {
    if (!access::File::Recognizes(path))
        throw Error(platform::kUnrecognizedFormat, "Unrecognized database format '" + path + "'.");
    const auto catalog = std::make_shared<AccessCatalog>();
    ConnectionHandle connection = OpenAccessFile(path, PasswordIn(connect), *catalog);
    return {std::move(connection), path, catalog};
}

void CheckPassword(const Database& database, std::string_view connect) {
    if (!database.HasTable("MSysProperties"))
        return;
    const std::string password = ToText(database.Lookup(kPasswordLookup));
    if (!password.empty() && password != PasswordIn(connect))
        throw Error(platform::kNotAValidPassword, "Not a valid password.");
}

}  // namespace

Database::Database(ConnectionHandle connection, std::string path)
    : connection_(std::move(connection)), path_(std::move(path)) {}

Database::Database(std::shared_ptr<OdbcLink> link) : link_(std::move(link)) {}

Database::Database(ConnectionHandle connection, std::string path, std::shared_ptr<const AccessCatalog> access)
    : connection_(std::move(connection)), path_(std::move(path)), access_(std::move(access)) {}

void Database::Close() {
    connection_.reset();
    access_.reset();
    link_.reset();
}

std::string Database::ServerName() const {
    if (access_)
        return access_->version;
    return link_ ? link_->Connection().ServerName() : std::string("SQLite ") + sqlite3_libversion();
}

void Database::CheckWritable() const {
    if (access_)
        throw Error(platform::kReadOnlyDatabase, "'" + path_ +
                                                     "' is a Microsoft Access file; Vellumark "
                                                     "reads such files but doesn't write them.");
}

void Database::Execute(std::string_view sql, const Parameters& parameters) const {
    if (link_ && parameters.empty())
        return link_->Connection().Execute(sql);
    if (link_) {
        link_->Connection().Query(sql, Bound(parameters));
        return;
    }
    Statement statement = Prepare(TranslateJetSql(sql));
    statement.BindAll(parameters);
    statement.Execute();
}

Recordset Database::OpenRecordset(std::string_view source, const Parameters& parameters) const {
    if (!link_)
        return Recordset(*this, source, parameters);
    const std::string sql = IsSelect(source) ? std::string(source) : "select * from " + std::string(source);
    return Recordset(*link_->Connection().Query(sql, Bound(parameters)));
}

std::unique_ptr<platform::Cursor> Database::OpenCursor(std::string_view sql) const {
    if (link_)
        return link_->Connection().Stream(sql);
    return std::make_unique<StatementCursor>(Prepare(TranslateJetSql(sql)));
}

void Database::BeginTrans() const {
    if (link_)
        return link_->Connection().Begin();
    Run(Handle(), "begin immediate");
}

void Database::CommitTrans() const {
    if (link_)
        return link_->Connection().Commit();
    Run(Handle(), "commit");
}

void Database::Rollback() const {
    if (link_)
        return link_->Connection().Rollback();
    Run(Handle(), "rollback");
}

std::unique_ptr<RowAccess> Database::OpenRowAccess() const {
    if (link_)
        return std::make_unique<OdbcRowAccess>(link_->Connection(), link_->Catalog());
    return std::make_unique<EmbeddedRowAccess>(*this);
}

Recordset Database::OpenForAppend(std::string_view table) const {
    return Recordset(*this, table);
}

Statement Database::Prepare(std::string_view sql) const {
    if (!IsEmbedded())
        throw Error(platform::kNoCurrentRecord, "The database is not open.");
    try {
        return Statement(connection_.get(), sql);
    } catch (const Error&) {
        if (!IsSelect(sql))
            CheckWritable();
        throw;
    }
}

Value Database::Lookup(std::string_view sql, const Parameters& parameters) const {
    Statement statement = Prepare(sql);
    statement.BindAll(parameters);
    return statement.Step() ? statement.ColumnValue(0) : Value{};
}

bool Database::HasTable(std::string_view name) const {
    return ToLong(
               Lookup("select count(*) from sqlite_master where type = 'table' and name = ? collate nocase",
                      {name})) > 0;
}

void Database::DropTable(std::string_view table) const {
    Prepare("drop table " + Bracketed(table)).Execute();
}

Database OpenDatabase(const std::string& path, std::string_view connect, const OpenOptions& options) {
    if (!std::filesystem::exists(path))
        throw Error(platform::kFileCannotBeFound, "Could not find file '" + path + "'.");
    std::error_code isNoFile;
    // The engine takes an empty file for a database without tables.
    if (!options.ownStore && std::filesystem::file_size(path, isNoFile) == 0)
        throw Error(platform::kUnrecognizedFormat,
                    "Unrecognized database format '" + path + "'. The file is empty.");
    Database database(Open(path, options.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE), path);
    // The engine looks first: a handle of ours on a file of its own would, when closed, drop the locks that
    // this process holds on it.
    if (!HasKnownFormat(database))
        return OpenAccess(path, connect);
    CheckPassword(database, connect);
    Run(database.Handle(), options.ownStore ? "pragma synchronous=normal" : "pragma foreign_keys=on");
    return database;
}

Database OpenOdbcDatabase(std::string_view dsn, std::string_view connect) {
    std::string text(connect);
    if (!odbc::NamesSource(platform::ConnectionString(connect)))
        text.insert(0, "DSN=" + platform::WrittenValue(dsn) + ";");
    return Database(std::make_shared<OdbcLink>(odbc::DriverManagerString(text)));
}

void CreateDatabase(const std::string& path, std::string_view password, bool ownStore) {
    // The files that the engine lays beside it take over who may read them.
    platform::MakePrivateFile(path);
    Database database(Open(path, SQLITE_OPEN_READWRITE), path);
    if (ownStore)
        Run(database.Handle(), "pragma journal_mode=wal");
    Run(database.Handle(),
        "create table [MSysProperties] ([Name] TEXT(50) collate nocase, [Value] TEXT(255))");
    if (!password.empty())
        database.Execute("insert into [MSysProperties] values ('Password', ?)", {password});
}

Transaction::Transaction(const Database& database)
    : connection_(database.Handle()), outermost_(sqlite3_get_autocommit(connection_) != 0) {
    Run(connection_, outermost_ ? "begin immediate" : "savepoint nested");
}

Transaction::~Transaction() {
    if (!open_)
        return;
    const char* undo = outermost_ ? "rollback" : "rollback to nested; release nested";
    // The engine may have rolled back by itself after a full disk; nothing is left to undo then.
    sqlite3_exec(connection_, undo, nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    Run(connection_, outermost_ ? "commit" : "release nested");
    open_ = false;
}

}  // namespace vellumark::dao
