#include "repository/modJetTextValues.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "platform/calendar.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

using platform::EqualsIgnoringCase;

constexpr double kCurrencyLimit = 922337203685477.5807;
constexpr int kAdoDate = 133;  // a day without a time

[[noreturn]] void Refuse(int number, std::string_view text, std::string_view wanted) {
    throw platform::Error(number, "'" + std::string(text) + "' is no " + std::string(wanted));
}

std::string_view WithoutPlus(std::string_view text) {
    return text.size() > 1 && text[0] == '+' && text[1] != '-' ? text.substr(1) : text;
}

template <typename Number>
Number ParseNumber(std::string_view text, std::string_view wanted) {
    Number number{};
    const std::string_view digits = WithoutPlus(text);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::result_out_of_range)
        Refuse(platform::kOverflow, text, wanted);
    // The words for infinity and no number would be read too.
    if (error != std::errc{} || end != digits.data() + digits.size() ||
        !std::isfinite(static_cast<double>(number)))
        Refuse(platform::kTypeMismatch, text, wanted);
    return number;
}

template <typename Integer>
dao::Value ToInteger(std::string_view text) {
    const auto number = ParseNumber<std::int64_t>(text, "whole number");
    if (number < std::numeric_limits<Integer>::min() || number > std::numeric_limits<Integer>::max())
        Refuse(platform::kOverflow, text, "number that fits its column");
    return number;
}

double ParseReal(std::string_view text, double limit) {
    double number = 0;
    const std::size_t point = DecimalPointCharacter == '.' ? text.npos : text.find(DecimalPointCharacter);
    if (point == text.npos) {
        number = ParseNumber<double>(text, "number");
    } else {
        std::string withPoint(text);
        withPoint[point] = '.';
        number = ParseNumber<double>(withPoint, "number");
    }
    if (std::abs(number) > limit)
        Refuse(platform::kOverflow, text, "number that fits its column");
    return number;
}

dao::Value ToDouble(std::string_view text) {
    return ParseReal(text, std::numeric_limits<double>::max());
}

dao::Value ToSingle(std::string_view text) {
    return ParseReal(text, std::numeric_limits<float>::max());
}

dao::Value ToCurrency(std::string_view text) {
    return ParseReal(text, kCurrencyLimit);
}

dao::Value ToBit(std::string_view text) {
    if (EqualsIgnoringCase(text, "true") || EqualsIgnoringCase(text, "yes"))
        return std::int64_t{-1};
    if (EqualsIgnoringCase(text, "false") || EqualsIgnoringCase(text, "no"))
        return std::int64_t{0};
    return std::int64_t{ParseNumber<std::int64_t>(text, "True or False") == 0 ? 0 : -1};
}

// "DD/MM/YYYY", as a new rule of a Date column writes it.
std::optional<platform::Date> ParseDayFirst(std::string_view text) {
    if (text.size() != 10 || text[2] != '/' || text[5] != '/')
        return std::nullopt;
    return platform::ParseDate(std::string(text.substr(6)) + "-" + std::string(text.substr(3, 2)) + "-" +
                               std::string(text.substr(0, 2)));
}

// The timestamp's forms with minus and points ("YYYY-MM-DD-HH.MI.SS.NNNNNN") and without any separators.
std::optional<platform::Moment> ParseTimestamp(std::string_view text) {
    std::string plain(text);
    if (text.size() >= 19 && text[10] == '-' && text[13] == '.' && text[16] == '.') {
        plain[10] = ' ';
        plain[13] = plain[16] = ':';
    } else if (text.size() == 20 && text.find_first_not_of("0123456789") == text.npos) {
        for (const auto& [at, separator] :
             {std::pair{4, '-'}, {7, '-'}, {10, ' '}, {13, ':'}, {16, ':'}, {19, '.'}})
            plain.insert(static_cast<std::size_t>(at), 1, separator);
    }
    return platform::ParseMoment(plain);
}

platform::Moment ParseStored(std::string_view text) {
    if (const auto moment = ParseTimestamp(text))
        return *moment;
    if (const auto date = ParseDayFirst(text))
        return {*date, {}};
    if (const auto time = platform::ParseTime(text))
        return {platform::Date{}, *time};
    Refuse(platform::kTypeMismatch, text, "date or time");
}

dao::Value ToMoment(std::string_view text) {
    std::string stored;
    platform::AppendMoment(stored, ParseStored(text));
    return stored;
}

dao::Value ToDay(std::string_view text) {
    const platform::Moment moment = ParseStored(text);
    std::string stored;
    if (moment.time == platform::Time{})
        platform::AppendDate(stored, moment.date);
    else
        platform::AppendMoment(stored, moment);
    return stored;
}

dao::Value ToTime(std::string_view text) {
    std::string stored;
    platform::AppendTime(stored, ParseStored(text).time);
    return stored;
}

}  // namespace

TextConverter ConverterFor(const dao::ColumnType& type) {
    switch (type.daoType) {
        case dao::dbBoolean:
            return ToBit;
        case dao::dbByte:
            return ToInteger<std::uint8_t>;
        case dao::dbInteger:
            return ToInteger<std::int16_t>;
        case dao::dbLong:
            return ToInteger<std::int32_t>;
        case dao::dbBigInt:
            return ToInteger<std::int64_t>;
        case dao::dbCurrency:
            return ToCurrency;
        case dao::dbSingle:
            return ToSingle;
        case dao::dbDouble:
        case dao::dbFloat:
        case dao::dbNumeric:
        case dao::dbDecimal:
            return ToDouble;
        case dao::dbDate:
        case dao::dbTimeStamp:
            return type.adoType == kAdoDate ? ToDay : ToMoment;
        case dao::dbTime:
            return ToTime;
        default:
            return nullptr;
    }
}

}  // namespace vellumark
