#include "platform/dao/access_catalog.h"

#include <algorithm>

#include "platform/access/properties.h"
#include "platform/dao/access_table.h"
#include "platform/dao/access_type.h"
#include "platform/dao/jet_sql.h"
#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

constexpr std::uint32_t kObjectsPage = 2;
constexpr std::string_view kObjects = "MSysObjects";
constexpr std::string_view kRelationships = "MSysRelationships";

// A table that the file's list of objects names.
struct Entry {
    std::string name;
    std::uint32_t page = 0;
    std::string properties;
};

ConnectionHandle OpenMemory() {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open(":memory:", &raw);
    ConnectionHandle connection(raw);
    if (code != SQLITE_OK)
        ThrowEngineError(raw, code);
    sqlite3_extended_result_codes(raw, 1);
    return connection;
}

void ShowTable(sqlite3* connection, std::string_view name, std::uint32_t page) {
    Statement(connection, "create virtual table " + Bracketed(name) + " using " + kAccessModule + "(" +
                              std::to_string(page) + ")")
        .Execute();
}

bool IsKept(std::string_view name, std::uint32_t flags) {
    constexpr std::uint32_t kOfTheSystem = 0x80000002U;
    if (platform::StartsWithIgnoringCase(name, "MSys"))
        return true;
    // A deleted table bears such a name until the file is compacted.
    return (flags & kOfTheSystem) == 0 && !name.starts_with('~');
}

std::vector<Entry> ReadEntries(sqlite3* connection) {
    constexpr std::uint32_t kPageBits = 0x00FFFFFFU;
    std::vector<Entry> entries;
    Statement rows(connection, "select [Name], [Id], [Flags], [LvProp] from [MSysObjects] where [Type] = 1");
    while (rows.Step())
        if (IsKept(rows.ColumnText(0), static_cast<std::uint32_t>(rows.ColumnInteger(2))))
            entries.push_back({std::string(rows.ColumnText(0)),
                               static_cast<std::uint32_t>(rows.ColumnInteger(1)) & kPageBits,
                               ToText(rows.ColumnValue(3))});
    std::ranges::sort(entries, platform::LessIgnoringCase, &Entry::name);
    return entries;
}

Index IndexFrom(const access::Index& read, const access::Table& table) {
    Index index{read.name, read.primary, read.unique, {}};
    for (const std::size_t column : read.columns)
        index.fields.push_back(table.columns[column].name);
    return index;
}

TableDef Definition(access::File& file, const Entry& entry) {
    const access::Table table = access::ReadTable(file, entry.page);
    access::ReadPageMap(file, table.pageMap);  // a file that is cut short had better be told of now
    TableDef definition{entry.name, {}, {}};
    for (const access::Column& column : table.columns) {
        Field field;
        field.name = column.name;
        field.type = TypeOf(column, file.IsJet3());
        field.ordinalPosition = static_cast<int>(definition.fields.size());
        definition.fields.push_back(std::move(field));
    }
    for (const access::Index& index : table.indexes) {
        definition.indexes.push_back(IndexFrom(index, table));
        if (index.primary)
            for (const std::size_t column : index.columns)
                definition.fields[column].required = true;
    }
    for (const access::ColumnProperties& properties :
         access::ReadProperties(file, access::Bytes(entry.properties)))
        for (Field& field : definition.fields)
            if (field.name == properties.column) {
                field.required = field.required || properties.required;
                field.allowZeroLength = properties.allowZeroLength;
            }
    return definition;
}

std::vector<Relation> ReadRelations(sqlite3* connection) {
    std::vector<Relation> relations;
    Statement rows(connection,
                   "select [szRelationship], [szReferencedObject], [szObject], [szReferencedColumn],"
                   " [szColumn] from [MSysRelationships] order by [szRelationship], [icolumn]");
    std::string last;
    while (rows.Step()) {
        if (relations.empty() || rows.ColumnText(0) != last)
            relations.push_back({std::string(rows.ColumnText(1)), std::string(rows.ColumnText(2)), {}});
        last = rows.ColumnText(0);
        relations.back().fields.push_back({std::string(rows.ColumnText(3)), std::string(rows.ColumnText(4))});
    }
    return relations;
}

AccessCatalog ReadCatalog(sqlite3* connection, access::File& file) {
    ShowTable(connection, kObjects, kObjectsPage);
    const std::vector<Entry> entries = ReadEntries(connection);
    Statement(connection, "drop table [MSysObjects]").Execute();
    AccessCatalog catalog;
    catalog.version = file.VersionName();
    for (const Entry& entry : entries) {
        catalog.tables.push_back(Definition(file, entry));
        ShowTable(connection, entry.name, entry.page);
    }
    if (std::ranges::find(entries, kRelationships, &Entry::name) != entries.end())
        catalog.relations = ReadRelations(connection);
    return catalog;
}

}  // namespace

ConnectionHandle OpenAccessFile(const std::string& path, std::string_view password, AccessCatalog& catalog) {
    const auto file = std::make_shared<access::File>(path, password);
    ConnectionHandle connection = OpenMemory();
    RegisterAccessModule(connection.get(), file);
    try {
        catalog = ReadCatalog(connection.get(), *file);
    } catch (const platform::Error& error) {
        if (error.Number() == platform::kUnrecognizedFormat)
            throw;
        access::ThrowDamaged("its catalog can't be read (" + error.Description() + ")");
    }
    MakeReadOnly(connection.get());
    return connection;
}

}  // namespace vellumark::dao
