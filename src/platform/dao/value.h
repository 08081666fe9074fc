#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vellumark::dao {

struct Blob {
    std::string bytes;
    bool operator==(const Blob&) const = default;
};

// A field's content. std::monostate is Null.
using Value = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;

// A parameter bound to a "?" of a statement; text is only looked at while the call runs.
class Parameter {
 public:
    Parameter(int value) : value_(std::int64_t{value}) {}
    Parameter(std::int64_t value) : value_(value) {}
    Parameter(bool value) : value_(std::int64_t{value ? -1 : 0}) {}
    Parameter(double value) : value_(value) {}
    Parameter(const char* value) : value_(std::string(value)) {}
    Parameter(std::string_view value) : value_(std::string(value)) {}
    Parameter(std::string value) : value_(std::move(value)) {}
    Parameter(Value value) : value_(std::move(value)) {}

    const Value& Get() const { return value_; }

 private:
    Value value_;
};

using Parameters = std::vector<Parameter>;

// Null reads as 0, False or empty text. Text that is no number reads as 0. Throws kOverflow beyond 32 bits.
int ToLong(const Value& value);
bool ToBoolean(const Value& value);
std::string ToText(const Value& value);
inline bool IsNull(const Value& value) {
    return std::holds_alternative<std::monostate>(value);
}

}  // namespace vellumark::dao
