#include "platform/odbc/catalog_dialects.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/error.h"
#include "platform/sqlite_tables.h"
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

template <typename Thing>
std::vector<Thing> Find(const ByTable<Thing>& things, const std::string& table) {
    const auto found = things.find(table);
    return found == things.end() ? std::vector<Thing>() : found->second;
}

// Rows of table and type.
std::vector<CatalogTable> ReadTables(Cursor& rows) {
    std::vector<CatalogTable> tables;
    while (rows.Next())
        tables.push_back({"", Text(rows, 0), Text(rows, 1)});
    return tables;
}

// Rows of table, index, primary, unique and column; those of one index stand together.
ByTable<CatalogIndex> ReadIndexes(Cursor& rows) {
    ByTable<CatalogIndex> tables;
    while (rows.Next()) {
        std::vector<CatalogIndex>& indexes = tables[Text(rows, 0)];
        if (indexes.empty() || indexes.back().name != rows.Text(1))
            indexes.push_back({Text(rows, 1), IsTrue(rows, 2), IsTrue(rows, 3), {}});
        indexes.back().columns.push_back(Text(rows, 4));
    }
    return tables;
}

// Rows of the parent's table and column and the child's.
ByTable<CatalogKey> ReadKeys(Cursor& rows) {
    ByTable<CatalogKey> tables;
    while (rows.Next())
        tables[Text(rows, 0)].push_back({Text(rows, 0), Text(rows, 1), Text(rows, 2), Text(rows, 3)});
    return tables;
}

// Rows of table and column.
void LeaveOut(ByTable<CatalogColumn>& columns, Cursor& rows) {
    while (rows.Next())
        std::erase_if(columns[Text(rows, 0)],
                      [&](const CatalogColumn& column) { return column.name == rows.Text(1); });
}

// Rows of table and column, as above.
void Require(ByTable<CatalogColumn>& columns, Cursor& rows) {
    while (rows.Next())
        for (CatalogColumn& column : columns[Text(rows, 0)])
            if (column.name == rows.Text(1))
                column.nullable = false;
}

constexpr std::string_view kPostgresGenerated =
    "select t.relname, a.attname from pg_attribute a join pg_class t on t.oid = a.attrelid"
    " join pg_namespace n on n.oid = t.relnamespace where n.nspname = ? and a.attgenerated <> ''";

constexpr std::string_view kPostgresIndexes =
    "select t.relname, i.relname, x.indisprimary, x.indisunique, a.attname from pg_index x"
    " join pg_class t on t.oid = x.indrelid join pg_namespace n on n.oid = t.relnamespace"
    " join pg_class i on i.oid = x.indexrelid"
    " join lateral unnest(x.indkey) with ordinality k (number, place) on k.place <= x.indnkeyatts"
    " join pg_attribute a on a.attrelid = t.oid and a.attnum = k.number"
    " where n.nspname = ? and x.indpred is null and x.indexprs is null"
    " order by t.relname, x.indisprimary desc, x.indisunique desc, i.relname, k.place";

// A key to a partitioned table stands there once more for each partition.
constexpr std::string_view kPostgresKeys =
    "select p.relname, pa.attname, c.relname, ca.attname from pg_constraint k"
    " join pg_class p on p.oid = k.confrelid join pg_namespace n on n.oid = p.relnamespace"
    " join pg_class c on c.oid = k.conrelid"
    " cross join lateral unnest(k.confkey, k.conkey) with ordinality u (parent, child, place)"
    " join pg_attribute pa on pa.attrelid = p.oid and pa.attnum = u.parent"
    " join pg_attribute ca on ca.attrelid = c.oid and ca.attnum = u.child"
    " where k.contype = 'f' and n.nspname = ? and not (k.conparentid <> 0 and p.relispartition)"
    " order by k.oid, u.place";

// The driver takes the database's name for a pattern.
constexpr std::string_view kMariaDBTables =
    "select table_name, if(table_type in ('BASE TABLE', 'SYSTEM VERSIONED'), 'TABLE', table_type)"
    " from information_schema.tables where table_schema = database() order by table_name";

constexpr std::string_view kMariaDBGenerated =
    "select table_name, column_name from information_schema.columns"
    " where table_schema = database() and extra like '% GENERATED'";

// The driver takes columns that count by themselves for nullable.
constexpr std::string_view kMariaDBRequired =
    "select table_name, column_name from information_schema.columns"
    " where table_schema = database() and is_nullable = 'NO'";

constexpr std::string_view kMariaDBIndexes =
    "select table_name, index_name, index_name = 'PRIMARY', non_unique = 0, column_name"
    " from information_schema.statistics where table_schema = database()"
    " order by binary table_name, index_name <> 'PRIMARY', non_unique, index_name, seq_in_index";

// The driver leaves out keys that point to a column of a unique index.
constexpr std::string_view kMariaDBKeys =
    "select referenced_table_name, referenced_column_name, table_name, column_name"
    " from information_schema.key_column_usage"
    " where table_schema = database() and referenced_table_schema = database()"
    " order by table_name, constraint_name, ordinal_position";

constexpr std::string_view kSqliteColumns =
    "select name, type, \"notnull\" or pk > 0 from pragma_table_xinfo(?) where hidden = 0 order by cid";

