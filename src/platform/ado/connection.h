#pragma once

#include <memory>
#include <string_view>

#include "platform/ado/provider.h"
#include "platform/ado/rowset.h"

namespace vellumark::ado {

// A connection to a user's database, open or closed. Movable; closes itself.
class Connection {
 public:
    Connection() = default;
    explicit Connection(std::unique_ptr<Provider> provider) : provider_(std::move(provider)) {}

    // Closes first what was open. Throws what OpenProvider throws and is closed then.
    void Open(std::string_view connectionString);
    void Close() { provider_.reset(); }
    bool IsOpen() const { return provider_ != nullptr; }

    // Throws kObjectIsClosed, or the provider's error when it has no such rowset.
    Rowset OpenSchema(SchemaKey key, const Restrictions& restrictions = {}) const;

    // The system at the other end and its version, with the driver's; throws kObjectIsClosed.
    std::string ServerName() const { return Opened().ServerName(); }

    // A statement as the user's database takes it. Each throws kObjectIsClosed or the database's error.
    void Execute(std::string_view statement) { Opened().Execute(statement); }
    // Whether Execute takes several statements in one text, with semicolons between.
    bool TakesSeveral() const { return Opened().TakesSeveral(); }
    // The cursor has no fields when the statement has no rows but only its effect.
    std::unique_ptr<platform::Cursor> OpenRecordset(std::string_view sql) const {
        return Opened().OpenRecordset(sql);
    }

    // One transaction at a time. Outside of one each statement stands by itself.
    void Begin() { Opened().Begin(); }
    void Commit() { Opened().Commit(); }
    void Rollback() { Opened().Rollback(); }
    // Throws kReadOnlyDatabase when the database is of a kind that is only read.
    void CheckWritable() const { Opened().CheckWritable(); }
    // To read and change single rows; must not outlive the open connection.
    std::unique_ptr<dao::RowAccess> OpenRowAccess() const { return Opened().OpenRowAccess(); }

 private:
    Provider& Opened() const;

    std::unique_ptr<Provider> provider_;
};

}  // namespace vellumark::ado
