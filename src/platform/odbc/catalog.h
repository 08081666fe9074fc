#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/odbc/connection.h"

// What a database tells of its tables, whatever its driver leaves out or gets wrong.
namespace vellumark::odbc {

struct CatalogTable {
    std::string owner;  // empty where tables have none
    std::string name;
    std::string type;  // "TABLE", "VIEW", "SYSTEM TABLE" or another word of the database's
};

struct CatalogColumn {
    std::string name;
    int sqlType = 0;  // of ODBC; 0 when `typeName` is a whole declaration such as "NUMERIC(10,2)"
    std::string typeName;
    std::optional<int> size;  // characters, bytes or digits
    std::optional<int> scale;
    bool nullable = true;
};

struct CatalogIndex {
    std::string name;
    bool primary = false;
    bool unique = false;
    std::vector<std::string> columns;
};

// One column of a foreign key.
struct CatalogKey {
    std::string parentTable;
    std::string parentColumn;
    std::string childTable;
    std::string childColumn;
};

template <typename Thing>
using ByTable = std::map<std::string, std::vector<Thing>>;

class Catalog {
 public:
    explicit Catalog(const Connection& connection);
    virtual ~Catalog() = default;

    // Tables, views and the rest, in the database's order.
    virtual std::vector<CatalogTable> Tables();
    // Columns that take values: computed ones are left out.
    virtual std::vector<CatalogColumn> Columns(const CatalogTable& table);
    // Without partial indexes and indexes on expressions, which say nothing of a row's columns.
    virtual std::vector<CatalogIndex> Indexes(const CatalogTable& table);
    // The keys that point to the table. Throws when the database reports none at all.
    virtual std::vector<CatalogKey> KeysTo(const CatalogTable& parent);

 protected:
    const Connection& Source() const { return connection_; }
    // Of all tables of an owner, or of the one with that name.
    ByTable<CatalogColumn> ReadColumns(const std::string& owner, const std::string& table = "") const;

 private:
    std::vector<std::string> PrimaryKey(const CatalogTable& table) const;
    std::string Escaped(const std::string& name) const;

    const Connection& connection_;
    std::string catalog_;
    std::string escape_;
};

// The catalog of the kind of database that the connection leads to. Must not outlive the connection.
std::unique_ptr<Catalog> OpenCatalog(const Connection& connection);

}  // namespace vellumark::odbc
