#pragma once

#include "platform/odbc/catalog.h"

// Catalogs of databases whose drivers' own answers are not enough.
namespace vellumark::odbc {

class PostgresCatalog : public Catalog {
 public:
    using Catalog::Catalog;

    std::vector<CatalogColumn> Columns(const CatalogTable& table) override;
    std::vector<CatalogIndex> Indexes(const CatalogTable& table) override;
};

class MariaDBCatalog : public Catalog {
 public:
    using Catalog::Catalog;

    std::vector<CatalogTable> Tables() override;
    std::vector<CatalogColumn> Columns(const CatalogTable& table) override;
    std::vector<CatalogIndex> Indexes(const CatalogTable& table) override;
    std::vector<CatalogKey> KeysTo(const CatalogTable& parent) override;

 private:
    // All at once: the server opens every table for each question about keys.
    std::optional<std::vector<CatalogKey>> keys_;
};

class SqliteCatalog : public Catalog {
 public:
    using Catalog::Catalog;

    std::vector<CatalogTable> Tables() override;
    std::vector<CatalogColumn> Columns(const CatalogTable& table) override;
    std::vector<CatalogIndex> Indexes(const CatalogTable& table) override;
    std::vector<CatalogKey> KeysTo(const CatalogTable& parent) override;
};

}  // namespace vellumark::odbc
