#include "tools/schemaCarrier.h"

#include <algorithm>

#include "platform/dao/jet_sql.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kForeignKey = "Foreign Key";
constexpr std::string_view kTableIndent = "    *** ";
constexpr std::string_view kColumnIndent = "        - ";
constexpr std::string_view kFieldIndent = "            - ";
constexpr std::string_view kParentIndent = "            - it now references: ";
constexpr const char* kFound = "F";

std::string Joined(std::string_view first, std::string_view second) {
    return std::string(first).append(second);
}

std::string ChangeColumnStatement() {
    std::string fields;
    for (const CopiedField& field : kCopiedFields)
        fields += dao::Bracketed(field.name) + " = ?, ";
    return "update [Column] set " + fields +
           "[Status] = 'F' where [FK DBS Id] = ? and [FK TAB Id] = ? and [Id] = ?";
}

std::vector<std::string> NamesOf(const std::vector<ComparedTable>& tables) {
    std::vector<std::string> names;
    std::ranges::transform(tables, std::back_inserter(names), &ComparedTable::name);
    return names;
}

std::vector<std::string> NamesOf(const std::vector<ComparedColumn>& columns) {
    std::vector<std::string> names;
    std::ranges::transform(columns, std::back_inserter(names), &ComparedColumn::Name);
    return names;
}

bool Differs(const ComparedColumn& a, const ComparedColumn& b, std::string_view field, FieldKind kind) {
    return !SameField(kind, a.Field(field), b.Field(field));
}

}  // namespace

SchemaCarrier::SchemaCarrier(int targetId, bool deletes, platform::OutputFile& log)
    : targetId_(targetId),
      deletes_(deletes),
      log_(log),
      newTables_(RepositoryDatabase.OpenForAppend("Table")),
      newColumns_(RepositoryDatabase.OpenForAppend("Column")),
      changeColumn_(RepositoryDatabase.Prepare(ChangeColumnStatement())) {}

void SchemaCarrier::Carry(int sourceId) {
    const std::vector<ComparedTable> sources = ReadComparedTables(sourceId);
    const std::vector<ComparedTable> targets = ReadComparedTables(targetId_);
    for (const ComparedTable& target : targets)
        NextTableId_ = std::max(NextTableId_, target.id);
    const auto matches = MatchNames(NamesOf(sources), NamesOf(targets));
    std::vector<const ComparedTable*> sourceOf(targets.size());
    for (std::size_t i = 0; i < sources.size(); ++i) {
        if (matches[i])
            sourceOf[*matches[i]] = &sources[i];
        else
            CreateTargetTable(sources[i]);
    }
    for (std::size_t i = 0; i < targets.size(); ++i)
        if (sourceOf[i] != nullptr)
            UpdateTargetTable(*sourceOf[i], targets[i]);
    for (std::size_t i = 0; i < targets.size(); ++i)
        if (sourceOf[i] == nullptr && deletes_)
            DeleteTargetTable(targets[i]);
    UpdateTargetForeignKeys();
}

void SchemaCarrier::CreateTargetTable(const ComparedTable& source) {
    ComparedTable target{++NextTableId_, source.name, source.owner, source.entityName, {}};
    newTables_.AddNew();
    newTables_.Set("Id", target.id)
        .Set("FK DBS Id", targetId_)
        .Set("Name", target.name)
        .Set("Owner", target.owner)
        .Set("COOLGen Entity Name", target.entityName)
        .Set("Status", kFound);
    newTables_.Update();
    log_.AddLine("");
    log_.AddLine(Joined(kTableIndent, "Created Table: " + target.name));
    AddTableToScenarios(targetId_, target.id);
    NextColumnId_ = 0;
    for (const ComparedColumn& column : source.columns)
        CreateTargetColumn(source, column, target);
}

void SchemaCarrier::UpdateTargetTable(const ComparedTable& source, const ComparedTable& target) {
    log_.AddLine("");
    log_.AddLine(Joined(kTableIndent, "Processing Table: " + target.name));
    LogChange(kColumnIndent, "Entity Name", FieldKind::Text, target.entityName, source.entityName);
    LogChange(kColumnIndent, "Owner", FieldKind::Text, target.owner, source.owner);
    RepositoryDatabase.Execute(
        "update [Table] set [COOLGen Entity Name] = ?, [Owner] = ?, [Status] = ? where [FK DBS Id] = ? and "
        "[Id] = ?",
        {source.entityName, source.owner, kFound, targetId_, target.id});
    UpdateColumns(source, target);
}

void SchemaCarrier::UpdateColumns(const ComparedTable& source, const ComparedTable& target) {
    NextColumnId_ = target.columns.empty() ? 0 : target.columns.back().id;
    std::vector<ComparedColumn> sources = source.columns;
    std::ranges::stable_sort(sources, platform::LessIgnoringCase, &ComparedColumn::Name);
    const auto matches = MatchNames(NamesOf(sources), NamesOf(target.columns));
    std::vector<bool> found(target.columns.size());
    bool moved = false;
    for (std::size_t i = 0; i < sources.size(); ++i) {
        if (!matches[i]) {
            CreateTargetColumn(source, sources[i], target);
            continue;
        }
        const ComparedColumn& column = target.columns[*matches[i]];
        found[*matches[i]] = true;
        Remember(source, sources[i], target, column);
        UpdateTargetColumn(sources[i], column, {targetId_, target.id, column.id});
        moved = moved || Differs(sources[i], column, "Sort Order", FieldKind::Number);
    }
    for (std::size_t i = 0; i < found.size(); ++i)
        if (!found[i] && deletes_)
            DeleteTargetColumn({targetId_, target.id, target.columns[i].id}, target.columns[i].Name());
    if (moved)
        OrderColumnRules(targetId_, target.id);
}

