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

 private:
    std::unique_ptr<Provider> provider_;
};

}  // namespace vellumark::ado
