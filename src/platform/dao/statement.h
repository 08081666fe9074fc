#pragma once

#include <cstdint>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>

#include "platform/dao/value.h"

namespace vellumark::dao {

struct CloseConnection {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using ConnectionHandle = std::unique_ptr<sqlite3, CloseConnection>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// Throws the data engine's error for a failed call.
// How long a change waits for another program to let go of the file.
inline constexpr int kBusyWaitSeconds = 5;

[[noreturn]] void ThrowEngineError(sqlite3* connection, int code);

// A prepared statement: bind, step through its rows, reset, bind again. Parameters and columns count from 0.
// Must not outlive the database that prepared it. A text of several statements is refused whole.
class Statement {
 public:
    Statement(sqlite3* connection, std::string_view sql);

    // The view is copied by Bind; BindUnowned leaves it to the caller to keep the text until Reset.
    void Bind(int index, const Value& value);
    void BindUnowned(int index, std::string_view text);
    void BindInteger(int index, std::int64_t value);
    void BindAll(const Parameters& parameters);

    // True when a row stands ready.
    bool Step();
    void Reset();
    // Runs a statement without rows and makes it ready for the next values.
    void Execute();

    int ColumnCount() const { return sqlite3_column_count(handle_.get()); }
    std::string_view ColumnName(int column) const { return sqlite3_column_name(handle_.get(), column); }
    Value ColumnValue(int column) const;
    bool ColumnIsNull(int column) const { return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL; }
    bool ColumnIsBlob(int column) const { return sqlite3_column_type(handle_.get(), column) == SQLITE_BLOB; }
    std::int64_t ColumnInteger(int column) const { return sqlite3_column_int64(handle_.get(), column); }
    bool ColumnIsReal(int column) const { return sqlite3_column_type(handle_.get(), column) == SQLITE_FLOAT; }
    double ColumnReal(int column) const { return sqlite3_column_double(handle_.get(), column); }
    // Valid until the next Step or Reset. Null reads as empty.
    std::string_view ColumnText(int column) const;

 private:
    void Check(int code) const;

    sqlite3* connection_;
    StatementHandle handle_;
};

}  // namespace vellumark::dao
