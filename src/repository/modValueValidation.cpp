#include "repository/modValueValidation.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

#include "platform/dialogs.h"
#include "platform/text.h"
#include "repository/modConsistencyCheck.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

using platform::LeftCharacters;

struct NumberBounds {
    double low;
    double high;
    std::string_view lowText;
    std::string_view highText;
};

std::optional<NumberBounds> BoundsOf(DataType type) {
    switch (type) {
        case DataType::Integer:
            return NumberBounds{-32768, 32767, "-32768", "32767"};
        case DataType::LongInteger:
            return NumberBounds{-2147483648.0, 2147483647.0, "-2147483648", "2147483647"};
        case DataType::Currency:
            return NumberBounds{-922337203685477.0, 922337203685477.0, "-922337203685477", "922337203685477"};
        case DataType::Single:
            return NumberBounds{-3.402823E+38, 3.402823E+38, "-3.402823E+38", "3.402823E+38"};
        case DataType::Double:  // one digit short of what the type holds, and kept so
            return NumberBounds{-1.79769313486232E+307, 1.79769313486232E+307, "-1.79769313486232E+307",
                                "1.79769313486232E+307"};
        case DataType::BigInteger:
            return NumberBounds{-9.22337203685478E+18, 9.22337203685478E+18, "-9.22337203685478E+18",
                                "9.22337203685478E+18"};
        case DataType::TinyInteger:
            return NumberBounds{0, 255, "0", "255"};
        default:
            return std::nullopt;
    }
}

// The text has passed fValidNumber or was cut from one that did.
double NumberIn(std::string_view text) {
    std::string machineForm(text);
    std::replace(machineForm.begin(), machineForm.end(), DecimalPointCharacter, '.');
    double number = 0;
    const auto result = std::from_chars(machineForm.data(), machineForm.data() + machineForm.size(), number,
                                        std::chars_format::fixed);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    const double infinity = std::numeric_limits<double>::infinity();
    return text.starts_with('-') ? -infinity : infinity;
}

void Cut(std::string& value, int length, const TooLargeRule& rule, std::string_view defaultValue) {
    const auto count = static_cast<std::size_t>(std::max(length, 0));
    if (rule.code == "B")
        value.resize(LeftCharacters(value, count).size());
    else if (rule.code == "E")
        value.erase(0, value.size() - platform::RightCharacters(value, count).size());
    else if (rule.code == "D")
        value = LeftCharacters(defaultValue, count);
}

bool ValidateText(std::string& value, int maximumLength, const TooLargeRule& tooLarge, bool showMessages) {
    const auto room = static_cast<std::size_t>(std::max(maximumLength, 0));
    if (value.size() <= room || platform::CharacterCount(value) <= room)
        return true;
    if (showMessages)
        return platform::Refuse("Maximimum valid length is " + std::to_string(maximumLength) +
                                " characters.");
    Cut(value, maximumLength, tooLarge, tooLarge.defaultText);
    return true;
}

// Digits on both sides of the decimal point.
bool ValidateDigits(std::string& value, const ColumnWidths& widths, const TooLargeRule& tooLarge,
                    bool showMessages) {
    const NumberDigits digits = GetNumberDigits(value);
    if (digits.integerDigits > widths.precision) {
        if (showMessages)
            return platform::Refuse("Maximimum valid length of number before decimal place is " +
                                    std::to_string(widths.precision) + " digits.");
        Cut(value, widths.precision, tooLarge, tooLarge.defaultNumber);
    }
    if (digits.decimalDigits > widths.scale && showMessages)
        return platform::Refuse("Maximimum valid length of number after decimal place is " +
                                std::to_string(widths.scale) + " digits.");
    return true;
}

bool ValidateNumber(std::string& value, const ColumnWidths& widths, DataType type,
                    const TooLargeRule& tooLarge, bool showMessages) {
    if (!fValidNumber(value, type, DecimalPointCharacter)) {
        if (showMessages)
            return platform::Refuse("Data type " + std::string(DataTypeName(type)) +
                                    " must be numeric with no digit grouping symbols.");
        value = "0";
    }
    if ((widths.precision > 0 || widths.scale > 0) && !ValidateDigits(value, widths, tooLarge, showMessages))
        return false;
    return fCheckNumberRange(value, type, showMessages);
}

}  // namespace

bool fValidateValue(std::string& value, const ColumnWidths& widths, DataType type,
                    const TooLargeRule& tooLarge, bool showMessages) {
    switch (type) {
        case DataType::Character:
            return ValidateText(value, widths.maximumLength, tooLarge, showMessages);
        case DataType::Blob:
            Cut(value, widths.maximumLength, {"B", {}, {}}, {});
            return true;
        case DataType::Boolean:
        case DataType::Date:
        case DataType::Time:
        case DataType::TimeStamp:
            return true;
        default:
            return ValidateNumber(value, widths, type, tooLarge, showMessages);
    }
}

bool fCheckNumberRange(std::string& value, DataType type, bool showMessages) {
    if (std::ranges::none_of(value, [](char c) { return c >= '0' && c <= '9'; }))
        value = "0";
    const auto bounds = BoundsOf(type);
    if (!bounds)
        return true;
    const double number = NumberIn(value);
    if (number >= bounds->low && number <= bounds->high)
        return true;
    if (showMessages)
        return platform::Refuse("Please enter a number within the valid range:\n" +
                                std::string(bounds->lowText) + " to " + std::string(bounds->highText));
    value = number < bounds->low ? bounds->lowText : bounds->highText;
    return true;
}

}  // namespace vellumark
