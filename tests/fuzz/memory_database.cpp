#include "memory_database.h"

#include <string_view>

#include "input.h"

namespace vellumark::fuzz {

namespace {

constexpr int kLongestText = 100000;
constexpr int kOperationsPerCall = 1000;
constexpr int kCalls = 200;

int callsLeft = 0;

int CountDown(void*) {
    return --callsLeft < 0 ? 1 : 0;
}

int StartCount(unsigned, void*, void*, void*) {
    callsLeft = kCalls;
    return 0;
}

// Nothing that leaves the database or the settings of this connection.
int Allow(void*, int action, const char* what, const char*, const char*, const char*) {
    const bool onlyLooks = action != SQLITE_PRAGMA || std::string_view(what).starts_with("table_") ||
                           std::string_view(what).starts_with("index_");
    return action == SQLITE_ATTACH || !onlyLooks ? SQLITE_DENY : SQLITE_OK;
}

dao::ConnectionHandle Open(const char* statements) {
    sqlite3* raw = nullptr;
    sqlite3_open(":memory:", &raw);
    dao::ConnectionHandle connection(raw);
    sqlite3_extended_result_codes(raw, 1);
    if (sqlite3_exec(raw, statements, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw Broken(sqlite3_errmsg(raw));
    sqlite3_set_authorizer(raw, Allow, nullptr);
    sqlite3_limit(raw, SQLITE_LIMIT_LENGTH, kLongestText);
    sqlite3_limit(raw, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(raw, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 100);
    sqlite3_progress_handler(raw, kOperationsPerCall, CountDown, nullptr);
    sqlite3_trace_v2(raw, SQLITE_TRACE_STMT, StartCount, nullptr);
    return connection;
}

}  // namespace

MemoryDatabase::MemoryDatabase(const char* statements) : database(Open(statements), ":memory:") {}

}  // namespace vellumark::fuzz
