#include "platform/calendar.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/error.h"

namespace vellumark::platform {

namespace {

constexpr int kDaysPerEra = 146097;           // 400 years
constexpr int kDayZeroFromEraStart = 693899;  // 0000-03-01 to 1899-12-30
constexpr int kSecondsPerDay = 86400;

constexpr std::array<std::string_view, 12> kMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> kWeekdayNames = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 6> kUnitNames = {"years", "months",  "days",
                                                        "hours", "minutes", "seconds"};

// The number in `count` digits from `at`, or -1 when one is no digit. The text is long enough.
int DigitsAt(std::string_view text, std::size_t at, std::size_t count) {
    int number = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        if (text[i] < '0' || text[i] > '9')
            return -1;
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

std::optional<Date> CheckedDate(int year, int month, int day) {
    if (year < 1 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month))
        return std::nullopt;
    return Date{year, month, day};
}

bool IsFraction(std::string_view text) {
    if (text.size() < 2 || text.size() > 7 || text[0] != '.')
        return false;
    return DigitsAt(text, 1, text.size() - 1) >= 0;
}

// "MM/DD/YYYY HH:MM:SS AM"
std::optional<Moment> ParseTwelveHourMoment(std::string_view text) {
    if (text[2] != '/' || text[5] != '/' || text[10] != ' ' || text[19] != ' ' || text[21] != 'M')
        return std::nullopt;
    const auto date = CheckedDate(DigitsAt(text, 6, 4), DigitsAt(text, 0, 2), DigitsAt(text, 3, 2));
    auto time = ParseTime(text.substr(11, 8));
    const bool afternoon = text[20] == 'P';
    if (!date || !time || time->hour < 1 || time->hour > 12 || (!afternoon && text[20] != 'A'))
        return std::nullopt;
    time->hour = time->hour % 12 + (afternoon ? 12 : 0);
    return Moment{*date, *time};
}

[[noreturn]] void ThrowMove(const std::string& reason) {
    throw Error(kInvalidProcedureCall, "Invalid procedure call or argument: " + reason);
}

[[noreturn]] void ThrowWrongUnit(std::string_view value, MoveUnit unit) {
    ThrowMove(std::string(value) + " does not move by " +
              std::string(kUnitNames[static_cast<std::size_t>(unit)]));
}

[[noreturn]] void ThrowLeavesYears(const Date& date, MoveUnit unit, int amount) {
    std::string reason = "moving ";
    AppendDate(reason, date);
    reason += " by " + std::to_string(amount) + " ";
    reason += kUnitNames[static_cast<std::size_t>(unit)];
    ThrowMove(reason + " leaves the years 100 to 9999");
}

std::optional<Date> MovedByMonths(const Date& date, std::int64_t months) {
    const std::int64_t index = std::int64_t{date.year} * 12 + date.month - 1 + months;
    if (index < kFirstYear * 12 || index >= (kLastYear + 1) * 12)
        return std::nullopt;
    const int year = static_cast<int>(index / 12);
    const int month = static_cast<int>(index % 12) + 1;
    const int last = DaysInMonth(year, month);
    return Date{year, month, date.day < last ? date.day : last};
}

std::optional<Date> DateInRange(std::int64_t dayNumber) {
    static const int first = DayNumber({kFirstYear, 1, 1});
    static const int last = DayNumber({kLastYear, 12, 31});
    if (dayNumber < first || dayNumber > last)
        return std::nullopt;
    return DateOfDayNumber(static_cast<int>(dayNumber));
}

std::int64_t SecondsOf(MoveUnit unit) {
    return unit == MoveUnit::Hour ? 3600 : unit == MoveUnit::Minute ? 60 : 1;
}

int SecondOfDay(const Time& time) {
    return time.hour * 3600 + time.minute * 60 + time.second;
}

struct DaysAndTime {
    std::int64_t days;
    Time time;
};

// Whole days, rounded down, and the time that is left.
DaysAndTime SplitSeconds(std::int64_t seconds) {
    std::int64_t days = seconds / kSecondsPerDay;
    int rest = static_cast<int>(seconds % kSecondsPerDay);
    if (rest < 0) {
        rest += kSecondsPerDay;
        --days;
    }
    return {days, {rest / 3600, rest / 60 % 60, rest % 60}};
}

void PutTwoDigits(char* at, int value) {
    at[0] = static_cast<char>('0' + value / 10);
    at[1] = static_cast<char>('0' + value % 10);
}

void PutDate(char* at, const Date& date) {
    PutTwoDigits(at, date.year / 100);
    PutTwoDigits(at + 2, date.year % 100);
    at[4] = '-';
    PutTwoDigits(at + 5, date.month);
    at[7] = '-';
    PutTwoDigits(at + 8, date.day);
}

void PutTime(char* at, const Time& time, char separator) {
    PutTwoDigits(at, time.hour);
    at[2] = separator;
    PutTwoDigits(at + 3, time.minute);
    at[5] = separator;
    PutTwoDigits(at + 6, time.second);
}

}  // namespace

bool IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInMonth(int year, int month) {
    if (month == 2)
        return IsLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

int DayNumber(const Date& date) {
    // Years begin in March here, so that the leap day is a year's last.
    const int year = date.month > 2 ? date.year : date.year - 1;
    const int month = date.month > 2 ? date.month - 3 : date.month + 9;
    const int era = (year >= 0 ? year : year - 399) / 400;
    const int yearOfEra = year - era * 400;
    const int dayOfYear = (153 * month + 2) / 5 + date.day - 1;
    return era * kDaysPerEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear -
           kDayZeroFromEraStart;
}

Date DateOfDayNumber(int dayNumber) {
    const int day = dayNumber + kDayZeroFromEraStart;
    const int era = (day >= 0 ? day : day - (kDaysPerEra - 1)) / kDaysPerEra;
    const int dayOfEra = day - era * kDaysPerEra;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int month = (5 * dayOfYear + 2) / 153;
    const int year = era * 400 + yearOfEra + (month > 9 ? 1 : 0);
    return {year, month > 9 ? month - 9 : month + 3, dayOfYear - (153 * month + 2) / 5 + 1};
}

std::string_view ShortMonthName(int month) {
    return kMonthNames.at(static_cast<std::size_t>(month - 1));
}

std::string_view ShortWeekdayName(const Date& date) {
    const int fromSaturday = DayNumber(date) % 7;  // day 0 is a Saturday
    return kWeekdayNames[static_cast<std::size_t>((fromSaturday + 13) % 7)];
}

std::optional<Date> ParseDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    return CheckedDate(DigitsAt(text, 0, 4), DigitsAt(text, 5, 2), DigitsAt(text, 8, 2));
}

std::optional<Time> ParseTime(std::string_view text) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':')
        return std::nullopt;
    const Time time{DigitsAt(text, 0, 2), DigitsAt(text, 3, 2), DigitsAt(text, 6, 2)};
    if (time.hour < 0 || time.hour > 24 || time.minute < 0 || time.minute > 59 || time.second < 0 ||
        time.second > 59)
        return std::nullopt;
    return time;
}

