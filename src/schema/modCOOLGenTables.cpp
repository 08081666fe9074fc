#include "schema/modCOOLGenTables.h"

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark {

namespace {

int Find(const std::unordered_map<std::string, int>& ids, std::string_view name, const char* what) {
    const auto found = ids.find(platform::ToLower(name));
    if (found == ids.end())
        throw platform::Error(
            platform::kNoCurrentRecord,
            "No current record: the model has no " + std::string(what) + " '" + std::string(name) + "'");
    return found->second;
}

std::size_t Place(int id) {
    return static_cast<std::size_t>(id - 1);
}

}  // namespace

void COOLGenTables::AddTable(std::string_view name, std::string_view entity) {
    tables_.push_back({std::string(name), "", {}, std::string(entity)});
    columnIds_.emplace_back();
    const int id = static_cast<int>(tables_.size());
    byName_.emplace(platform::ToLower(name), id);
    byEntity_.emplace(platform::ToLower(entity), id);
}

int COOLGenTables::TableId(std::string_view name) const {
    return Find(byName_, name, "table");
}

int COOLGenTables::TableIdOfEntity(std::string_view entity) const {
    return Find(byEntity_, entity, "entity");
}

void COOLGenTables::AddColumn(int tableId, SchemaColumn column) {
    std::vector<SchemaColumn>& columns = tables_.at(Place(tableId)).columns;
    const int id = static_cast<int>(columns.size()) + 1;
    column.sortOrder = id;
    ColumnIds& ids = columnIds_[Place(tableId)];
    ids.byName.emplace(platform::ToLower(column.name), id);
    ids.byAttribute.emplace(platform::ToLower(column.attribute), id);
    columns.push_back(std::move(column));
}

SchemaColumn& COOLGenTables::Column(int tableId, std::string_view name) {
    const int id = Find(columnIds_.at(Place(tableId)).byName, name, "column");
    return tables_[Place(tableId)].columns[Place(id)];
}

int COOLGenTables::ColumnIdOfAttribute(int tableId, std::string_view attribute) const {
    return Find(columnIds_.at(Place(tableId)).byAttribute, attribute, "attribute");
}

void fSetCOOLGenForeignKey(COOLGenTables& tables, std::string_view columnName, int tableId,
                           std::string_view parentEntity, std::string_view parentAttribute) {
    const int parentId = tables.TableIdOfEntity(parentEntity);
    const int parentColumnId = tables.ColumnIdOfAttribute(parentId, parentAttribute);
    SchemaColumn& column = tables.Column(tableId, columnName);
    column.attribute.clear();
    column.parentTableId = parentId;
    column.parentColumnId = parentColumnId;
}

}  // namespace vellumark
