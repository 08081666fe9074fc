#include "platform/dao/table_def.h"

#include <algorithm>
#include <map>

#include "platform/dao/access_catalog.h"
#include "platform/dao/database.h"
#include "platform/dao/jet_sql.h"
#include "platform/dao/odbc_link.h"
#include "platform/error.h"
#include "platform/sqlite_tables.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

using platform::EqualsIgnoringCase;

// Columns of the pragma's rows.
enum XInfo { kName = 1, kType = 2, kNotNull = 3, kKeyPlace = 5, kHidden = 6 };

struct KeyField {
    int place;
    std::string name;
};

struct Columns {
    std::vector<Field> fields;
    std::vector<KeyField> key;
};

Columns ReadColumns(const Database& database, std::string_view table) {
    Columns columns;
    Statement info = database.Prepare("pragma table_xinfo(" + Bracketed(table) + ")");
    while (info.Step()) {
        if (info.ColumnInteger(kHidden) != 0)
            continue;
        const int keyPlace = static_cast<int>(info.ColumnInteger(kKeyPlace));
        Field field;
        field.name = info.ColumnText(kName);
        field.type = ReadDeclaredType(info.ColumnText(kType));
        field.required = info.ColumnInteger(kNotNull) != 0 || keyPlace > 0;
        field.ordinalPosition = static_cast<int>(columns.fields.size());
        if (keyPlace > 0)
            columns.key.push_back({keyPlace, field.name});
        columns.fields.push_back(std::move(field));
    }
    std::ranges::sort(columns.key, {}, &KeyField::place);
    return columns;
}

Index PrimaryIndex(const std::vector<KeyField>& key) {
    Index index{"PrimaryKey", true, true, {}};
    for (const KeyField& field : key)
        index.fields.push_back(field.name);
    return index;
}

// Indexes on expressions and partial ones say nothing about a row's columns; they are left out.
std::vector<Index> ReadIndexes(const Database& database, std::string_view table) {
    enum { kIndexName = 1, kUnique = 2, kOrigin = 3, kPartial = 4, kColumnName = 2 };
    std::vector<Index> indexes;
    Statement list = database.Prepare("pragma index_list(" + Bracketed(table) + ")");
    while (list.Step()) {
        if (list.ColumnText(kOrigin) == "pk" || list.ColumnInteger(kPartial) != 0)
            continue;
        Index index{std::string(list.ColumnText(kIndexName)), false, list.ColumnInteger(kUnique) != 0, {}};
        Statement info = database.Prepare("pragma index_info(" + Bracketed(index.name) + ")");
        bool plain = true;
        while (info.Step()) {
            plain = plain && !dao::IsNull(info.ColumnValue(kColumnName));
            index.fields.emplace_back(info.ColumnText(kColumnName));
        }
        if (plain)
            indexes.push_back(std::move(index));
    }
    std::ranges::reverse(indexes);
    return indexes;
}

// Keys of one table in the order of their declaration, which the pragma counts backwards.
std::map<int, Relation, std::greater<>> ReadForeignKeys(const Database& database, const std::string& table) {
    enum { kId = 0, kPlace = 1, kParent = 2, kFrom = 3, kTo = 4 };
    std::map<int, Relation, std::greater<>> keys;
    Statement list = database.Prepare("pragma foreign_key_list(" + Bracketed(table) + ")");
    while (list.Step()) {
        Relation& key = keys[static_cast<int>(list.ColumnInteger(kId))];
        key.table = list.ColumnText(kParent);
        key.foreignTable = table;
        std::string parentColumn(list.ColumnText(kTo));
        if (parentColumn.empty()) {
            const std::vector<KeyField> parentKey = ReadColumns(database, key.table).key;
            const auto place = static_cast<std::size_t>(list.ColumnInteger(kPlace));
            if (place < parentKey.size())
                parentColumn = parentKey[place].name;
        }
        key.fields.push_back({std::move(parentColumn), std::string(list.ColumnText(kFrom))});
    }
    return keys;
}

std::string Declaration(const Field& field) {
    return Bracketed(field.name) + " " + DeclarationOf(field.type.daoType, field.type.daoSize);
}

}  // namespace

std::vector<std::string> Database::TableNames() const {
    if (link_)
        return link_->TableNames();
    std::vector<std::string> names;
    if (access_) {
        for (const TableDef& table : access_->tables)
            names.push_back(table.name);
        return names;
    }
    Statement list = Prepare("select name from (" + std::string(platform::kSqliteTables) +
                             ") where kind = 'TABLE' or name like 'MSys%'");
    while (list.Step())
        names.emplace_back(list.ColumnText(0));
    return names;
}

TableDef Database::TableDefinition(std::string_view name) const {
    if (link_)
        return link_->TableDefinition(name);
    const Value stored =
        Lookup("select name from sqlite_master where type = 'table' and name = ? collate nocase", {name});
    if (dao::IsNull(stored))
        throw platform::Error(platform::kNoSuchItem,
                              "Item not found in this collection: '" + std::string(name) + "'.");
    if (access_)
        return *std::ranges::find(access_->tables, ToText(stored), &TableDef::name);
    TableDef table;
    table.name = ToText(stored);
    Columns columns = ReadColumns(*this, table.name);
    table.fields = std::move(columns.fields);
    table.indexes = ReadIndexes(*this, table.name);
    if (!columns.key.empty())
        table.indexes.insert(table.indexes.begin(), PrimaryIndex(columns.key));
    return table;
}

std::vector<TableDef> Database::TableDefs() const {
    if (link_)
        return link_->TableDefs();
    std::vector<TableDef> tables;
    for (const std::string& name : TableNames())
        tables.push_back(TableDefinition(name));
    return tables;
}

std::vector<Relation> Database::Relations() const {
    if (access_)
        return access_->relations;
    std::vector<Relation> relations;
    if (link_)
        return relations;
    for (const std::string& table : TableNames())
        for (auto& [id, relation] : ReadForeignKeys(*this, table))
            relations.push_back(std::move(relation));
    return relations;
}

void Database::CreateTable(const TableDef& table) const {
    std::string columns;
    for (const Field& field : table.fields)
        columns += (columns.empty() ? "" : ", ") + Declaration(field);
    Prepare("create table " + Bracketed(table.name) + " (" + columns + ")").Execute();
}

void Database::AddField(std::string_view table, const Field& field) const {
    Prepare("alter table " + Bracketed(table) + " add column " + Declaration(field)).Execute();
}

}  // namespace vellumark::dao
