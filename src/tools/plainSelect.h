#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vellumark {

// A statement whose rows are those of one table with all its columns, so that they can be edited.
struct PlainSelect {
    std::string owner;  // empty when the table is named without one
    std::string table;
    std::size_t listAt = 0;  // where "*" stands in the text
};

// Nothing for any other statement: with other tables, names of its own, groups or unions.
std::optional<PlainSelect> ReadPlainSelect(std::string_view sql);

}  // namespace vellumark
