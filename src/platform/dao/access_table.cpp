#include "platform/dao/access_table.h"

#include <optional>

#include "platform/access/field_value.h"
#include "platform/dao/statement.h"
#include "platform/error.h"
#include "platform/text.h"

// The data engine's interface for tables that others hold: records that it points to by their C base, and
// functions that must not throw.
namespace vellumark::dao {

namespace {

struct AccessTable : sqlite3_vtab {
    std::shared_ptr<access::File> file;
    access::Table table;
};

struct AccessCursor : sqlite3_vtab_cursor {
    explicit AccessCursor(const AccessTable& owner) : sqlite3_vtab_cursor{}, of(&owner) {}

    const AccessTable* of;
    std::optional<access::Rows> rows;
    bool atEnd = true;
    std::string buffer;
};

AccessCursor& CursorOf(sqlite3_vtab_cursor* cursor) {
    return *static_cast<AccessCursor*>(cursor);
}

// Runs what may throw, and leaves the error's text where the engine looks for it.
template <typename Work>
int Guarded(char*& message, const Work& work) {
    try {
        work();
        return SQLITE_OK;
    } catch (const platform::Error& error) {
        sqlite3_free(message);
        message = sqlite3_mprintf("%s", error.what());
        return SQLITE_CORRUPT;
    } catch (const std::exception&) {
        return SQLITE_NOMEM;
    }
}

std::string Declaration(const AccessTable& table) {
    std::string columns;
    for (const access::Column& column : table.table.columns) {
        const bool isText = column.kind == access::Kind::Text || column.kind == access::Kind::Memo;
        columns += columns.empty() ? "" : ", ";
        columns += "\"" + platform::Replace(column.name, "\"", "\"\"") + "\"";
        columns += isText ? " text collate nocase" : " numeric";
    }
    return "create table T (" + columns + ")";
}

std::uint32_t PageIn(int count, const char* const* words) {
    constexpr int kFirstArgument = 3;
    const std::optional<int> page =
        count > kFirstArgument ? platform::ParseLong(words[kFirstArgument]) : std::nullopt;
    if (!page || *page < 0)
        access::ThrowDamaged("a table has no definition");
    return static_cast<std::uint32_t>(*page);
}

int Connect(sqlite3* connection, void* file, int count, const char* const* words, sqlite3_vtab** table,
            char** message) {
    return Guarded(*message, [&] {
        auto made = std::make_unique<AccessTable>();
        made->file = *static_cast<std::shared_ptr<access::File>*>(file);
        made->table = access::ReadTable(*made->file, PageIn(count, words));
        const int code = sqlite3_declare_vtab(connection, Declaration(*made).c_str());
        if (code != SQLITE_OK)
            ThrowEngineError(connection, code);
        *table = made.release();
    });
}

int Disconnect(sqlite3_vtab* table) {
    const std::unique_ptr<AccessTable> gone(static_cast<AccessTable*>(table));
    return SQLITE_OK;
}

// A table is always read from its first row to its last.
int BestIndex(sqlite3_vtab* table, sqlite3_index_info* plan) {
    const double rows = static_cast<AccessTable*>(table)->table.rowCount;
    plan->estimatedCost = rows + 1;
    plan->estimatedRows = static_cast<sqlite3_int64>(rows) + 1;
    return SQLITE_OK;
}

int Open(sqlite3_vtab* table, sqlite3_vtab_cursor** cursor) {
    return Guarded(table->zErrMsg, [&] {
        *cursor = std::make_unique<AccessCursor>(*static_cast<AccessTable*>(table)).release();
    });
}

int Close(sqlite3_vtab_cursor* cursor) {
    const std::unique_ptr<AccessCursor> gone(&CursorOf(cursor));
    return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
    AccessCursor& at = CursorOf(cursor);
    return Guarded(cursor->pVtab->zErrMsg, [&] { at.atEnd = !at.rows->Next(); });
}

int Filter(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value**) {
    AccessCursor& at = CursorOf(cursor);
    return Guarded(cursor->pVtab->zErrMsg, [&] {
        at.rows.emplace(*at.of->file, at.of->table);
        at.atEnd = !at.rows->Next();
    });
}

int AtEnd(sqlite3_vtab_cursor* cursor) {
    return CursorOf(cursor).atEnd ? 1 : 0;
}

int GiveColumn(sqlite3_vtab_cursor* cursor, sqlite3_context* result, int column) {
    AccessCursor& at = CursorOf(cursor);
    return Guarded(cursor->pVtab->zErrMsg, [&] {
        access::GiveField(result, *at.of->file, *at.rows,
                          at.of->table.columns.at(static_cast<std::size_t>(column)), at.buffer);
    });
}

int GiveRowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) {
    *id = CursorOf(cursor).rows->Place().packed;
    return SQLITE_OK;
}

// Never gets to run, but without it the engine refuses changes in words of its own.
int Update(sqlite3_vtab*, int, sqlite3_value**, sqlite3_int64*) {
    return SQLITE_READONLY;
}

sqlite3_module MakeModule() {
    sqlite3_module made{};
    made.xCreate = made.xConnect = Connect;
    made.xDisconnect = made.xDestroy = Disconnect;
    made.xBestIndex = BestIndex;
    made.xOpen = Open;
    made.xClose = Close;
    made.xFilter = Filter;
    made.xNext = Next;
    made.xEof = AtEnd;
    made.xColumn = GiveColumn;
    made.xRowid = GiveRowId;
    made.xUpdate = Update;
    return made;
}

int AllowReading(void*, int action, const char* table, const char*, const char*, const char*) {
    switch (action) {
        case SQLITE_UPDATE:
            // The engine itself does so when it looks at its own catalog again; nobody else can.
            return std::string_view(table) == "sqlite_master" ? SQLITE_OK : SQLITE_DENY;
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_FUNCTION:
        case SQLITE_RECURSIVE:
        case SQLITE_PRAGMA:
        case SQLITE_TRANSACTION:
        case SQLITE_SAVEPOINT:
            return SQLITE_OK;
        default:
            return SQLITE_DENY;
    }
}

}  // namespace

void RegisterAccessModule(sqlite3* connection, const std::shared_ptr<access::File>& file) {
    static const sqlite3_module module = MakeModule();
    auto owned = std::make_unique<std::shared_ptr<access::File>>(file);
    // The engine lets go of it even when the call fails.
    const int code =
        sqlite3_create_module_v2(connection, kAccessModule, &module, owned.release(), [](void* held) {
            const std::unique_ptr<std::shared_ptr<access::File>> gone(
                static_cast<std::shared_ptr<access::File>*>(held));
        });
    if (code != SQLITE_OK)
        ThrowEngineError(connection, code);
}

void MakeReadOnly(sqlite3* connection) {
    sqlite3_set_authorizer(connection, AllowReading, nullptr);
}

}  // namespace vellumark::dao