void SchemaCarrier::DeleteTargetTable(const ComparedTable& target) {
    log_.AddLine(Joined(kTableIndent, "Deleted Table: " + target.name));
    DeleteTableRules(targetId_, target.id);
    RepositoryDatabase.Execute("delete from [Table] where [FK DBS Id] = ? and [Id] = ?",
                               {targetId_, target.id});
}

void SchemaCarrier::CreateTargetColumn(const ComparedTable& source, const ComparedColumn& column,
                                       const ComparedTable& target) {
    ComparedColumn created = column;
    created.id = ++NextColumnId_;
    created.parentTableId = created.parentColumnId = 0;
    newColumns_.AddNew();
    newColumns_.Set("Id", created.id)
        .Set("FK TAB Id", target.id)
        .Set("FK DBS Id", targetId_)
        .Set("FK COL Id", 0)
        .Set("FK COL TAB Id", 0)
        .Set("Status", kFound);
    for (std::size_t i = 0; i < kCopiedFields.size(); ++i)
        newColumns_.Set(kCopiedFields[i].name, created.fields[i]);
    newColumns_.Update();
    log_.AddLine(Joined(kColumnIndent, "Created Column: " + created.Name()));
    AddColumnToRules({targetId_, target.id, created.id});
    Remember(source, column, target, created);
}

void SchemaCarrier::UpdateTargetColumn(const ComparedColumn& source, const ComparedColumn& target,
                                       const ColumnKey& key) {
    log_.AddLine("");
    log_.AddLine(Joined(kColumnIndent, "Processing column: " + target.Name()));
    for (std::size_t i = 0; i < kCopiedFields.size(); ++i)
        if (!kCopiedFields[i].caption.empty())
            LogChange(kFieldIndent, kCopiedFields[i].caption, kCopiedFields[i].kind, target.fields[i],
                      source.fields[i]);
    if (target.Role() == kForeignKey && source.Role() != kForeignKey)
        DeleteColumnDependencies(key);
    int place = 0;
    for (const dao::Value& value : source.fields)
        changeColumn_.Bind(place++, value);
    for (const int id : {key.schemaId, key.tableId, key.columnId})
        changeColumn_.BindInteger(place++, id);
    changeColumn_.Execute();
    CorrectColumnRules(key, Differs(source, target, "Vellumark Data Type", FieldKind::Text));
}

void SchemaCarrier::DeleteTargetColumn(const ColumnKey& key, const std::string& name) {
    log_.AddLine("");
    log_.AddLine(Joined(kColumnIndent, "Deleted column: " + name));
    DeleteColumnRules(key);
    RepositoryDatabase.Execute("delete from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Id] = ?",
                               {key.schemaId, key.tableId, key.columnId});
}

void SchemaCarrier::UpdateTargetForeignKeys() {
    log_.AddLine("");
    log_.AddLine(Joined(kTableIndent, "Checking Foreign Key updates"));
    std::vector<const CarriedColumn*> columns;
    for (const auto& [source, column] : carried_)
        if (column.isForeignKey)
            columns.push_back(&column);
    std::ranges::stable_sort(columns, {}, [](const CarriedColumn* column) {
        return std::pair(platform::ToLower(column->table), platform::ToLower(column->column));
    });
    for (const CarriedColumn* column : columns)
        UpdateTargetForeignKey(*column);
}

void SchemaCarrier::UpdateTargetForeignKey(const CarriedColumn& column) {
    const auto found = carried_.find(column.sourceParent);
    if (found == carried_.end())
        return;
    const CarriedColumn& parent = found->second;
    if (column.parentTableId == parent.key.tableId && column.parentColumnId == parent.key.columnId)
        return;
    log_.AddLine("");
    log_.AddLine(Joined(kColumnIndent, "Updating FK: " + column.table + " " + column.column));
    log_.AddLine(Joined(kParentIndent, parent.table + " " + parent.column));
    RepositoryDatabase.Execute(
        "update [Column] set [FK COL Id] = ?, [FK COL TAB Id] = ? where [FK DBS Id] = ? and [FK TAB Id] = ? "
        "and [Id] = ?",
        {parent.key.columnId, parent.key.tableId, column.key.schemaId, column.key.tableId,
         column.key.columnId});
    DeleteColumnDependencies(column.key);
}

void SchemaCarrier::Remember(const ComparedTable& source, const ComparedColumn& column,
                             const ComparedTable& target, const ComparedColumn& targetColumn) {
    carried_.insert_or_assign({source.id, column.id},
                              CarriedColumn{{targetId_, target.id, targetColumn.id},
                                            target.name,
                                            column.Name(),
                                            targetColumn.parentTableId,
                                            targetColumn.parentColumnId,
                                            {column.parentTableId, column.parentColumnId},
                                            column.Role() == kForeignKey});
}

void SchemaCarrier::LogChange(std::string_view indent, std::string_view caption, FieldKind kind,
                              const dao::Value& from, const dao::Value& to) {
    if (SameField(kind, from, to))
        return;
    log_.AddLine(std::string(indent)
                     .append("Updating ")
                     .append(caption)
                     .append(" from: ")
                     .append(FieldText(kind, from))
                     .append(" to: ")
                     .append(FieldText(kind, to)));
}

}  // namespace vellumark
