#include "platform/odbc/catalog.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "platform/error.h"
#include "platform/odbc/rows.h"

namespace vellumark::odbc {

namespace {

// Columns of the catalog functions' results.
enum TableField { kTableOwner = 1, kTableName = 2, kTableType = 3 };
enum ColumnField {
    kColumnTable = 2,
    kColumnName = 3,
    kColumnType = 4,
    kColumnTypeName = 5,
    kColumnSize = 6,
    kColumnDigits = 8,
    kColumnNullable = 10,
};
enum StatisticsField { kNonUnique = 3, kIndexName = 5, kIndexType = 6, kIndexColumn = 8, kIndexFilter = 12 };
enum KeyField { kParentTable = 2, kParentColumn = 3, kChildTable = 6, kChildColumn = 7 };
enum PrimaryKeyField { kKeyColumn = 3, kKeyPlace = 4 };

// An argument of a catalog function; one that does not restrict is a null pointer.
struct Argument {
    explicit Argument(const std::string& text) : bytes(text.empty() ? nullptr : Bytes(text)) {}

    SQLCHAR* bytes;
};

// What is beyond 32 bits counts as their end; what is no number as nothing.
std::optional<int> Number(const Rows& rows, std::size_t column) {
    const std::string_view text = rows.Text(column);
    long long number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc{})
        return std::nullopt;
    return static_cast<int>(
        std::clamp<long long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::string Text(const Rows& rows, std::size_t column) {
    return std::string(rows.Text(column));
}

CatalogColumn ReadColumn(const Rows& rows) {
    CatalogColumn column;
    column.name = Text(rows, kColumnName);
    column.sqlType = Number(rows, kColumnType).value_or(SQL_VARCHAR);
    column.typeName = Text(rows, kColumnTypeName);
    column.size = Number(rows, kColumnSize);
    column.scale = Number(rows, kColumnDigits);
    column.nullable = Number(rows, kColumnNullable) != SQL_NO_NULLS;
    return column;
}

// Rows of one index stand together. An index with a part that is no plain column ends up without columns.
std::vector<CatalogIndex> ReadStatistics(Rows& rows) {
    std::vector<CatalogIndex> indexes;
    bool isPlain = true;
    while (rows.Next()) {
        if (Number(rows, kIndexType) == SQL_TABLE_STAT)
            continue;
        if (indexes.empty() || indexes.back().name != rows.Text(kIndexName)) {
            indexes.push_back({Text(rows, kIndexName), false, Number(rows, kNonUnique) == 0, {}});
            isPlain = true;
        }
        isPlain = isPlain && !rows.Text(kIndexColumn).empty() && rows.Text(kIndexFilter).empty();
        if (isPlain)
            indexes.back().columns.push_back(Text(rows, kIndexColumn));
        else
            indexes.back().columns.clear();
    }
    std::erase_if(indexes, [](const CatalogIndex& index) { return index.columns.empty(); });
    return indexes;
}

void MarkPrimaryKey(std::vector<CatalogIndex>& indexes, const std::vector<std::string>& key) {
    if (key.empty())
        return;
    const auto isKey = [&](const CatalogIndex& index) {
        return index.unique && std::ranges::is_permutation(index.columns, key);
    };
    const auto found = std::ranges::find_if(indexes, isKey);
    if (found == indexes.end())
        indexes.insert(indexes.begin(), {"PrimaryKey", true, true, key});
    else
        found->primary = true;
}

}  // namespace

Catalog::Catalog(const Connection& connection)
    : connection_(connection),
      catalog_(connection.CurrentCatalog()),
      escape_(connection.Info(SQL_SEARCH_PATTERN_ESCAPE)) {}

std::vector<CatalogTable> Catalog::Tables() {
    Handle statement = connection_.NewStatement();
    Check(SQLTables(statement.get(), Argument(catalog_).bytes, SQL_NTS, nullptr, 0, nullptr, 0, nullptr, 0),
          statement);
    std::vector<CatalogTable> tables;
    for (Rows rows(std::move(statement)); rows.Next();)
        tables.push_back({Text(rows, kTableOwner), Text(rows, kTableName), Text(rows, kTableType)});
    return tables;
}

std::vector<CatalogColumn> Catalog::Columns(const CatalogTable& table) {
    std::vector<CatalogColumn> columns = ReadColumns(table.owner, table.name)[table.name];
    const std::vector<std::string> key = PrimaryKey(table);
    for (CatalogColumn& column : columns)
        if (std::ranges::find(key, column.name) != key.end())
            column.nullable = false;
    return columns;
}

ByTable<CatalogColumn> Catalog::ReadColumns(const std::string& owner, const std::string& table) const {
    Handle statement = connection_.NewStatement();
    const std::string ownerPattern = Escaped(owner);
    const std::string tablePattern = Escaped(table);
    Check(SQLColumns(statement.get(), Argument(catalog_).bytes, SQL_NTS, Argument(ownerPattern).bytes,
                     SQL_NTS, Argument(tablePattern).bytes, SQL_NTS, nullptr, 0),
          statement);
    ByTable<CatalogColumn> columns;
    for (Rows rows(std::move(statement)); rows.Next();)
        columns[Text(rows, kColumnTable)].push_back(ReadColumn(rows));
    return columns;
}

std::vector<CatalogIndex> Catalog::Indexes(const CatalogTable& table) {
    std::vector<CatalogIndex> indexes;
    Handle statement = connection_.NewStatement();
    const SQLRETURN code =
        SQLStatistics(statement.get(), Argument(catalog_).bytes, SQL_NTS, Argument(table.owner).bytes,
                      SQL_NTS, Argument(table.name).bytes, SQL_NTS, SQL_INDEX_ALL, SQL_QUICK);
    if (SQL_SUCCEEDED(code)) {
        Rows rows(std::move(statement));
        indexes = ReadStatistics(rows);
    }
    MarkPrimaryKey(indexes, PrimaryKey(table));
    return indexes;
}

// In the order of the key's columns; empty also where the driver has no such function.
std::vector<std::string> Catalog::PrimaryKey(const CatalogTable& table) const {
    Handle statement = connection_.NewStatement();
    const SQLRETURN code =
        SQLPrimaryKeys(statement.get(), Argument(catalog_).bytes, SQL_NTS, Argument(table.owner).bytes,
                       SQL_NTS, Argument(table.name).bytes, SQL_NTS);
    if (!SQL_SUCCEEDED(code))
        return {};
    std::vector<std::pair<int, std::string>> columns;
    for (Rows rows(std::move(statement)); rows.Next();)
        columns.emplace_back(Number(rows, kKeyPlace).value_or(0), Text(rows, kKeyColumn));
    std::ranges::stable_sort(columns, {}, [](const auto& column) { return column.first; });
    std::vector<std::string> names;
    for (auto& [place, name] : columns)
        names.push_back(std::move(name));
    return names;
}

std::vector<CatalogKey> Catalog::KeysTo(const CatalogTable& parent) {
    Handle statement = connection_.NewStatement();
    Check(SQLForeignKeys(statement.get(), Argument(catalog_).bytes, SQL_NTS, Argument(parent.owner).bytes,
                         SQL_NTS, Argument(parent.name).bytes, SQL_NTS, nullptr, 0, nullptr, 0, nullptr, 0),
          statement);
    std::vector<CatalogKey> keys;
    for (Rows rows(std::move(statement)); rows.Next();)
        keys.push_back({Text(rows, kParentTable), Text(rows, kParentColumn), Text(rows, kChildTable),
                        Text(rows, kChildColumn)});
    return keys;
}

// Names are patterns to some of the functions.
std::string Catalog::Escaped(const std::string& name) const {
    if (escape_.empty())
        return name;
    std::string pattern;
    for (const char c : name) {
        if (c == '_' || c == '%' || escape_.front() == c)
            pattern += escape_;
        pattern += c;
    }
    return pattern;
}

}  // namespace vellumark::odbc