std::optional<Moment> ParseMoment(std::string_view text) {
    if (text.size() == 22 && text[2] == '/')
        return ParseTwelveHourMoment(text);
    const auto date = ParseDate(text.substr(0, 10));
    if (!date)
        return std::nullopt;
    if (text.size() == 10)
        return Moment{*date, {}};
    if (text.size() < 19 || text[10] != ' ' || (text.size() > 19 && !IsFraction(text.substr(19))))
        return std::nullopt;
    const auto time = ParseTime(text.substr(11, 8));
    if (!time)
        return std::nullopt;
    return Moment{*date, *time};
}

std::optional<MoveUnit> ParseMoveUnit(std::string_view code) {
    constexpr std::string_view letters = "YMDHNS";
    const std::size_t at = code.size() == 1 ? letters.find(code[0]) : std::string_view::npos;
    if (at == std::string_view::npos)
        return std::nullopt;
    return static_cast<MoveUnit>(at);
}

bool MovesDate(MoveUnit unit) {
    return unit <= MoveUnit::Day;
}

bool MovesTime(MoveUnit unit) {
    return !MovesDate(unit);
}

Date Move(const Date& date, MoveUnit unit, int amount) {
    if (!MovesDate(unit))
        ThrowWrongUnit("a date", unit);
    const std::int64_t wide = amount;
    const auto moved = unit == MoveUnit::Day     ? DateInRange(DayNumber(date) + wide)
                       : unit == MoveUnit::Month ? MovedByMonths(date, wide)
                                                 : MovedByMonths(date, wide * 12);
    if (!moved)
        ThrowLeavesYears(date, unit, amount);
    return *moved;
}

Time Move(const Time& time, MoveUnit unit, int amount) {
    if (!MovesTime(unit))
        ThrowWrongUnit("a time", unit);
    return SplitSeconds(SecondOfDay(time) + amount * SecondsOf(unit)).time;
}

Moment Move(const Moment& moment, MoveUnit unit, int amount) {
    if (MovesDate(unit))
        return {Move(moment.date, unit, amount), moment.time};
    const DaysAndTime moved = SplitSeconds(SecondOfDay(moment.time) + amount * SecondsOf(unit));
    const auto date = DateInRange(DayNumber(moment.date) + moved.days);
    if (!date)
        ThrowLeavesYears(moment.date, unit, amount);
    return {*date, moved.time};
}

void AppendTwoDigits(std::string& out, int value) {
    char digits[2];
    PutTwoDigits(digits, value);
    out.append(digits, sizeof digits);
}

void AppendFourDigits(std::string& out, int value) {
    char digits[4];
    PutTwoDigits(digits, value / 100);
    PutTwoDigits(digits + 2, value % 100);
    out.append(digits, sizeof digits);
}

void AppendDate(std::string& out, const Date& date) {
    char text[10];
    PutDate(text, date);
    out.append(text, sizeof text);
}

void AppendTime(std::string& out, const Time& time, char separator) {
    char text[8];
    PutTime(text, time, separator);
    out.append(text, sizeof text);
}

void AppendMoment(std::string& out, const Moment& moment) {
    char text[19];
    PutDate(text, moment.date);
    text[10] = ' ';
    PutTime(text + 11, moment.time, ':');
    out.append(text, sizeof text);
}

}  // namespace vellumark::platform
