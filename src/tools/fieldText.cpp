#include "tools/fieldText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "platform/dao/stored_date.h"
#include "platform/error.h"
#include "platform/text.h"

namespace vellumark {

namespace {

using platform::EqualsIgnoringCase;

constexpr std::string_view kDigits = "0123456789ABCDEF";

[[noreturn]] void ThrowNoValue(std::string_view text, const ShownColumn& column, std::string_view what) {
    throw platform::Error(platform::kConversionError, "Data type conversion error. '" + std::string(text) +
                                                          "' is no " + std::string(what) + " for " +
                                                          column.name + ".");
}

std::string Hex(std::string_view bytes) {
    std::string text = "0x";
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        text += kDigits[number >> 4U];
        text += kDigits[number & 0x0FU];
    }
    return text;
}

// Nothing when the text is no pairs of digits, with "0x" in front or not.
std::optional<std::string> BytesIn(std::string_view text) {
    std::string digits;
    for (const char c : text.substr(platform::StartsWithIgnoringCase(text, "0x") ? 2 : 0))
        if (c != ' ')
            digits += c;
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        unsigned number = 0;
        const char* const end = digits.data() + i + 2;
        const auto read = std::from_chars(digits.data() + i, end, number, 16);
        if (read.ptr != end || read.ec != std::errc{})
            return std::nullopt;
        bytes += static_cast<char>(number);
    }
    return digits.size() % 2 == 0 ? std::optional(bytes) : std::nullopt;
}

bool IsNumber(std::string_view text) {
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc{} && read.ptr == text.data() + text.size();
}

bool IsAmong(std::string_view text, std::initializer_list<std::string_view> words) {
    return std::ranges::any_of(words, [&](std::string_view word) { return EqualsIgnoringCase(text, word); });
}

HeldField BooleanField(std::string_view text, const ShownColumn& column) {
    if (IsAmong(text, {"-1", "1", "True", "Yes", "On"}))
        return TextField("-1");
    if (!IsAmong(text, {"0", "False", "No", "Off"}))
        ThrowNoValue(text, column, "truth value (True or False)");
    return TextField("0");
}

HeldField JudgedField(std::string_view text, const ShownColumn& column) {
    const dao::DateForm form = dao::DateFormOf(column.type);
    if (form != dao::DateForm::None) {
        std::string stored;
        if (!dao::AppendStoredDate(stored, form, text))
            ThrowNoValue(text, column, "date or time (YYYY-MM-DD HH:MM:SS)");
        return TextField(std::move(stored));
    }
    if (column.type.daoType == dao::dbBoolean)
        return BooleanField(text, column);
    if (column.IsNumber() && !IsNumber(text))
        ThrowNoValue(text, column, "number");
    return TextField(std::string(text));
}

}  // namespace

std::string FieldText(const HeldField& field) {
    if (field.kind != HeldField::Kind::Bytes)
        return field.cut ? field.text + "..." : field.text;
    if (ShowsWhole(field))
        return Hex(field.text);
    return Hex(std::string_view(field.text).substr(0, kMostBytesShown)) + "... (" +
           (field.cut ? "more than " : "") + std::to_string(field.text.size()) + " bytes)";
}

bool ShowsWhole(const HeldField& field) {
    return !field.cut && (field.kind != HeldField::Kind::Bytes || field.text.size() <= kMostBytesShown);
}

HeldField FieldFromText(std::string_view text, const ShownColumn& column, bool judge) {
    if (!column.IsBinary())
        return judge ? JudgedField(text, column) : TextField(std::string(text));
    std::optional<std::string> bytes = BytesIn(text);
    if (!bytes)
        ThrowNoValue(text, column, "row of bytes (0x and two hexadecimal digits a byte)");
    return BytesField(std::move(*bytes));
}

}  // namespace vellumark
