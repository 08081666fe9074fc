#include "repository/modConsistencyCheck.h"

#include <algorithm>
#include <string>

#include "platform/calendar.h"
#include "platform/dialogs.h"
#include "platform/text.h"

namespace vellumark {

namespace {

using platform::CharacterCount;
using platform::MiddleCharacters;

constexpr std::string_view kDateLength =
    "'<value>' is invalid. Please enter Date as 10 characters in this format (YYYY-MM-DD).";
constexpr std::string_view kDateDigits =
    "Please enter numbers only. Date must be 10 characters in this format (YYYY-MM-DD).";
constexpr std::string_view kDateSeparator =
    "Please enter - as date separator. Date must be 10 characters in this format (YYYY-MM-DD).";
constexpr std::string_view kDateYear =
    "'<value>' does not have year entered correctly. Date must be 10 characters in this format YYYY-MM-DD.";
constexpr std::string_view kDateMonth =
    "'<value>' does not have month entered correctly. Date must be 10 characters in this format YYYY-MM-DD.";
constexpr std::string_view kMonthOf30 =
    "This month has 30 days. Date must be 10 characters in this format (YYYY-MM-DD).";
constexpr std::string_view kMonthOf31 =
    "This month has 31 days. Date must be 10 characters in this format (YYYY-MM-DD).";
constexpr std::string_view kFebruary =
    "'<value>' does not have correct date for this month '<month>'. Date must be 10 characters in this "
    "format "
    "(YYYY-MM-DD).";
constexpr std::string_view kNoLeapYear =
    "'<value>' has an invalid date as it is not a leap year. Date must be 10 characters in this format "
    "(YYYY-MM-DD).";

constexpr std::string_view kTimeLength =
    "'<value>' contains an invalid time. Please enter time with 8 characters in this format (HH:MI:SS).";
constexpr std::string_view kTimeDigits =
    "Please enter numbers only. Time must be 8 characters in this format (HH:MI:SS).";
constexpr std::string_view kTimeSeparator =
    "Please enter : as time separator. Time must be 8 characters in this format (HH:MI:SS).";
constexpr std::string_view kHours =
    "'<value>' is invalid. Hours can be from 0 to 24. Please enter time with 8 characters in this format "
    "(HH:MI:SS).";
constexpr std::string_view kMinutes =
    "'<value>' is invalid. Minutes can be from 0 to 59. Please enter time with 8 characters in this format "
    "(HH:MI:SS).";
constexpr std::string_view kSeconds =
    "'<value>' can have seconds from 0 to 59. Please enter time with 8 characters in this format (HH:MI:SS).";

constexpr std::string_view kTimestampLength =
    "'<value>' has invalid timestamp. Please enter 26 characters for timestamp in this format, (YYYY-MM-DD "
    "HH:MI:SS.nnnnnn).";
constexpr std::string_view kTimestampBlank =
    "Please use a space as separator between days and hours. Please enter timestamp in this format, "
    "(YYYY-MM-DD HH:MI:SS.nnnnnn).";
constexpr std::string_view kTimestampPoint =
    "Please use . as separator between seconds and microseconds. Please enter timestamp in this format, "
    "(YYYY-MM-DD HH:MI:SS.nnnnnn).";

// The digits' number; the text is all digits and short.
int NumberOf(std::string_view digits) {
    return platform::ParseLong(digits).value_or(0);
}

bool Reject(std::string_view fault, std::string_view value, bool showMessage) {
    if (showMessage) {
        const std::string month = platform::Replace(fault, "<month>", MiddleCharacters(value, 6, 2));
        platform::ShowExclamation(platform::Replace(month, "<value>", value));
    }
    return false;
}

// What is wrong with the day of a good year and month.
std::string_view DayFault(int year, int month, int day) {
    if (month == 2 && day == 29 && !platform::IsLeapYear(year))
        return kNoLeapYear;
    const int last = month == 2 ? 29 : platform::DaysInMonth(year, month);
    if (day >= 1 && day <= last)
        return {};
    return month == 2 ? kFebruary : last == 30 ? kMonthOf30 : kMonthOf31;
}

// The message that belongs to the first fault; empty when there is none.
std::string_view DateFault(std::string_view text) {
    if (CharacterCount(text) != 10)
        return kDateLength;
    const std::string_view year = MiddleCharacters(text, 1, 4);
    const std::string_view month = MiddleCharacters(text, 6, 2);
    const std::string_view day = MiddleCharacters(text, 9, 2);
    if (!fAllDigits(year) || !fAllDigits(month) || !fAllDigits(day))
        return kDateDigits;
    if (MiddleCharacters(text, 5, 1) != "-" || MiddleCharacters(text, 8, 1) != "-")
        return kDateSeparator;
    if (NumberOf(year) == 0)
        return kDateYear;
    if (NumberOf(month) < 1 || NumberOf(month) > 12)
        return kDateMonth;
    return DayFault(NumberOf(year), NumberOf(month), NumberOf(day));
}

std::string_view TimeFault(std::string_view text) {
    if (CharacterCount(text) != 8)
        return kTimeLength;
    const std::string_view hours = MiddleCharacters(text, 1, 2);
    const std::string_view minutes = MiddleCharacters(text, 4, 2);
    const std::string_view seconds = MiddleCharacters(text, 7, 2);
    if (!fAllDigits(hours) || !fAllDigits(minutes) || !fAllDigits(seconds))
        return kTimeDigits;
    if (MiddleCharacters(text, 3, 1) != ":" || MiddleCharacters(text, 6, 1) != ":")
        return kTimeSeparator;
    if (NumberOf(hours) > 24)
        return kHours;
    if (NumberOf(minutes) > 59)
        return kMinutes;
    return NumberOf(seconds) > 59 ? kSeconds : std::string_view{};
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

bool fAllDigits(std::string_view text) {
    return std::ranges::all_of(text, IsDigit);
}

bool fValidDate(std::string_view text, bool showMessage) {
    const std::string_view value = platform::Trim(text);
    if (platform::ParseDate(value))  // the quick way for good values
        return true;
    const std::string_view fault = DateFault(value);
    return fault.empty() || Reject(fault, value, showMessage);
}

bool fValidTime(std::string_view text, bool showMessage) {
    const std::string_view value = platform::Trim(text);
    if (platform::ParseTime(value))
        return true;
    const std::string_view fault = TimeFault(value);
    return fault.empty() || Reject(fault, value, showMessage);
}

bool fValidTimestamp(std::string_view text, bool showMessage) {
    const std::string_view value = platform::Trim(text);
    if (CharacterCount(value) != 26)
        return Reject(kTimestampLength, value, showMessage);
    if (!fValidDate(MiddleCharacters(value, 1, 10), showMessage) ||
        !fValidTime(MiddleCharacters(value, 12, 8), showMessage))
        return false;
    if (MiddleCharacters(value, 11, 1) != " ")
        return Reject(kTimestampBlank, value, showMessage);
    if (MiddleCharacters(value, 20, 1) != ".")
        return Reject(kTimestampPoint, value, showMessage);
    return true;
}

bool fValidNumber(std::string_view text, DataType type, char decimalPoint) {
    bool pointAllowed = TakesDecimalPoint(type);
    bool hasDigit = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsDigit(text[i]))
            hasDigit = true;
        else if (pointAllowed && text[i] == decimalPoint)
            pointAllowed = false;
        else if (text[i] != '-' || i != 0)
            return false;
    }
    return hasDigit || text.empty();
}

}  // namespace vellumark
