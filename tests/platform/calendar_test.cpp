#include "platform/calendar.h"

#include <gtest/gtest.h>
#include <limits>

#include "platform/error.h"

namespace vellumark::platform {

namespace {

constexpr int kMostNegative = std::numeric_limits<int>::min();
constexpr int kMostPositive = std::numeric_limits<int>::max();

std::string Text(const Date& date) {
    std::string text;
    AppendDate(text, date);
    return text;
}

std::string Text(const Time& time) {
    std::string text;
    AppendTime(text, time);
    return text;
}

std::string Text(const Moment& moment) {
    std::string text;
    AppendMoment(text, moment);
    return text;
}

template <typename T>
std::string TextOrNone(const std::optional<T>& value) {
    return value ? Text(*value) : "none";
}

// The moved value, or the error's number and description.
template <typename T>
std::string Moved(const std::optional<T>& from, std::string_view unit, int amount) {
    try {
        return Text(Move(from.value(), ParseMoveUnit(unit).value(), amount));
    } catch (const Error& error) {
        return std::to_string(error.Number()) + " " + error.what();
    }
}

TEST(Calendar, LeapYearsAndMonthEnds) {
    struct Case {
        int year;
        int month;
        int days;
    };
    for (const auto& [year, month, days] :
         {Case{2000, 2, 29}, Case{1900, 2, 28}, Case{2004, 2, 29}, Case{2001, 2, 28}, Case{2400, 2, 29},
          Case{2001, 1, 31}, Case{2001, 4, 30}, Case{2001, 7, 31}, Case{2001, 8, 31}, Case{2001, 9, 30},
          Case{2001, 11, 30}, Case{2001, 12, 31}})
        EXPECT_EQ(DaysInMonth(year, month), days) << year << "-" << month;
}

TEST(Calendar, DayNumbers) {
    struct Case {
        Date date;
        int number;
    };
    for (const auto& [date, number] :
         {Case{{1899, 12, 30}, 0}, Case{{1899, 12, 31}, 1}, Case{{1900, 3, 1}, 61}, Case{{1970, 1, 1}, 25569},
          Case{{2000, 2, 29}, 36585}, Case{{9999, 12, 31}, 2958465}, Case{{100, 1, 1}, -657434}}) {
        EXPECT_EQ(DayNumber(date), number) << Text(date);
        EXPECT_EQ(Text(DateOfDayNumber(number)), Text(date));
    }
}

TEST(Calendar, EveryDayFollowsTheOneBefore) {
    Date date{1, 1, 1};
    for (int number = DayNumber(date); date.year <= kLastYear; ++number) {
        ASSERT_EQ(DayNumber(date), number) << Text(date);
        ASSERT_EQ(DateOfDayNumber(number), date) << number;
        if (++date.day > DaysInMonth(date.year, date.month)) {
            date.day = 1;
            date.month = date.month % 12 + 1;
            date.year += date.month == 1 ? 1 : 0;
        }
    }
}

TEST(Calendar, Names) {
    EXPECT_EQ(ShortMonthName(1), "Jan");
    EXPECT_EQ(ShortMonthName(9), "Sep");
    EXPECT_EQ(ShortMonthName(12), "Dec");
    EXPECT_EQ(ShortWeekdayName({2001, 2, 3}), "Sat");
    EXPECT_EQ(ShortWeekdayName({2024, 2, 29}), "Thu");
    EXPECT_EQ(ShortWeekdayName({1899, 12, 31}), "Sun");
    EXPECT_EQ(ShortWeekdayName({1899, 12, 29}), "Fri");
    EXPECT_EQ(ShortWeekdayName({1815, 6, 18}), "Sun");
}

TEST(Calendar, ParsesDates) {
    for (const char* good : {"2001-02-03", "2000-02-29", "0001-01-01", "9999-12-31"})
        EXPECT_EQ(TextOrNone(ParseDate(good)), good);
    for (const char* bad :
         {"", "2001-2-3", "2001/02/03", "1900-02-29", "0000-01-01", "2001-00-01", "2001-13-01", "2001-04-31",
          "2001-04-00", "20a1-02-03", " 2001-02-03", "2001-02-03 "})
        EXPECT_FALSE(ParseDate(bad)) << bad;
}

TEST(Calendar, ParsesTimes) {
    for (const char* good : {"00:00:00", "23:59:59", "24:59:59"})
        EXPECT_EQ(TextOrNone(ParseTime(good)), good);
    for (const char* bad :
         {"", "25:00:00", "12:60:00", "12:00:60", "1:00:00", "12.00.00", "-1:00:00", "12:00:00 "})
        EXPECT_FALSE(ParseTime(bad)) << bad;
}

TEST(Calendar, ParsesMoments) {
    struct Case {
        const char* text;
        const char* expected;
    };
    for (const auto& [text, expected] : {
             Case{"2001-02-03", "2001-02-03 00:00:00"},
             Case{"2001-02-03 04:05:06", "2001-02-03 04:05:06"},
             Case{"2001-02-03 04:05:06.7", "2001-02-03 04:05:06"},
             Case{"2001-02-03 04:05:06.123456", "2001-02-03 04:05:06"},
             Case{"01/01/2000 01:01:01 AM", "2000-01-01 01:01:01"},
             Case{"12/31/1999 11:59:59 PM", "1999-12-31 23:59:59"},
             Case{"02/03/2001 12:30:00 AM", "2001-02-03 00:30:00"},
             Case{"02/03/2001 12:30:00 PM", "2001-02-03 12:30:00"},
             Case{"02/03/2001 13:30:00 PM", "none"},
             Case{"02/03/2001 00:30:00 AM", "none"},
             Case{"02/03/2001 01:30:00 XM", "none"},
             Case{"13/01/2000 01:01:01 AM", "none"},
             Case{"2001-02-03-04:05:06", "none"},
             Case{"2001-02-03 04:05", "none"},
             Case{"2001-02-03 04:05:06.", "none"},
             Case{"2001-02-03 04:05:06.1234567", "none"},
             Case{"2001-02-03 04:05:06.12a", "none"},
             Case{"2001-02-03 04:05:61", "none"},
             Case{"04:05:06", "none"},
             Case{"", "none"},
         })
        EXPECT_EQ(TextOrNone(ParseMoment(text)), expected) << text;
}

TEST(Calendar, MoveUnits) {
    EXPECT_EQ(ParseMoveUnit("N"), MoveUnit::Minute);
    for (const char* none : {"", "y", "X", "YM", "MD"})
        EXPECT_FALSE(ParseMoveUnit(none)) << none;
}

struct MoveCase {
    const char* from;
    const char* unit;
    int amount;
    const char* expected;
};

TEST(Calendar, MovesDates) {
    for (const auto& [from, unit, amount, expected] : {
             MoveCase{"2000-01-31", "M", 1, "2000-02-29"},
             MoveCase{"2001-01-31", "M", 1, "2001-02-28"},
             MoveCase{"2001-03-31", "M", -1, "2001-02-28"},
             MoveCase{"2001-01-15", "M", -1, "2000-12-15"},
             MoveCase{"2001-11-30", "M", 14, "2003-01-30"},
             MoveCase{"2000-02-29", "Y", 1, "2001-02-28"},
             MoveCase{"2000-02-29", "Y", 4, "2004-02-29"},
             MoveCase{"2000-02-29", "Y", -100, "1900-02-28"},
             MoveCase{"2000-02-28", "D", 2, "2000-03-01"},
             MoveCase{"1900-02-28", "D", 1, "1900-03-01"},
             MoveCase{"2000-01-01", "D", -1, "1999-12-31"},
             MoveCase{"2000-01-01", "D", 0, "2000-01-01"},
             MoveCase{"2000-01-01", "Y", 7999, "9999-01-01"},
             MoveCase{"2000-01-01", "Y", -1900, "0100-01-01"},
             MoveCase{"9999-12-30", "D", 1, "9999-12-31"},
             MoveCase{"0100-02-01", "M", -1, "0100-01-01"},
         })
        EXPECT_EQ(Moved(ParseDate(from), unit, amount), expected) << from << " " << unit << " " << amount;
}

TEST(Calendar, DatesDoNotLeaveTheirYears) {
    for (const auto& [from, unit, amount] : {std::tuple{"2000-01-01", "Y", 8000},
                                             {"2000-01-01", "Y", -1901},
                                             {"9999-12-31", "D", 1},
                                             {"0100-01-01", "D", -1},
                                             {"0100-01-31", "M", -1},
                                             {"9999-12-01", "M", 1},
                                             {"0050-01-01", "D", 1},
                                             {"2000-01-01", "Y", kMostPositive},
                                             {"2000-01-01", "Y", kMostNegative},
                                             {"2000-01-01", "M", kMostPositive},
                                             {"2000-01-01", "M", kMostNegative},
                                             {"2000-01-01", "D", kMostPositive},
                                             {"2000-01-01", "D", kMostNegative}})
        EXPECT_THROW(Move(ParseDate(from).value(), ParseMoveUnit(unit).value(), amount), Error)
            << from << " " << unit << " " << amount;
    EXPECT_EQ(
        Moved(ParseDate("2000-01-01"), "Y", 9000),
        "5 Invalid procedure call or argument: moving 2000-01-01 by 9000 years leaves the years 100 to 9999");
    EXPECT_EQ(Moved(ParseDate("2000-01-01"), "H", 1),
              "5 Invalid procedure call or argument: a date does not move by hours");
}

TEST(Calendar, MovesTimesRoundTheClock) {
    for (const auto& [from, unit, amount, expected] : {
             MoveCase{"01:01:01", "H", 2, "03:01:01"},
             MoveCase{"23:59:59", "S", 1, "00:00:00"},
             MoveCase{"00:00:00", "S", -1, "23:59:59"},
             MoveCase{"01:01:01", "N", 59, "02:00:01"},
             MoveCase{"01:01:01", "N", -62, "23:59:01"},
             MoveCase{"01:01:01", "H", 49, "02:01:01"},
             MoveCase{"24:10:00", "H", 1, "01:10:00"},
             // 2147483647 hours are 89478485 days and 7 hours, as many seconds 24855 days and 03:14:07.
             MoveCase{"01:01:01", "H", kMostPositive, "08:01:01"},
             MoveCase{"01:01:01", "S", kMostPositive, "04:15:08"},
             MoveCase{"01:01:01", "D", 1,
                      "5 Invalid procedure call or argument: a time does not move by days"},
         })
        EXPECT_EQ(Moved(ParseTime(from), unit, amount), expected) << from << " " << unit << " " << amount;
}

TEST(Calendar, MovesMoments) {
    for (const auto& [from, unit, amount, expected] : {
             MoveCase{"2000-01-31 01:01:01", "M", 1, "2000-02-29 01:01:01"},
             MoveCase{"2000-02-28 23:59:59", "S", 1, "2000-02-29 00:00:00"},
             MoveCase{"2000-01-01 00:00:00", "S", -1, "1999-12-31 23:59:59"},
             MoveCase{"2000-01-01 01:01:01", "H", 8784, "2001-01-01 01:01:01"},
             MoveCase{"2000-01-01 01:01:01", "N", 1440, "2000-01-02 01:01:01"},
             MoveCase{"2000-01-01 24:00:00", "S", 1, "2000-01-02 00:00:01"},
             MoveCase{"2000-01-01 00:00:00", "S", kMostPositive, "2068-01-19 03:14:07"},
             MoveCase{"9999-12-31 23:59:59", "S", 0, "9999-12-31 23:59:59"},
             MoveCase{"0100-01-01 00:00:01", "S", -1, "0100-01-01 00:00:00"},
         })
        EXPECT_EQ(Moved(ParseMoment(from), unit, amount), expected) << from << " " << unit << " " << amount;
    EXPECT_THROW(Move(Moment{{9999, 12, 31}, {23, 59, 59}}, MoveUnit::Second, 1), Error);
    EXPECT_THROW(Move(Moment{{100, 1, 1}, {0, 0, 0}}, MoveUnit::Second, -1), Error);
    EXPECT_THROW(Move(Moment{{2000, 1, 1}, {0, 0, 0}}, MoveUnit::Hour, kMostPositive), Error);
}

}  // namespace

}  // namespace vellumark::platform
