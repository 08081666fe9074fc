#include "platform/odbc/sources.h"

#include "platform/error.h"
#include "platform/odbc/handle.h"

namespace vellumark::odbc {

namespace {

constexpr SQLSMALLINT kBufferSize = 1024;

using List = decltype(&SQLDataSources);

// Each entry as a name and what the list says of it.
std::vector<DataSource> ReadList(List list) {
    std::vector<DataSource> entries;
    try {
        const Handle environment = NewHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
        SQLCHAR name[kBufferSize] = {};
        SQLCHAR text[kBufferSize] = {};
        SQLSMALLINT nameLength = 0;
        SQLSMALLINT textLength = 0;
        SQLUSMALLINT direction = SQL_FETCH_FIRST;
        while (SQL_SUCCEEDED(list(environment.get(), direction, name, kBufferSize, &nameLength, text,
                                  kBufferSize, &textLength))) {
            entries.push_back({reinterpret_cast<char*>(name), reinterpret_cast<char*>(text)});
            direction = SQL_FETCH_NEXT;
        }
    } catch (const platform::Error&) {
        entries.clear();
    }
    return entries;
}

}  // namespace

std::vector<DataSource> DataSources() {
    return ReadList(SQLDataSources);
}

std::vector<std::string> Drivers() {
    std::vector<std::string> names;
    for (DataSource& entry : ReadList(SQLDrivers))
        names.push_back(std::move(entry.name));
    return names;
}

}  // namespace vellumark::odbc
