#include "platform/odbc/catalog_dialects.h"

#include <algorithm>
#include <string_view>

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::odbc {

namespace {

using platform::Cursor;

std::string Text(const Cursor& rows, std::size_t column) {
    return std::string(rows.Text(column));
}

bool IsTrue(const Cursor& rows, std::size_t column) {
    return rows.Text(column) == "1";
}

// Rows of index, primary, unique and column; those of one index stand together.
void ReadIndexes(Cursor& rows, std::vector<CatalogIndex>& indexes) {
    while (rows.Next()) {
        if (indexes.empty() || indexes.back().name != rows.Text(0))
            indexes.push_back({Text(rows, 0), IsTrue(rows, 1), IsTrue(rows, 2), {}});
        indexes.back().columns.push_back(Text(rows, 3));
    }
}

// Rows of the parent's table and column and the child's.
std::vector<CatalogKey> ReadKeys(Cursor& rows) {
    std::vector<CatalogKey> keys;
    while (rows.Next())
        keys.push_back({Text(rows, 0), Text(rows, 1), Text(rows, 2), Text(rows, 3)});
    return keys;
}

void LeaveOut(std::vector<CatalogColumn>& columns, Cursor& names) {
    while (names.Next())
        std::erase_if(columns, [&](const CatalogColumn& column) { return column.name == names.Text(0); });
}

constexpr std::string_view kPostgresGenerated =
    "select a.attname from pg_attribute a join pg_class t on t.oid = a.attrelid"
    " join pg_namespace n on n.oid = t.relnamespace"
    " where n.nspname = ? and t.relname = ? and a.attgenerated <> ''";

constexpr std::string_view kPostgresIndexes =
    "select i.relname, x.indisprimary, x.indisunique, a.attname from pg_index x"
    " join pg_class t on t.oid = x.indrelid join pg_namespace n on n.oid = t.relnamespace"
    " join pg_class i on i.oid = x.indexrelid"
    " join lateral unnest(x.indkey) with ordinality k (number, place) on k.place <= x.indnkeyatts"
    " join pg_attribute a on a.attrelid = t.oid and a.attnum = k.number"
    " where n.nspname = ? and t.relname = ? and x.indpred is null and x.indexprs is null"
    " order by x.indisprimary desc, x.indisunique desc, i.relname, k.place";

// The first condition lets the server look in one table; the second one minds the case.
constexpr std::string_view kMariaDBGenerated =
    "select column_name from information_schema.columns where table_schema = database()"
    " and table_name = ? and binary table_name = ? and extra like '% GENERATED'";

constexpr std::string_view kMariaDBIndexes =
    "select index_name, index_name = 'PRIMARY', non_unique = 0, column_name"
    " from information_schema.statistics where table_schema = database()"
    " and table_name = ? and binary table_name = ?"
    " order by index_name <> 'PRIMARY', non_unique, index_name, seq_in_index";

// The driver leaves out keys that point to a column of a unique index.
constexpr std::string_view kMariaDBKeys =
    "select referenced_table_name, referenced_column_name, table_name, column_name"
    " from information_schema.key_column_usage"
    " where table_schema = database() and referenced_table_schema = database()"
    " order by table_name, constraint_name, ordinal_position";

constexpr std::string_view kSqliteTables =
    "select name, type from sqlite_master where type in ('table', 'view') order by rowid";

constexpr std::string_view kSqliteColumns =
    "select name, type, \"notnull\" or pk > 0 from pragma_table_xinfo(?) where hidden = 0 order by cid";

// SQLite may keep no index for the key.
constexpr std::string_view kSqlitePrimaryKey =
    "select 'PrimaryKey', 1, 1, name from pragma_table_info(?) where pk > 0 order by pk";

constexpr std::string_view kSqliteIndexes =
    "select l.name, 0, l.\"unique\", i.name from pragma_index_list(?) l, pragma_index_info(l.name) i"
    " where l.partial = 0 and l.origin <> 'pk'"
    " and not exists (select 1 from pragma_index_info(l.name) where name is null)"
    " order by l.seq desc, i.seqno";

// A key that names no columns of its parent means the parent's key.
constexpr std::string_view kSqliteKeys =
    "select f.\"table\", coalesce(f.\"to\", p.name), m.name, f.\"from\""
    " from sqlite_master m join pragma_foreign_key_list(m.name) f"
    " left join pragma_table_info(f.\"table\") p on p.pk = f.seq + 1"
    " where m.type = 'table' and f.\"table\" = ? collate nocase order by m.rowid, f.id desc, f.seq";

}  // namespace

std::vector<CatalogColumn> PostgresCatalog::Columns(const CatalogTable& table) {
    std::vector<CatalogColumn> columns = Catalog::Columns(table);
    try {
        LeaveOut(columns, *Source().Query(kPostgresGenerated, {table.owner, table.name}));
    } catch (const platform::Error&) {
        // Servers before version 12 have no such columns.
    }
    return columns;
}

std::vector<CatalogIndex> PostgresCatalog::Indexes(const CatalogTable& table) {
    std::vector<CatalogIndex> indexes;
    try {
        ReadIndexes(*Source().Query(kPostgresIndexes, {table.owner, table.name}), indexes);
        return indexes;
    } catch (const platform::Error&) {
        // Databases that only speak like this one may keep other system tables.
        return Catalog::Indexes(table);
    }
}

std::vector<CatalogTable> MariaDBCatalog::Tables() {
    if (Source().CurrentCatalog().empty())
        throw platform::Error(platform::kQueryFailed,
                              "No database is selected. Please name one in the connection (DATABASE).");
    keys_.reset();
    return Catalog::Tables();
}

std::vector<CatalogColumn> MariaDBCatalog::Columns(const CatalogTable& table) {
    std::vector<CatalogColumn> columns = Catalog::Columns(table);
    LeaveOut(columns, *Source().Query(kMariaDBGenerated, {table.name, table.name}));
    return columns;
}

std::vector<CatalogIndex> MariaDBCatalog::Indexes(const CatalogTable& table) {
    std::vector<CatalogIndex> indexes;
    ReadIndexes(*Source().Query(kMariaDBIndexes, {table.name, table.name}), indexes);
    return indexes;
}

std::vector<CatalogKey> MariaDBCatalog::KeysTo(const CatalogTable& parent) {
    if (!keys_)
        keys_ = ReadKeys(*Source().Query(kMariaDBKeys));
    std::vector<CatalogKey> keys = *keys_;
    std::erase_if(keys, [&](const CatalogKey& key) { return key.parentTable != parent.name; });
    return keys;
}

std::vector<CatalogTable> SqliteCatalog::Tables() {
    std::vector<CatalogTable> tables;
    const std::unique_ptr<Cursor> rows = Source().Query(kSqliteTables);
    while (rows->Next()) {
        const bool isSystem = platform::StartsWithIgnoringCase(rows->Text(0), "sqlite_");
        tables.push_back({"", Text(*rows, 0), isSystem ? "SYSTEM TABLE" : platform::ToUpper(rows->Text(1))});
    }
    return tables;
}

std::vector<CatalogColumn> SqliteCatalog::Columns(const CatalogTable& table) {
    std::vector<CatalogColumn> columns;
    const std::unique_ptr<Cursor> rows = Source().Query(kSqliteColumns, {table.name});
    while (rows->Next()) {
        CatalogColumn column;
        column.name = rows->Text(0);
        column.typeName = rows->Text(1);
        column.nullable = !IsTrue(*rows, 2);
        columns.push_back(std::move(column));
    }
    return columns;
}

std::vector<CatalogIndex> SqliteCatalog::Indexes(const CatalogTable& table) {
    std::vector<CatalogIndex> indexes;
    for (const std::string_view query : {kSqlitePrimaryKey, kSqliteIndexes})
        ReadIndexes(*Source().Query(query, {table.name}), indexes);
    return indexes;
}

std::vector<CatalogKey> SqliteCatalog::KeysTo(const CatalogTable& parent) {
    return ReadKeys(*Source().Query(kSqliteKeys, {parent.name}));
}

std::unique_ptr<Catalog> OpenCatalog(const Connection& connection) {
    const std::string name = connection.Info(SQL_DBMS_NAME);
    const auto is = [&](std::string_view word) { return platform::ContainsIgnoringCase(name, word); };
    if (is("PostgreSQL"))
        return std::make_unique<PostgresCatalog>(connection);
    if (is("MariaDB") || is("MySQL"))
        return std::make_unique<MariaDBCatalog>(connection);
    if (is("SQLite"))
        return std::make_unique<SqliteCatalog>(connection);
    return std::make_unique<Catalog>(connection);
}

}  // namespace vellumark::odbc
