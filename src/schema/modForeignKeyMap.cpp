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

void ForeignKeyMap::Names::Add(const std::string& name, int id) {
    exact_.emplace(name, id);
    folded_.emplace(platform::ToLower(name), id);
}

int ForeignKeyMap::Names::Find(std::string_view name) const {
    if (const auto found = exact_.find(std::string(name)); found != exact_.end())
        return found->second;
    const auto found = folded_.find(platform::ToLower(name));
    return found == folded_.end() ? 0 : found->second;
}

ForeignKeyMap::ForeignKeyMap(std::vector<SchemaTable>& tables) : tables_(tables) {
    int tableId = 0;
    for (const SchemaTable& table : tables) {
        tableIds_.Add(table.name, ++tableId);
        Names& columns = columnIds_.emplace_back();
        int columnId = 0;
        for (const SchemaColumn& column : table.columns)
            columns.Add(column.name, ++columnId);
    }
}

void ForeignKeyMap::SetForeignKey(std::string_view parentTable, std::string_view parentColumn,
                                  std::string_view childTable, std::string_view childColumn) {
    const int parent = tableIds_.Find(parentTable);
    const int child = tableIds_.Find(childTable);
    if (parent == 0 || child == 0)
        return;
    const auto columnOf = [&](int table, std::string_view name) {
        return columnIds_[static_cast<std::size_t>(table - 1)].Find(name);
    };
    const int parentId = columnOf(parent, parentColumn);
    const int childId = columnOf(child, childColumn);
    if (parentId == 0 || childId == 0)
        return;
    SchemaTable& childRow = tables_[static_cast<std::size_t>(child - 1)];
    SchemaColumn& column = childRow.columns[static_cast<std::size_t>(childId - 1)];
    column.parentTableId = parent;
    column.parentColumnId = parentId;
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
        // A source that still answers just has no such rowset; one that has gone must not pass for that.
        source.OpenSchema(ado::SchemaKey::Tables);
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
