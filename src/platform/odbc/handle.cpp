#include "platform/odbc/handle.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "platform/connection_string.h"
#include "platform/error.h"

namespace vellumark::odbc {

namespace {

struct Record {
    std::string state;
    SQLINTEGER number = 0;
    std::string text;

    bool IsError() const { return !state.starts_with("01") && !state.starts_with("00"); }
};

// False behind the last record. Records count from 1.
bool ReadRecord(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT place, Record& record) {
    SQLCHAR state[6] = {};
    SQLSMALLINT length = 0;
    record.text.resize(2000);
    const auto read = [&] {
        return SQLGetDiagRec(type, handle, place, state, &record.number, Bytes(record.text),
                             static_cast<SQLSMALLINT>(record.text.size()), &length);
    };
    SQLRETURN code = read();
    if (code == SQL_SUCCESS_WITH_INFO && static_cast<std::size_t>(length) >= record.text.size()) {
        record.text.resize(std::min<std::size_t>(static_cast<std::size_t>(length) + 1, 32000));
        code = read();
    }
    if (!SQL_SUCCEEDED(code))
        return false;
    record.text.resize(std::min(record.text.size() - 1, static_cast<std::size_t>(length)));
    record.text.resize(record.text.find_last_not_of(" \r\n") + 1);
    record.state = std::string(state, state + 5);
    return true;
}

[[noreturn]] void Throw(SQLSMALLINT type, SQLHANDLE handle) {
    int number = platform::kQueryFailed;
    std::string description;
    Record record;
    for (SQLSMALLINT place = 1; ReadRecord(type, handle, place, record); ++place) {
        if (number == platform::kQueryFailed && record.IsError() && record.number != 0)
            number = record.number;
        description += (description.empty() ? "[" : "\n[") + record.state + "] " + record.text;
    }
    if (description.empty())
        description = "ODBC call failed.";
    // A driver may repeat the connection string that it was given.
    throw platform::Error(number, platform::MaskPasswords(description));
}

}  // namespace

Handle NewHandle(SQLSMALLINT type, SQLHANDLE parent) {
    // Texts are UTF-8 whatever the user's locale says; the PostgreSQL driver can only be told this way.
    if (type == SQL_HANDLE_ENV)
        setenv("PGCLIENTENCODING", "UTF8", 1);
    SQLHANDLE raw = SQL_NULL_HANDLE;
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &raw)))
        Throw(type == SQL_HANDLE_STMT ? SQL_HANDLE_DBC : SQL_HANDLE_ENV, parent);
    Handle handle(raw, {type});
    if (type == SQL_HANDLE_ENV)
        Check(SQLSetEnvAttr(raw, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                            SQL_IS_UINTEGER),
              handle);
    return handle;
}

void ThrowDiagnostics(const Handle& handle) {
    Throw(handle.get_deleter().type, handle.get());
}

std::function<void()> Cancelling(const Handle& statement) {
    return [raw = statement.get()] { SQLCancel(raw); };
}

SQLCHAR* Bytes(std::string_view text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.data()));
}

}  // namespace vellumark::odbc
