#include "platform/number_text.h"

#include <charconv>
#include <cmath>
#include <cstddef>

namespace vellumark::platform {

namespace {

constexpr double kSmallestPlain = 1e-7;
constexpr double kSmallestWithExponent = 1e15;

}  // namespace

void AppendNumberText(std::string& out, double number) {
    const double size = std::abs(number);
    if (size == 0) {
        out += '0';
        return;
    }
    const bool plain = size >= kSmallestPlain && size < kSmallestWithExponent;
    char digits[48];
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    const std::size_t start = out.size();
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number, format).ptr);
    const std::size_t exponent = plain ? std::string::npos : out.find('e', start);
    if (exponent != std::string::npos)
        out[exponent] = 'E';
}

std::string NumberText(double number) {
    std::string text;
    AppendNumberText(text, number);
    return text;
}

}  // namespace vellumark::platform
