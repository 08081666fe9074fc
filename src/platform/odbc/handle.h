#pragma once

#include <functional>
#include <memory>
#include <sql.h>
#include <sqlext.h>
#include <string_view>

namespace vellumark::odbc {

struct FreeHandle {
    SQLSMALLINT type;
    void operator()(SQLHANDLE handle) const { SQLFreeHandle(type, handle); }
};
using Handle = std::unique_ptr<void, FreeHandle>;

// `parent` is null for an environment, which speaks ODBC 3. Throws platform::Error.
Handle NewHandle(SQLSMALLINT type, SQLHANDLE parent);

// Throws what driver and driver manager tell of the last call on the handle: the driver's own number or
// kQueryFailed, and for each record "[SQLSTATE] text".
[[noreturn]] void ThrowDiagnostics(const Handle& handle);

inline void Check(SQLRETURN code, const Handle& handle) {
    if (!SQL_SUCCEEDED(code))
        ThrowDiagnostics(handle);
}

// What ends the statement's call from another thread; the handle must outlive it.
std::function<void()> Cancelling(const Handle& statement);

// The interface takes its texts as bytes that it never changes.
SQLCHAR* Bytes(std::string_view text);

}  // namespace vellumark::odbc
