#include "platform/dao/statement.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

using namespace platform;

constexpr int kCharactersAfterEnd = 3142;

int NumberOfText(std::string_view message) {
    if (message.starts_with("no such table"))
        return kNoSuchTable;
    if (message.starts_with("no such column") || message.find("has no column named") != message.npos)
        return kNoSuchParameter;
    if (message.find("syntax error") != message.npos)
        return kSyntaxError;
    return kQueryFailed;
}

int ErrorNumberFor(int extendedCode, std::string_view message) {
    switch (extendedCode) {
        case SQLITE_CONSTRAINT_FOREIGNKEY:
            return kRelatedRecordRequired;
        case SQLITE_CONSTRAINT_NOTNULL:
            return kNullNotAllowed;
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_ROWID:
            return kDuplicateKey;
        default:
            break;
    }
    switch (extendedCode & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return kLocked;
        case SQLITE_READONLY:
        case SQLITE_AUTH:
            return kReadOnlyDatabase;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return kUnrecognizedFormat;
        case SQLITE_FULL:
            return kNotEnoughSpaceOnDisk;
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            return kCannotOpenFile;
        case SQLITE_IOERR:
            return kDeviceIOError;
        default:
            return NumberOfText(message);
    }
}

// Blanks, comments and semicolons count as nothing. What can't be read is more.
bool HoldsMore(sqlite3* connection, std::string_view rest) {
    if (rest.find_first_not_of("; \t\r\n") == rest.npos)
        return false;
    sqlite3_stmt* next = nullptr;
    const int code =
        sqlite3_prepare_v3(connection, rest.data(), static_cast<int>(rest.size()), 0, &next, nullptr);
    return StatementHandle(next) != nullptr || code != SQLITE_OK;
}

std::string BusyText(sqlite3* connection) {
    const char* path = sqlite3_db_filename(connection, "main");
    return "The file '" + std::string(path == nullptr ? "" : path) +
           "' is being changed by another program. Please try again when that has finished.";
}

// Failures of the file rather than of the statement: one has to know which file.
constexpr std::array kOfTheFile = {
    kLocked, kReadOnlyDatabase, kUnrecognizedFormat, kNotEnoughSpaceOnDisk, kCannotOpenFile, kDeviceIOError};

std::string FileOf(sqlite3* connection) {
    const char* path = connection == nullptr ? nullptr : sqlite3_db_filename(connection, "main");
    return path == nullptr || *path == '\0' ? std::string() : ": '" + std::string(path) + "'";
}

// The engine knows a full disk where it writes pages only; elsewhere the system tells.
bool IsDiskFull(sqlite3* connection, int extendedCode) {
    if (connection == nullptr || (extendedCode & 0xFF) != SQLITE_IOERR)
        return false;
    const int reason = sqlite3_system_errno(connection);
    return reason == ENOSPC || reason == EDQUOT;
}

}  // namespace

void ThrowEngineError(sqlite3* connection, int code) {
    const int known = connection == nullptr ? code : sqlite3_extended_errcode(connection);
    const bool full = IsDiskFull(connection, known);
    const int extended = full ? SQLITE_FULL : known;
    std::string message =
        full || connection == nullptr ? sqlite3_errstr(extended) : sqlite3_errmsg(connection);
    const int number = ErrorNumberFor(extended, message);
    if ((extended & 0xFF) == SQLITE_AUTH)
        message =
            "The database is a Microsoft Access file; Vellumark reads such files but doesn't write them.";
    else if ((extended & 0xFF) == SQLITE_BUSY)
        message = BusyText(connection);
    else if (std::ranges::find(kOfTheFile, number) != kOfTheFile.end())
        message += FileOf(connection);
    throw Error(number, message);
}

Statement::Statement(sqlite3* connection, std::string_view sql) : connection_(connection) {
    sqlite3_stmt* handle = nullptr;
    const char* rest = nullptr;
    Check(sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()), 0, &handle, &rest));
    handle_.reset(handle);
    if (!handle_)
        throw platform::Error(platform::kSyntaxError, "The statement is empty.");
    if (HoldsMore(connection, sql.substr(static_cast<std::size_t>(rest - sql.data()))))
        throw platform::Error(kCharactersAfterEnd, "Characters found after end of SQL statement.");
}

void Statement::Check(int code) const {
    if (code != SQLITE_OK)
        ThrowEngineError(connection_, code);
}

void Statement::Bind(int index, const Value& value) {
    sqlite3_stmt* statement = handle_.get();
    const int position = index + 1;
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        Check(sqlite3_bind_int64(statement, position, *integer));
    else if (const auto* real = std::get_if<double>(&value))
        Check(sqlite3_bind_double(statement, position, *real));
    else if (const auto* text = std::get_if<std::string>(&value))
        Check(sqlite3_bind_text64(statement, position, text->data(), text->size(), SQLITE_TRANSIENT,
                                  SQLITE_UTF8));
    else if (const auto* blob = std::get_if<Blob>(&value))
        Check(sqlite3_bind_blob64(statement, position, blob->bytes.data(), blob->bytes.size(),
                                  SQLITE_TRANSIENT));
    else
        Check(sqlite3_bind_null(statement, position));
}

void Statement::BindUnowned(int index, std::string_view text) {
    Check(
        sqlite3_bind_text64(handle_.get(), index + 1, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::BindInteger(int index, std::int64_t value) {
    Check(sqlite3_bind_int64(handle_.get(), index + 1, value));
}

void Statement::BindAll(const Parameters& parameters) {
    for (std::size_t i = 0; i < parameters.size(); ++i)
        Bind(static_cast<int>(i), parameters[i].Get());
}

bool Statement::Step() {
    const int code = sqlite3_step(handle_.get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    try {
        ThrowEngineError(connection_, code);
    } catch (...) {
        sqlite3_reset(handle_.get());
        throw;
    }
}

void Statement::Reset() {
    sqlite3_reset(handle_.get());
}

void Statement::Execute() {
    while (Step()) {
    }
    Reset();
}

Value Statement::ColumnValue(int column) const {
    sqlite3_stmt* statement = handle_.get();
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            return sqlite3_column_int64(statement, column);
        case SQLITE_FLOAT:
            return sqlite3_column_double(statement, column);
        case SQLITE_TEXT:
            return std::string(ColumnText(column));
        case SQLITE_BLOB: {
            const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
            const int size = sqlite3_column_bytes(statement, column);
            return Blob{bytes == nullptr ? std::string()
                                         : std::string(bytes, static_cast<std::size_t>(size))};
        }
        default:
            return std::monostate{};
    }
}

std::string_view Statement::ColumnText(int column) const {
    const void* text = sqlite3_column_text(handle_.get(), column);
    if (text == nullptr)
        return {};
    return {static_cast<const char*>(text),
            static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
}

}  // namespace vellumark::dao
