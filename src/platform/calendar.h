#pragma once

#include <optional>
#include <string>
#include <string_view>

// Proleptic Gregorian calendar with English names and no locale. Texts hold the years 1 to 9999 and the hours
// 0 to 24, as the stores may; moves stay within the years 100 to 9999 and end in the hours 0 to 23. Nothing
// here allocates but the texts that callers append to.
namespace vellumark::platform {

inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;

struct Date {
    int year = 1899;
    int month = 12;
    int day = 30;
    bool operator==(const Date&) const = default;
};

struct Time {
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool operator==(const Time&) const = default;
};

struct Moment {
    Date date;
    Time time;
    bool operator==(const Moment&) const = default;
};

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);

// Day 0 is 1899-12-30, as in the serial dates of stores and spreadsheets.
int DayNumber(const Date& date);
Date DateOfDayNumber(int dayNumber);

// "Jan" for 1 to "Dec" for 12.
std::string_view ShortMonthName(int month);
std::string_view ShortWeekdayName(const Date& date);

// "YYYY-MM-DD", nothing around it.
std::optional<Date> ParseDate(std::string_view text);
// "HH:MM:SS", nothing around it.
std::optional<Time> ParseTime(std::string_view text);
// "YYYY-MM-DD", alone or with " HH:MM:SS" and a fraction of up to six digits, which is dropped; or
// "MM/DD/YYYY HH:MM:SS AM" on the twelve-hour clock.
std::optional<Moment> ParseMoment(std::string_view text);

enum class MoveUnit { Year, Month, Day, Hour, Minute, Second };

// The letters Y, M, D, H, N (minute) and S.
std::optional<MoveUnit> ParseMoveUnit(std::string_view code);
bool MovesDate(MoveUnit unit);
bool MovesTime(MoveUnit unit);

// Months and years keep the day or take the month's last. A time goes round the clock. Throws
// kInvalidProcedureCall when the years 100 to 9999 are left or the unit is none of that kind of value.
Date Move(const Date& date, MoveUnit unit, int amount);
Time Move(const Time& time, MoveUnit unit, int amount);
Moment Move(const Moment& moment, MoveUnit unit, int amount);

// Values from 0 to 99 and from 0 to 9999.
void AppendTwoDigits(std::string& out, int value);
void AppendFourDigits(std::string& out, int value);

// "YYYY-MM-DD", "HH:MM:SS" and both with a blank between.
void AppendDate(std::string& out, const Date& date);
void AppendTime(std::string& out, const Time& time, char separator = ':');
void AppendMoment(std::string& out, const Moment& moment);

}  // namespace vellumark::platform
