#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/rowset.h"
#include "platform/cursor.h"
#include "platform/dao/row_access.h"
#include "platform/error.h"

namespace vellumark::ado {

inline constexpr int kObjectIsClosed = 3704;

// What a provider can be asked about its database, with the fields that a reader finds:
// Tables       TABLE_SCHEMA, TABLE_NAME, TABLE_TYPE
// Columns      TABLE_SCHEMA, TABLE_NAME, COLUMN_NAME, ORDINAL_POSITION, IS_NULLABLE, DATA_TYPE,
//              CHARACTER_MAXIMUM_LENGTH, NUMERIC_PRECISION, NUMERIC_SCALE
// Indexes      TABLE_SCHEMA, TABLE_NAME, INDEX_NAME, PRIMARY_KEY, UNIQUE, COLUMN_NAME
// ForeignKeys  PK_TABLE_NAME, PK_COLUMN_NAME, FK_TABLE_NAME, FK_COLUMN_NAME
enum class SchemaKey { Columns = 4, Indexes = 12, Tables = 20, ForeignKeys = 27 };

// Names to keep to, by position; a missing or empty one does not restrict.
// Tables       catalog, schema, table, table type
// Columns      catalog, schema, table, column
// Indexes      catalog, schema, index, type, table
// ForeignKeys  the parent's catalog, schema, table, then the child's
using Restrictions = std::vector<std::optional<std::string>>;

// The name that a position is restricted to, or empty text.
std::string_view Restriction(const Restrictions& restrictions, std::size_t position);
bool Passes(std::string_view name, const Restrictions& restrictions, std::size_t position);

// The driver behind an open connection: one class for each kind of database. It closes itself. Its calls do
// what those of Connection do.
class Provider {
 public:
    virtual ~Provider() = default;

    // Throws platform::Error when the database reports no such thing.
    Rowset OpenSchema(SchemaKey key, const Restrictions& restrictions) const;
    // What stands at the other end, for people.
    virtual std::string ServerName() const = 0;
    virtual void Execute(std::string_view statement) = 0;
    virtual std::unique_ptr<platform::Cursor> OpenRecordset(std::string_view sql) const = 0;
    virtual bool TakesSeveral() const { return false; }
    virtual void Begin() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
    // Throws kReadOnlyDatabase when the database is of a kind that is only read.
    virtual void CheckWritable() const {}
    virtual std::unique_ptr<dao::RowAccess> OpenRowAccess() const = 0;

 private:
    virtual Rowset Tables(const Restrictions& restrictions) const = 0;
    virtual Rowset Columns(const Restrictions& restrictions) const = 0;
    virtual Rowset Indexes(const Restrictions& restrictions) const = 0;
    virtual Rowset ForeignKeys(const Restrictions& restrictions) const = 0;
};

// Opens the database that a connection string names. Throws the database's own error, or
// platform::kProviderNotFound when no driver is there for the string.
std::unique_ptr<Provider> OpenProvider(std::string_view connectionString);

}  // namespace vellumark::ado
