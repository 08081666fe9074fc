#pragma once

#include "platform/odbc/catalog.h"

// Catalogs of databases whose drivers' own answers are not enough.
namespace vellumark::odbc {

// Asks a server once about all tables of an owner, since each question costs a way there and back, and keeps
// the answers until the tables are listed again.
class ServerCatalog : public Catalog {
 public:
    using Catalog::Catalog;

    std::vector<CatalogTable> Tables() final;
    std::vector<CatalogColumn> Columns(const CatalogTable& table) override;
    std::vector<CatalogIndex> Indexes(const CatalogTable& table) override;
    std::vector<CatalogKey> KeysTo(const CatalogTable& parent) override;

 private:
    virtual std::vector<CatalogTable> ListTables() { return Catalog::Tables(); }
    virtual ByTable<CatalogColumn> ColumnsOf(const std::string& owner) = 0;
    virtual ByTable<CatalogIndex> IndexesOf(const std::string& owner) = 0;
    // By the table that the keys point to.
    virtual ByTable<CatalogKey> KeysOf(const std::string& owner) = 0;

    std::map<std::string, ByTable<CatalogColumn>> columns_;
    std::map<std::string, ByTable<CatalogIndex>> indexes_;
    std::map<std::string, ByTable<CatalogKey>> keys_;
};

class PostgresCatalog : public ServerCatalog {
 public:
    using ServerCatalog::ServerCatalog;

    std::vector<CatalogIndex> Indexes(const CatalogTable& table) override;
    std::vector<CatalogKey> KeysTo(const CatalogTable& parent) override;

 private:
    ByTable<CatalogColumn> ColumnsOf(const std::string& owner) override;
    ByTable<CatalogIndex> IndexesOf(const std::string& owner) override;
    ByTable<CatalogKey> KeysOf(const std::string& owner) override;
};

class MariaDBCatalog : public ServerCatalog {
 public:
    using ServerCatalog::ServerCatalog;

 private:
    std::vector<CatalogTable> ListTables() override;
    ByTable<CatalogColumn> ColumnsOf(const std::string& owner) override;
    ByTable<CatalogIndex> IndexesOf(const std::string& owner) override;
    ByTable<CatalogKey> KeysOf(const std::string& owner) override;
};

class SqliteCatalog : public Catalog {
 public:
    using Catalog::Catalog;

    std::vector<CatalogTable> Tables() override;
    std::vector<CatalogColumn> Columns(const CatalogTable& table) override;
    std::vector<CatalogIndex> Indexes(const CatalogTable& table) override;
    std::vector<CatalogKey> KeysTo(const CatalogTable& parent) override;

 private:
    // All at once: they are found where they start, not where they point to.
    std::optional<ByTable<CatalogKey>> keys_;
};

}  // namespace vellumark::odbc
