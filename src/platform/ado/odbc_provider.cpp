#include "platform/ado/odbc_provider.h"

#include <algorithm>

#include "platform/dao/odbc_type.h"
#include "platform/text.h"

namespace vellumark::ado {

namespace {

dao::Value Text(const std::string& text) {
    return text;
}

dao::Value Owner(const odbc::CatalogTable& table) {
    return table.owner.empty() ? dao::Value() : dao::Value(table.owner);
}

dao::Value Flag(bool flag) {
    return dao::Parameter(flag).Get();
}

dao::Value Number(std::optional<int> number) {
    return number ? dao::Value(std::int64_t{*number}) : dao::Value();
}

}  // namespace

OdbcProvider::OdbcProvider(const std::string& connectionString)
    : connection_(connectionString), catalog_(odbc::OpenCatalog(connection_)) {}

Rowset OdbcProvider::Tables(const Restrictions& restrictions) const {
    Rowset rows({"TABLE_SCHEMA", "TABLE_NAME", "TABLE_TYPE"});
    tables_ = catalog_->Tables();
    for (const odbc::CatalogTable& table : *tables_)
        if (Passes(table.owner, restrictions, 1) && Passes(table.name, restrictions, 2) &&
            Passes(table.type, restrictions, 3))
            rows.Add({Owner(table), Text(table.name), Text(table.type)});
    return rows;
}

// Tables of that very name where there are any, or else those whose names differ in case.
std::vector<odbc::CatalogTable> OdbcProvider::FindTables(const Restrictions& restrictions,
                                                         std::size_t ownerPosition,
                                                         std::size_t tablePosition) const {
    if (!tables_)
        tables_ = catalog_->Tables();
    std::vector<odbc::CatalogTable> found;
    for (const odbc::CatalogTable& table : *tables_)
        if (Passes(table.owner, restrictions, ownerPosition) &&
            Passes(table.name, restrictions, tablePosition))
            found.push_back(table);
    const std::string_view wanted = Restriction(restrictions, tablePosition);
    const auto differs = [&](const odbc::CatalogTable& table) { return table.name != wanted; };
    if (!std::ranges::all_of(found, differs))
        std::erase_if(found, differs);
    return found;
}

Rowset OdbcProvider::Columns(const Restrictions& restrictions) const {
    Rowset rows({"TABLE_SCHEMA", "TABLE_NAME", "COLUMN_NAME", "ORDINAL_POSITION", "IS_NULLABLE", "DATA_TYPE",
                 "CHARACTER_MAXIMUM_LENGTH", "NUMERIC_PRECISION", "NUMERIC_SCALE"});
    for (const odbc::CatalogTable& table : FindTables(restrictions, 1, 2)) {
        int place = 0;
        for (const odbc::CatalogColumn& column : catalog_->Columns(table)) {
            ++place;
            if (!Passes(column.name, restrictions, 3))
                continue;
            const dao::ColumnType type = dao::ReadOdbcType(column);
            rows.Add({Owner(table), Text(table.name), Text(column.name), Number(place), Flag(column.nullable),
                      Number(type.adoType), Number(type.maximumLength), Number(type.precision),
                      Number(type.scale)});
        }
    }
    return rows;
}

Rowset OdbcProvider::Indexes(const Restrictions& restrictions) const {
    Rowset rows({"TABLE_SCHEMA", "TABLE_NAME", "INDEX_NAME", "PRIMARY_KEY", "UNIQUE", "COLUMN_NAME"});
    for (const odbc::CatalogTable& table : FindTables(restrictions, 1, 4))
        for (const odbc::CatalogIndex& index : catalog_->Indexes(table))
            for (const std::string& column : index.columns)
                if (Passes(index.name, restrictions, 2))
                    rows.Add({Owner(table), Text(table.name), Text(index.name), Flag(index.primary),
                              Flag(index.unique), Text(column)});
    return rows;
}

Rowset OdbcProvider::ForeignKeys(const Restrictions& restrictions) const {
    Rowset rows({"PK_TABLE_NAME", "PK_COLUMN_NAME", "FK_TABLE_NAME", "FK_COLUMN_NAME"});
    for (const odbc::CatalogTable& table : FindTables(restrictions, 1, 2))
        for (const odbc::CatalogKey& key : catalog_->KeysTo(table))
            if (Passes(key.childTable, restrictions, 5))
                rows.Add({Text(key.parentTable), Text(key.parentColumn), Text(key.childTable),
                          Text(key.childColumn)});
    return rows;
}

}  // namespace vellumark::ado
