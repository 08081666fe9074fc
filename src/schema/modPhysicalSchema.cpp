#include "schema/modPhysicalSchema.h"

#include <algorithm>
#include <optional>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "schema/modDataTypes.h"
#include "schema/modDatabaseConnection.h"
#include "schema/modForeignKeyMap.h"
#include "schema/modSchemaRows.h"
#include "schema/modTableList.h"

namespace vellumark {

namespace {

using Tables = std::vector<SchemaTable>;

// Nothing after a message that the reader has shown itself.
using Reader = std::optional<Tables> (*)();

bool fAddRows(const Tables& tables) {
    try {
        AddSchemaRows(RepositoryDatabase, CurrentDBSId, tables);
        return true;
    } catch (const platform::Error& error) {
        return platform::Refuse(error.Line());
    }
}

bool Read(Reader reader) {
    std::optional<Tables> tables;
    try {
        tables = reader();
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Cannot read the source database.\n\n" + error.Line());
    }
    return tables && fAddRows(*tables);
}

bool ReadSource(Reader reader) {
    platform::ShowStatus("Reading in database tables and columns");
    const RepositoryScope repository;
    ConnectMode = kConnectNew;
    char protocol = ' ';
    if (!fDatabase_Connect_Main(protocol, false))
        return platform::Refuse("Cannot connect to source database.");
    const bool done = Read(reader);
    CloseTargetConnection();
    return done;
}

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

// A table that has gone since it was listed looks like one without columns.
void CheckColumns(const SchemaTable& table, const auto& isListed) {
    if (table.columns.empty() && !isListed())
        throw platform::Error(platform::kNoSuchTable,
                              "The table '" + table.name + "' was dropped while the database was read.");
}

bool IsTextType(int daoType) {
    return daoType == dao::dbText || daoType == dao::dbMemo || daoType == dao::dbChar;
}

// A data source behind DAO tells nothing of keys.
bool ReportsKeys() {
    return !ConnectionForm.useODBC;
}

std::vector<std::string> PrimaryFields(const dao::TableDef& definition) {
    std::vector<std::string> names;
    if (!ReportsKeys())
        return names;
    for (const dao::Index& index : definition.indexes)
        if (index.primary)
            names.insert(names.end(), index.fields.begin(), index.fields.end());
    return names;
}

SchemaColumn ColumnFromField(const std::string& table, const dao::Field& field) {
    const MappedType mapped =
        MapDaoType({table, field.name, field.type.daoType, field.type.daoSize}, ConnectionForm.dbmsType);
    SchemaColumn column;
    column.name = field.name;
    column.adoDataType = mapped.sourceName;
    column.dataType = mapped.type;
    column.maximumLength = mapped.maximumLength;
    column.precision = mapped.precision;
    column.size = mapped.size;
    column.optional = !field.required && (field.allowZeroLength || !IsTextType(field.type.daoType));
    column.sortOrder = field.ordinalPosition + 1;
    return column;
}

SchemaTable TableFromDefinition(TableEntry entry, const dao::TableDef& definition) {
    SchemaTable table{std::move(entry.table), std::move(entry.owner), {}};
    const std::vector<std::string> primary = PrimaryFields(definition);
    for (const dao::Field& field : definition.fields) {
        table.columns.push_back(ColumnFromField(table.name, field));
        table.columns.back().identifier = Contains(primary, field.name);
    }
    return table;
}

std::optional<Tables> TablesThroughDAO() {
    const dao::Database& source = CurrentConnections().dao;
    const ConnectionDetails& form = ConnectionForm;
    Tables tables;
    for (const dao::TableDef& definition : source.TableDefs()) {
        TableEntry entry = SplitOwnerName(definition.name);
        if (fIgnoreTable(form.owner, entry, form.ignoreOwnerPrefix, form.ignoreTablePrefix))
            continue;
        tables.push_back(TableFromDefinition(std::move(entry), definition));
        CheckColumns(tables.back(), [&] { return Contains(source.TableNames(), definition.name); });
    }
    ForeignKeyMap map(tables);
    if (ReportsKeys())
        MapRelations(source.Relations(), map);
    return tables;
}

std::vector<std::string> UniqueColumns(const ado::Connection& source, const std::string& table) {
    std::vector<std::string> names;
    ado::Rowset indexes = source.OpenSchema(ado::SchemaKey::Indexes,
                                            {std::nullopt, std::nullopt, std::nullopt, std::nullopt, table});
    for (; !indexes.IsEOF(); indexes.MoveNext())
        if (indexes.Boolean("UNIQUE"))
            names.push_back(indexes.Text("COLUMN_NAME"));
    return names;
}

std::optional<int> Number(const ado::Rowset& row, std::string_view field) {
    return row.IsNull(field) ? std::nullopt : std::optional<int>(row.Long(field));
}

SchemaColumn ColumnFromRow(const ado::Rowset& row) {
    const AdoColumn reported{row.Long("DATA_TYPE"), Number(row, "CHARACTER_MAXIMUM_LENGTH"),
                             Number(row, "NUMERIC_PRECISION")};
    const MappedType mapped = MapAdoType(reported);
    SchemaColumn column;
    column.name = row.Text("COLUMN_NAME");
    column.adoDataType = mapped.sourceName;
    column.adoMaximumLength = reported.maximumLength.value_or(0);
    column.adoPrecision = reported.precision.value_or(0);
    column.adoScale = row.Long("NUMERIC_SCALE");
    column.dataType = mapped.type;
    column.maximumLength = mapped.maximumLength;
    column.precision = mapped.precision;
    column.scale = column.adoScale;
    column.size = mapped.size;
    column.optional = row.Boolean("IS_NULLABLE");
    return column;
}

SchemaTable TableFromRows(const ado::Connection& source, const TableEntry& entry) {
    SchemaTable table{entry.table, entry.owner, {}};
    const std::vector<std::string> unique = UniqueColumns(source, entry.table);
    // Only DB2 tells tables of different owners apart here.
    const std::string owner = ConnectionForm.dbmsType == kDbmsDB2 ? entry.owner : "";
    ado::Rowset rows = source.OpenSchema(ado::SchemaKey::Columns, {std::nullopt, owner, entry.table});
    for (int place = 1; !rows.IsEOF(); rows.MoveNext(), ++place) {
        SchemaColumn column = ColumnFromRow(rows);
        column.identifier = Contains(unique, column.name);
        column.sortOrder = place;
        table.columns.push_back(std::move(column));
    }
    const ado::Restrictions listing{std::nullopt, std::nullopt, entry.table};
    CheckColumns(table, [&] { return !source.OpenSchema(ado::SchemaKey::Tables, listing).IsEOF(); });
    return table;
}

std::optional<Tables> TablesThroughADO() {
    const ado::Connection& source = CurrentConnections().ado;
    if (!fListTables(FoundConnection.protocol, FoundConnection.owner, "", ""))
        return std::nullopt;
    Tables tables;
    for (const TableEntry& entry : ListedTables)
        tables.push_back(TableFromRows(source, entry));
    ForeignKeyMap map(tables);
    fMapForeignKeys(source, ConnectionForm.owner, ConnectionForm.mdbFile, map);
    return tables;
}

}  // namespace

bool fReadSchemaDAO() {
    return ReadSource(TablesThroughDAO);
}

bool fReadSchemaADO() {
    return ReadSource(TablesThroughADO);
}

}  // namespace vellumark
