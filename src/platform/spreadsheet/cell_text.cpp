#include "platform/spreadsheet/cell_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/calendar.h"
#include "platform/error.h"
#include "platform/number_text.h"
#include "platform/text.h"

namespace vellumark::platform {

namespace {

constexpr int kSecondsOfDay = 86400;
constexpr int kDaysTo1904 = 1462;
constexpr int kLastDay = 2958465;  // 9999-12-31
// Spreadsheets take 1900 for a leap year: their numbers before its March are one short.
constexpr int kFirstTrueDay = 60;

Time TimeOfSecond(int second) {
    return {second / 3600, second / 60 % 60, second % 60};
}

// The format code without its texts, escaped characters and square brackets, but for those that hold hours,
// minutes or seconds. Reads up to the first semicolon.
std::string BareCode(std::string_view code) {
    std::string bare;
    for (std::size_t i = 0; i < code.size() && code[i] != ';'; ++i) {
        if (code[i] == '"') {
            i = code.find('"', i + 1);
        } else if (code[i] == '\\' || code[i] == '_' || code[i] == '*') {
            ++i;
        } else if (code[i] == '[') {
            const std::size_t end = code.find(']', i);
            const std::string inside = ToLower(code.substr(i + 1, end - i - 1));
            if (inside.find_first_not_of("hms") == std::string::npos)
                bare += inside;
            i = end;
        } else {
            bare += code[i];
        }
        if (i == std::string_view::npos)
            break;
    }
    return ToLower(bare);
}

// The number in front of `unit`, which is taken off; nothing when it isn't there.
double TakeUnit(std::string_view& text, char unit) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end == text.data() + text.size() || *end != unit)
        return 0;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
    return number;
}

void AppendClock(std::string& out, std::int64_t hours, int secondOfHour) {
    if (hours < 10)
        out += '0';
    out += std::to_string(hours);
    out += ':';
    AppendTwoDigits(out, secondOfHour / 60);
    out += ':';
    AppendTwoDigits(out, secondOfHour % 60);
}

// Nothing outside of the years in which moments move.
std::optional<Moment> NextSecond(const Moment& moment) {
    try {
        return Move(moment, MoveUnit::Second, 1);
    } catch (const Error&) {
        return std::nullopt;
    }
}

}  // namespace

void AppendSerialDate(std::string& out, double serial, bool from1904) {
    const double shifted = serial + (from1904 ? kDaysTo1904 : 0);
    if (!(shifted >= 0 && shifted < kLastDay + 1))
        return AppendNumberText(out, serial);
    const auto seconds = static_cast<std::int64_t>(std::llround(shifted * kSecondsOfDay));
    int day = static_cast<int>(seconds / kSecondsOfDay);
    const int second = static_cast<int>(seconds % kSecondsOfDay);
    if (serial < 1 && day - (from1904 ? kDaysTo1904 : 0) == 0)
        return AppendTime(out, TimeOfSecond(second));
    if (day > kLastDay)
        return AppendNumberText(out, serial);
    if (!from1904 && day < kFirstTrueDay)
        ++day;
    AppendDate(out, DateOfDayNumber(day));
    if (second == 0)
        return;
    out += ' ';
    AppendTime(out, TimeOfSecond(second));
}

void AppendIsoDate(std::string& out, std::string_view text) {
    constexpr std::size_t dateLength = 10;
    constexpr std::size_t momentLength = 19;
    std::string moment(text.substr(0, momentLength));
    if (moment.size() > dateLength)
        moment[dateLength] = ' ';
    auto rounded = ParseMoment(moment);
    const std::string_view fraction = text.substr(moment.size());
    if (rounded && fraction.size() > 1 && fraction[0] == '.' && fraction[1] >= '5')
        rounded = NextSecond(*rounded);
    if (!rounded) {
        out += text;
        return;
    }
    AppendDate(out, rounded->date);
    if (rounded->time == Time{})
        return;
    out += ' ';
    AppendTime(out, rounded->time);
}

void AppendIsoDuration(std::string& out, std::string_view text) {
    if (!text.starts_with("PT")) {
        out += text;
        return;
    }
    text.remove_prefix(2);
    const double hours = TakeUnit(text, 'H');
    const double minutes = TakeUnit(text, 'M');
    const auto seconds =
        static_cast<std::int64_t>(std::llround((hours * 60 + minutes) * 60 + TakeUnit(text, 'S')));
    AppendClock(out, seconds / 3600, static_cast<int>(seconds % 3600));
}

CellFormat FormatOfCode(std::string_view code) {
    if (EqualsIgnoringCase(code, "\"TRUE\";\"TRUE\";\"FALSE\""))
        return CellFormat::Boolean;
    const std::string bare = BareCode(code);
    const bool isNumber =
        bare.find("general") != std::string::npos || bare.find_first_of("0#?@") != std::string::npos;
    // Fractions of a second are written with zeros.
    const bool hasDateParts = bare.find_first_of("ymdhs") != std::string::npos;
    const bool isClock = bare.find('s') != std::string::npos;
    return hasDateParts && (!isNumber || isClock) ? CellFormat::Date : CellFormat::Number;
}

CellFormat BuiltInFormat(int id) {
    constexpr std::array<std::array<int, 2>, 4> dates = {{{14, 22}, {27, 36}, {45, 47}, {50, 58}}};
    for (const auto& [first, last] : dates)
        if (id >= first && id <= last)
            return CellFormat::Date;
    return CellFormat::Number;
}

void AppendFormatted(std::string& out, double number, CellFormat format, bool from1904) {
    switch (format) {
        case CellFormat::Date:
            return AppendSerialDate(out, number, from1904);
        case CellFormat::Boolean:
            out += number == 0 ? kFalseText : kTrueText;
            return;
        default:
            return AppendNumberText(out, number);
    }
}

}  // namespace vellumark::platform