// SQLite may keep no index for the key.
constexpr std::string_view kSqlitePrimaryKey =
    "select arg, 'PrimaryKey', 1, 1, name from pragma_table_info(?) where pk > 0 order by pk";

constexpr std::string_view kSqliteIndexes =
    "select l.arg, l.name, 0, l.\"unique\", i.name from pragma_index_list(?) l, pragma_index_info(l.name) i"
    " where l.partial = 0 and l.origin <> 'pk'"
    " and not exists (select 1 from pragma_index_info(l.name) where name is null)"
    " order by l.seq desc, i.seqno";

// A key that names no columns of its parent means the parent's key.
constexpr std::string_view kSqliteKeys =
    "select t.name, coalesce(f.\"to\", p.name), m.name, f.\"from\""
    " from sqlite_master m join pragma_foreign_key_list(m.name) f"
    " join sqlite_master t on t.type = 'table' and t.name = f.\"table\" collate nocase"
    " left join pragma_table_info(t.name) p on p.pk = f.seq + 1 and f.\"to\" is null"
    " where m.type = 'table' order by m.rowid, f.id desc, f.seq";

// The answer for one table out of those for its owner, which `read` gets when nobody has asked before.
template <typename Thing, typename Reader>
std::vector<Thing> Ask(std::map<std::string, ByTable<Thing>>& owners, const CatalogTable& table,
                       Reader read) {
    auto owner = owners.find(table.owner);
    if (owner == owners.end())
        owner = owners.emplace(table.owner, read(table.owner)).first;
    return Find(owner->second, table.name);
}

}  // namespace

std::vector<CatalogTable> ServerCatalog::Tables() {
    columns_.clear();
    indexes_.clear();
    keys_.clear();
    return ListTables();
}

std::vector<CatalogColumn> ServerCatalog::Columns(const CatalogTable& table) {
    return Ask(columns_, table, [this](const std::string& owner) { return ColumnsOf(owner); });
}

std::vector<CatalogIndex> ServerCatalog::Indexes(const CatalogTable& table) {
    return Ask(indexes_, table, [this](const std::string& owner) { return IndexesOf(owner); });
}

std::vector<CatalogKey> ServerCatalog::KeysTo(const CatalogTable& parent) {
    return Ask(keys_, parent, [this](const std::string& owner) { return KeysOf(owner); });
}

// Databases that only speak like this one may keep other system tables; there the driver has to do.
std::vector<CatalogIndex> PostgresCatalog::Indexes(const CatalogTable& table) {
    try {
        return ServerCatalog::Indexes(table);
    } catch (const platform::Error&) {
        return Catalog::Indexes(table);
    }
}

std::vector<CatalogKey> PostgresCatalog::KeysTo(const CatalogTable& parent) {
    try {
        return ServerCatalog::KeysTo(parent);
    } catch (const platform::Error&) {
        return Catalog::KeysTo(parent);
    }
}

ByTable<CatalogColumn> PostgresCatalog::ColumnsOf(const std::string& owner) {
    ByTable<CatalogColumn> columns = ReadColumns(owner);
    try {
        LeaveOut(columns, *Source().Query(kPostgresGenerated, {owner}));
    } catch (const platform::Error&) {
        // Servers before version 12 have no such columns.
    }
    return columns;
}

ByTable<CatalogIndex> PostgresCatalog::IndexesOf(const std::string& owner) {
    return ReadIndexes(*Source().Query(kPostgresIndexes, {owner}));
}

ByTable<CatalogKey> PostgresCatalog::KeysOf(const std::string& owner) {
    return ReadKeys(*Source().Query(kPostgresKeys, {owner}));
}

std::vector<CatalogTable> MariaDBCatalog::ListTables() {
    if (Source().CurrentCatalog().empty())
        throw platform::Error(platform::kQueryFailed,
                              "No database is selected. Please name one in the connection (DATABASE).");
    return ReadTables(*Source().Query(kMariaDBTables));
}

ByTable<CatalogColumn> MariaDBCatalog::ColumnsOf(const std::string& owner) {
    ByTable<CatalogColumn> columns = ReadColumns(owner);
    LeaveOut(columns, *Source().Query(kMariaDBGenerated));
    Require(columns, *Source().Query(kMariaDBRequired));
    return columns;
}

ByTable<CatalogIndex> MariaDBCatalog::IndexesOf(const std::string& /*owner*/) {
    return ReadIndexes(*Source().Query(kMariaDBIndexes));
}

ByTable<CatalogKey> MariaDBCatalog::KeysOf(const std::string& /*owner*/) {
    return ReadKeys(*Source().Query(kMariaDBKeys));
}

std::vector<CatalogTable> SqliteCatalog::Tables() {
    keys_.reset();
    return ReadTables(*Source().Query(platform::kSqliteTables));
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
        std::ranges::move(Find(ReadIndexes(*Source().Query(query, {table.name})), table.name),
                          std::back_inserter(indexes));
    return indexes;
}

std::vector<CatalogKey> SqliteCatalog::KeysTo(const CatalogTable& parent) {
    if (!keys_)
        keys_ = ReadKeys(*Source().Query(kSqliteKeys));
    return Find(*keys_, parent.name);
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
