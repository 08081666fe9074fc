#include "schema/modForeignKeyMap.h"

#include "platform/dao/database.h"
#include "platform/error.h"
#include "platform/text.h"
#include "schema/modTableList.h"

namespace vellumark {

namespace {

void MapRelation(const dao::Relation& relation, ForeignKeyMap& map) {
    for (const dao::RelationField& field : relation.fields)
        map.SetForeignKey(relation.table, field.name, relation.foreignTable, field.foreignName);
}

void MapKeyRow(const ado::Rowset& key, ForeignKeyMap& map) {
    try {
        map.SetForeignKey(key.Text("PK_TABLE_NAME"), key.Text("PK_COLUMN_NAME"), key.Text("FK_TABLE_NAME"),
                          key.Text("FK_COLUMN_NAME"));
    } catch (const platform::Error&) {
        // A row that can't be read costs its own link only.
    }
}

}  // namespace

ForeignKeyMap::ForeignKeyMap(std::vector<SchemaTable>& tables) : tables_(tables) {
    int tableId = 0;
    for (const SchemaTable& table : tables) {
        Table entry{++tableId, {}};
        int columnId = 0;
        for (const SchemaColumn& column : table.columns)
            entry.columnIds.emplace(platform::ToLower(column.name), ++columnId);
        byName_.emplace(platform::ToLower(table.name), std::move(entry));
    }
}

const ForeignKeyMap::Table* ForeignKeyMap::FindTable(std::string_view name) const {
    const auto found = byName_.find(platform::ToLower(name));
    return found == byName_.end() ? nullptr : &found->second;
}

void ForeignKeyMap::SetForeignKey(std::string_view parentTable, std::string_view parentColumn,
                                  std::string_view childTable, std::string_view childColumn) {
    const Table* parent = FindTable(parentTable);
    const Table* child = FindTable(childTable);
    if (parent == nullptr || child == nullptr)
        return;
    const auto parentId = parent->columnIds.find(platform::ToLower(parentColumn));
    const auto childId = child->columnIds.find(platform::ToLower(childColumn));
    if (parentId == parent->columnIds.end() || childId == child->columnIds.end())
        return;
    SchemaTable& childRow = tables_[static_cast<std::size_t>(child->id - 1)];
    SchemaColumn& column = childRow.columns[static_cast<std::size_t>(childId->second - 1)];
    column.parentTableId = parent->id;
    column.parentColumnId = parentId->second;
}

void MapRelations(const std::vector<dao::Relation>& relations, ForeignKeyMap& map) {
    for (const dao::Relation& relation : relations)
        MapRelation(relation, map);
}

bool fMapForeignKeys(const ado::Connection& source, std::string_view ownerFilter, const std::string& mdbFile,
                     ForeignKeyMap& map) {
    return fMapForeignKeysSchema(source, ownerFilter, map) || fMapForeignKeysCatalog(mdbFile, map);
}

bool fMapForeignKeysSchema(const ado::Connection& source, std::string_view ownerFilter, ForeignKeyMap& map) {
    try {
        ado::Rowset tables = source.OpenSchema(ado::SchemaKey::Tables);
        for (; !tables.IsEOF(); tables.MoveNext()) {
            if (fSkipADOTable(tables.Text("TABLE_SCHEMA"), tables.Text("TABLE_TYPE"), ownerFilter))
                continue;
            ado::Rowset keys = source.OpenSchema(ado::SchemaKey::ForeignKeys,
                                                 {std::nullopt, std::nullopt, tables.Text("TABLE_NAME")});
            for (; !keys.IsEOF(); keys.MoveNext())
                MapKeyRow(keys, map);
        }
        return true;
    } catch (const platform::Error&) {
        return false;
    }
}

bool fMapForeignKeysCatalog(const std::string& mdbFile, ForeignKeyMap& map) {
    try {
        for (const dao::Relation& relation : dao::OpenDatabase(mdbFile).Relations())
            if (!platform::ContainsIgnoringCase(relation.foreignTable, "SYS"))
                MapRelation(relation, map);
        return true;
    } catch (const platform::Error&) {
        return false;
    }
}

}  // namespace vellumark
