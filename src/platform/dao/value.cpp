#include "platform/dao/value.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "platform/error.h"
#include "platform/number_text.h"

namespace vellumark::dao {

namespace {

int Narrow(double number) {
    if (!(number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()))
        throw platform::Error(platform::kOverflow, "Overflow");
    return static_cast<int>(number);
}

double NumberIn(const std::string& text) {
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

int ToLong(const Value& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        return Narrow(static_cast<double>(*integer));
    if (const auto* real = std::get_if<double>(&value))
        return Narrow(std::nearbyint(*real));
    if (const auto* text = std::get_if<std::string>(&value))
        return Narrow(NumberIn(*text));
    return 0;
}

bool ToBoolean(const Value& value) {
    if (const auto* real = std::get_if<double>(&value))
        return *real != 0;
    return ToLong(value) != 0;
}

std::string ToText(const Value& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        return std::to_string(*integer);
    if (const auto* real = std::get_if<double>(&value))
        return platform::NumberText(*real);
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* blob = std::get_if<Blob>(&value))
        return blob->bytes;
    return {};
}

}  // namespace vellumark::dao
