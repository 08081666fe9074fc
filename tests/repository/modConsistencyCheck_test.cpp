#include "repository/modConsistencyCheck.h"

#include <gtest/gtest.h>

#include "recorder.h"

namespace vellumark {

namespace {

struct CheckCase {
    const char* text;
    const char* message;  // empty: the text passes
};

using Check = bool (*)(std::string_view, bool);

void ExpectOutcomes(Check check, std::initializer_list<CheckCase> cases) {
    test::Recorder recorder;
    for (const auto& [text, message] : cases) {
        const std::string expected = *message ? std::string("exclamation: ") + message : "";
        EXPECT_EQ(check(text, false), expected.empty()) << text;
        EXPECT_EQ(recorder.Take(), "") << text;
        EXPECT_EQ(check(text, true), expected.empty()) << text;
        EXPECT_EQ(recorder.Take(), expected) << text;
    }
}

TEST(ConsistencyCheck, AllDigits) {
    EXPECT_TRUE(fAllDigits(""));
    EXPECT_TRUE(fAllDigits("0123456789"));
    for (const char* bad : {"-1", "1 ", "1.0", "a", "1/", "1:", "é"})
        EXPECT_FALSE(fAllDigits(bad)) << bad;
}

TEST(ConsistencyCheck, Dates) {
    constexpr const char* digits =
        "Please enter numbers only. Date must be 10 characters in this format (YYYY-MM-DD).";
    constexpr const char* separator =
        "Please enter - as date separator. Date must be 10 characters in this format (YYYY-MM-DD).";
    constexpr const char* days30 =
        "This month has 30 days. Date must be 10 characters in this format (YYYY-MM-DD).";
    constexpr const char* days31 =
        "This month has 31 days. Date must be 10 characters in this format (YYYY-MM-DD).";
    ExpectOutcomes(
        fValidDate,
        {{"2001-05-31", ""},
         {" 2001-05-31 ", ""},
         {"2000-02-29", ""},
         {"2004-02-29", ""},
         {"0001-01-01", ""},
         {"9999-12-31", ""},
         {"", "'' is invalid. Please enter Date as 10 characters in this format (YYYY-MM-DD)."},
         {" 2001-5-31 ",
          "'2001-5-31' is invalid. Please enter Date as 10 characters in this format (YYYY-MM-DD)."},
         {"2001-05-311",
          "'2001-05-311' is invalid. Please enter Date as 10 characters in this format (YYYY-MM-DD)."},
         {"20x1/05/31", digits},
         {"2001-0x-31", digits},
         {"2001-05-3 1",
          "'2001-05-3 1' is invalid. Please enter Date as 10 characters in this format (YYYY-MM-DD)."},
         {"2001-05- 1", digits},
         {"2001-05-é1", digits},
         {"2001/05-31", separator},
         {"2001-05é31", separator},
         {"0000-00-01",
          "'0000-00-01' does not have year entered correctly. Date must be 10 characters in this format "
          "YYYY-MM-DD."},
         {"2001-00-31",
          "'2001-00-31' does not have month entered correctly. Date must be 10 characters in this format "
          "YYYY-MM-DD."},
         {"2001-13-32",
          "'2001-13-32' does not have month entered correctly. Date must be 10 characters in this format "
          "YYYY-MM-DD."},
         {"2001-04-31", days30},
         {"2001-11-00", days30},
         {"2001-01-32", days31},
         {"2001-08-00", days31},
         {"2001-02-30",
          "'2001-02-30' does not have correct date for this month '02'. Date must be 10 characters in this "
          "format (YYYY-MM-DD)."},
         {"2000-02-00",
          "'2000-02-00' does not have correct date for this month '02'. Date must be 10 characters in this "
          "format (YYYY-MM-DD)."},
         {"1900-02-29",
          "'1900-02-29' has an invalid date as it is not a leap year. Date must be 10 characters in this "
          "format "
          "(YYYY-MM-DD)."},
         {"2001-02-29",
          "'2001-02-29' has an invalid date as it is not a leap year. Date must be 10 characters in this "
          "format "
          "(YYYY-MM-DD)."}});
}

TEST(ConsistencyCheck, Times) {
    constexpr const char* digits =
        "Please enter numbers only. Time must be 8 characters in this format (HH:MI:SS).";
    constexpr const char* separator =
        "Please enter : as time separator. Time must be 8 characters in this format (HH:MI:SS).";
    ExpectOutcomes(
        fValidTime,
        {{"00:00:00", ""},
         {" 23:59:59", ""},
         {"24:00:00", ""},
         {"24:59:59", ""},
         {"1:00:00",
          "'1:00:00' contains an invalid time. Please enter time with 8 characters in this format "
          "(HH:MI:SS)."},
         {"<month>",
          "'<month>' contains an invalid time. Please enter time with 8 characters in this format "
          "(HH:MI:SS)."},
         {"-1:00:00", digits},
         {"10:1a.00", digits},
         {"10:11.12", separator},
         {"10-11:12", separator},
         {"25:60:60",
          "'25:60:60' is invalid. Hours can be from 0 to 24. Please enter time with 8 characters in this "
          "format "
          "(HH:MI:SS)."},
         {"10:60:60",
          "'10:60:60' is invalid. Minutes can be from 0 to 59. Please enter time with 8 characters in this "
          "format (HH:MI:SS)."},
         {"10:11:60",
          "'10:11:60' can have seconds from 0 to 59. Please enter time with 8 characters in this format "
          "(HH:MI:SS)."}});
}

TEST(ConsistencyCheck, Timestamps) {
    ExpectOutcomes(
        fValidTimestamp,
        {{"2001-05-31 10:11:12.123456", ""},
         {"  2001-05-31 10:11:12.abcdef ", ""},
         {"2001-05-31 24:11:12.éééééé", ""},
         {"2001-05-31 10:11:12",
          "'2001-05-31 10:11:12' has invalid timestamp. Please enter 26 characters for timestamp in this "
          "format, "
          "(YYYY-MM-DD HH:MI:SS.nnnnnn)."},
         {"2001-04-31X25:11:12,123456",
          "This month has 30 days. Date must be 10 characters in this format (YYYY-MM-DD)."},
         {"2001-05-31X25:11:12,123456",
          "'25:11:12' is invalid. Hours can be from 0 to 24. Please enter time with 8 characters in this "
          "format "
          "(HH:MI:SS)."},
         {"2001-05-31X10:11:12,123456",
          "Please use a space as separator between days and hours. Please enter timestamp in this format, "
          "(YYYY-MM-DD HH:MI:SS.nnnnnn)."},
         {"2001-05-31 10:11:12,123456",
          "Please use . as separator between seconds and microseconds. Please enter timestamp in this "
          "format, "
          "(YYYY-MM-DD HH:MI:SS.nnnnnn)."}});
}

TEST(ConsistencyCheck, Numbers) {
    struct Case {
        const char* text;
        DataType type;
        char point;
        bool valid;
    };
    for (const auto& [text, type, point, valid] : {
             Case{"", DataType::Integer, '.', true},
             Case{"0", DataType::Integer, '.', true},
             Case{"-5", DataType::BigInteger, '.', true},
             Case{"12345678901234567890123", DataType::BigInteger, '.', true},
             Case{"5-", DataType::Integer, '.', false},
             Case{"--5", DataType::Integer, '.', false},
             Case{"+5", DataType::Integer, '.', false},
             Case{" 5", DataType::Integer, '.', false},
             Case{"1,000", DataType::Integer, '.', false},
             Case{"1.5", DataType::Integer, '.', false},
             Case{"1.5", DataType::Currency, '.', false},
             Case{"1.5", DataType::Variant, '.', false},
             Case{"1.5", DataType::Double, '.', true},
             Case{"-.5", DataType::Single, '.', true},
             Case{"5.", DataType::Single, '.', true},
             Case{"1.5.2", DataType::Double, '.', false},
             Case{"1,5", DataType::Double, ',', true},
             Case{"1.5", DataType::Double, ',', false},
             Case{"1e5", DataType::Double, '.', false},
             // Signs and points alone are no numbers.
             Case{"-", DataType::Integer, '.', false},
             Case{".", DataType::Double, '.', false},
             Case{"-.", DataType::Double, '.', false},
         })
        EXPECT_EQ(fValidNumber(text, type, point), valid) << text << " " << DataTypeName(type);
}

}  // namespace

}  // namespace vellumark
