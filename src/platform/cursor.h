#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

// The rows of a query on a user's database, read once from the first to the last. Must not outlive the open
// database. Columns count from 0.
class Cursor {
 public:
    virtual ~Cursor() = default;

    // Empty when the statement has no rows but only its effect.
    virtual const std::vector<std::string>& FieldNames() const = 0;
    // Goes to the first row, then to the next one; false behind the last. Throws the database's error.
    virtual bool Next() = 0;
    // Valid until Next. Null reads as empty.
    virtual std::string_view Text(std::size_t column) const = 0;
    virtual bool IsNull(std::size_t column) const = 0;
    // Whether Text gives bytes that are no text.
    virtual bool IsBinary(std::size_t /*column*/) const { return false; }
};

}  // namespace vellumark::platform
