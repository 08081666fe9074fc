#include "platform/dao/odbc_link.h"

#include "platform/dao/odbc_type.h"
#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

std::string FullName(const odbc::CatalogTable& table) {
    return table.owner.empty() ? table.name : table.owner + "." + table.name;
}

}  // namespace

OdbcLink::OdbcLink(const std::string& connectionString)
    : connection_(connectionString), catalog_(odbc::OpenCatalog(connection_)) {}

std::vector<odbc::CatalogTable> OdbcLink::Tables() const {
    std::vector<odbc::CatalogTable> tables = catalog_->Tables();
    std::erase_if(tables, [](const odbc::CatalogTable& table) { return table.type != "TABLE"; });
    return tables;
}

std::vector<std::string> OdbcLink::TableNames() const {
    std::vector<std::string> names;
    for (const odbc::CatalogTable& table : Tables())
        names.push_back(FullName(table));
    return names;
}

std::vector<TableDef> OdbcLink::TableDefs() const {
    std::vector<TableDef> definitions;
    for (const odbc::CatalogTable& table : Tables())
        definitions.push_back(Definition(table));
    return definitions;
}

TableDef OdbcLink::TableDefinition(std::string_view name) const {
    for (const odbc::CatalogTable& table : Tables())
        if (platform::EqualsIgnoringCase(FullName(table), name))
            return Definition(table);
    throw platform::Error(platform::kNoSuchItem,
                          "Item not found in this collection: '" + std::string(name) + "'.");
}

TableDef OdbcLink::Definition(const odbc::CatalogTable& table) const {
    return {FullName(table), ReadOdbcFields(catalog_->Columns(table)), {}};
}

}  // namespace vellumark::dao
