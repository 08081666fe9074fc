#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/table_def.h"
#include "platform/odbc/catalog.h"
#include "platform/odbc/connection.h"

namespace vellumark::dao {

// A database behind a data source, as DAO sees it: tables under "owner.table", without indexes and relations.
class OdbcLink {
 public:
    // Takes a string for the driver manager.
    explicit OdbcLink(const std::string& connectionString);

    odbc::Connection& Connection() { return connection_; }
    odbc::Catalog& Catalog() { return *catalog_; }

    std::vector<std::string> TableNames() const;
    std::vector<TableDef> TableDefs() const;
    // Throws kNoSuchItem for an unknown name.
    TableDef TableDefinition(std::string_view name) const;

 private:
    std::vector<odbc::CatalogTable> Tables() const;
    TableDef Definition(const odbc::CatalogTable& table) const;

    odbc::Connection connection_;
    std::unique_ptr<odbc::Catalog> catalog_;
};

}  // namespace vellumark::dao
