#include "platform/ado/embedded_provider.h"

#include "platform/sqlite_tables.h"
#include "platform/text.h"

namespace vellumark::ado {

namespace {

constexpr std::string_view kDriverWord = "Microsoft Access Driver";

dao::Value Text(std::string_view text) {
    return std::string(text);
}

dao::Value Flag(bool flag) {
    return dao::Parameter(flag).Get();
}

dao::Value Number(std::optional<int> number) {
    return number ? dao::Value(std::int64_t{*number}) : dao::Value();
}

}  // namespace

bool EmbeddedProvider::Serves(const platform::ConnectionString& parts) {
    return platform::ContainsIgnoringCase(parts.Value("Driver"), kDriverWord);
}

dao::Database EmbeddedProvider::OpenFile(const platform::ConnectionString& parts) {
    const std::string& path = parts.Value("DBQ");
    if (path.empty())
        throw platform::Error(platform::kFileCannotBeFound,
                              "The connection string names no database file (DBQ).");
    return dao::OpenDatabase(path, ";pwd=" + parts.Value("PWD"));
}

EmbeddedProvider::EmbeddedProvider(const platform::ConnectionString& parts) : database_(OpenFile(parts)) {}

Rowset EmbeddedProvider::Tables(const Restrictions& restrictions) const {
    Rowset rows({"TABLE_SCHEMA", "TABLE_NAME", "TABLE_TYPE"});
    dao::Statement list = database_.Prepare(platform::kSqliteTables);
    while (list.Step()) {
        const std::string_view name = list.ColumnText(0);
        const std::string_view type = list.ColumnText(1);
        if (Passes(name, restrictions, 2) && Passes(type, restrictions, 3))
            rows.Add({dao::Value(), Text(name), Text(type)});
    }
    return rows;
}

std::vector<dao::TableDef> EmbeddedProvider::TableDefs(const Restrictions& restrictions,
                                                       std::size_t tablePosition) const {
    const std::string_view wanted = Restriction(restrictions, tablePosition);
    if (wanted.empty())
        return database_.TableDefs();
    if (!database_.HasTable(wanted))
        return {};
    return {database_.TableDefinition(wanted)};
}

Rowset EmbeddedProvider::Columns(const Restrictions& restrictions) const {
    Rowset rows({"TABLE_SCHEMA", "TABLE_NAME", "COLUMN_NAME", "ORDINAL_POSITION", "IS_NULLABLE", "DATA_TYPE",
                 "CHARACTER_MAXIMUM_LENGTH", "NUMERIC_PRECISION", "NUMERIC_SCALE"});
    for (const dao::TableDef& table : TableDefs(restrictions, 2))
        for (const dao::Field& field : table.fields)
            if (Passes(field.name, restrictions, 3))
                rows.Add({dao::Value(), Text(table.name), Text(field.name), Number(field.ordinalPosition + 1),
                          Flag(!field.required), Number(field.type.adoType), Number(field.type.maximumLength),
                          Number(field.type.precision), Number(field.type.scale)});
    return rows;
}

Rowset EmbeddedProvider::Indexes(const Restrictions& restrictions) const {
    Rowset rows({"TABLE_SCHEMA", "TABLE_NAME", "INDEX_NAME", "PRIMARY_KEY", "UNIQUE", "COLUMN_NAME"});
    for (const dao::TableDef& table : TableDefs(restrictions, 4))
        for (const dao::Index& index : table.indexes)
            for (const std::string& column : index.fields)
                if (Passes(index.name, restrictions, 2))
                    rows.Add({dao::Value(), Text(table.name), Text(index.name), Flag(index.primary),
                              Flag(index.unique), Text(column)});
    return rows;
}

const std::vector<dao::Relation>& EmbeddedProvider::Relations() const {
    const dao::Value version = database_.Lookup("pragma schema_version");
    if (version != relationsVersion_) {
        relations_ = database_.Relations();
        relationsVersion_ = version;
    }
    return relations_;
}

Rowset EmbeddedProvider::ForeignKeys(const Restrictions& restrictions) const {
    Rowset rows({"PK_TABLE_NAME", "PK_COLUMN_NAME", "FK_TABLE_NAME", "FK_COLUMN_NAME"});
    for (const dao::Relation& relation : Relations()) {
        if (!Passes(relation.table, restrictions, 2) || !Passes(relation.foreignTable, restrictions, 5))
            continue;
        for (const dao::RelationField& field : relation.fields)
            rows.Add({Text(relation.table), Text(field.name), Text(relation.foreignTable),
                      Text(field.foreignName)});
    }
    return rows;
}

}  // namespace vellumark::ado
