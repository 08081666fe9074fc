#include "repository/modValueValidation.h"

#include <gtest/gtest.h>

#include "recorder.h"
#include "repository/modVellumark.h"

namespace vellumark::test {

namespace {

struct Case {
    std::string value;
    DataType type;
    ColumnWidths widths;
    std::string code;  // for a value that is too large
    std::string repaired;
    std::string message;
};

std::string Range(const std::string& low, const std::string& high) {
    return "exclamation: Please enter a number within the valid range:\n" + low + " to " + high;
}

const std::string kLong = "exclamation: Maximimum valid length is 3 characters.";
const std::string kBefore = "exclamation: Maximimum valid length of number before decimal place is 2 digits.";
const std::string kAfter = "exclamation: Maximimum valid length of number after decimal place is 1 digits.";

const std::vector<Case> kCases = {
    {"abc", DataType::Character, {3, 0, 0}, "B", "abc", ""},
    {"abcd", DataType::Character, {3, 0, 0}, "B", "abc", kLong},
    {"abcd", DataType::Character, {3, 0, 0}, "E", "bcd", kLong},
    {"abcd", DataType::Character, {3, 0, 0}, "D", "too", kLong},
    {"abcd", DataType::Character, {3, 0, 0}, "N", "abcd", kLong},
    {"äöü", DataType::Character, {3, 0, 0}, "B", "äöü", ""},
    {"äöüß", DataType::Character, {3, 0, 0}, "E", "öüß", kLong},
    {"abcd", DataType::Date, {3, 0, 0}, "B", "abcd", ""},
    {"abcd", DataType::Time, {3, 0, 0}, "B", "abcd", ""},
    {"abcd", DataType::TimeStamp, {3, 0, 0}, "B", "abcd", ""},
    {"abcd", DataType::Boolean, {3, 0, 0}, "B", "abcd", ""},

    {"1,000",
     DataType::Variant,
     {},
     "B",
     "0",
     "exclamation: Data type Variant must be numeric with no digit grouping symbols."},
    {"1.5",
     DataType::LongInteger,
     {},
     "B",
     "0",
     "exclamation: Data type Long Integer must be numeric with no digit grouping symbols."},
    {"-5", DataType::Currency, {0, 9, 0}, "B", "-5", ""},
    {"-12", DataType::Integer, {0, 2, 0}, "B", "-12", ""},
    {"123", DataType::Integer, {0, 2, 0}, "B", "12", kBefore},
    {"123", DataType::Integer, {0, 2, 0}, "E", "23", kBefore},
    {"123", DataType::Integer, {0, 2, 0}, "D", "98", kBefore},
    {"123", DataType::Integer, {0, 2, 0}, "", "123", kBefore},
    {"-123", DataType::Integer, {0, 2, 0}, "B", "-1", kBefore},
    {"12.34", DataType::Double, {0, 2, 1}, "B", "12.34", kAfter},
    {"12.3", DataType::Single, {0, 2, 1}, "B", "12.3", ""},
    {"5",
     DataType::Variant,
     {0, 0, 1},
     "B",
     "0",
     "exclamation: Maximimum valid length of number before decimal place is 0 digits."},

    {"-32769", DataType::Integer, {}, "B", "-32768", Range("-32768", "32767")},
    {"32767", DataType::Integer, {}, "B", "32767", ""},
    {"32768", DataType::Integer, {}, "B", "32767", Range("-32768", "32767")},
    {"2147483648", DataType::LongInteger, {}, "B", "2147483647", Range("-2147483648", "2147483647")},
    {"-922337203685478",
     DataType::Currency,
     {},
     "B",
     "-922337203685477",
     Range("-922337203685477", "922337203685477")},
    {"-1", DataType::TinyInteger, {}, "B", "0", Range("0", "255")},
    {"256", DataType::TinyInteger, {}, "B", "255", Range("0", "255")},
    {"9223372036854775807", DataType::BigInteger, {}, "B", "9223372036854775807", ""},
    {"9223372036854790000",
     DataType::BigInteger,
     {},
     "B",
     "9.22337203685478E+18",
     Range("-9.22337203685478E+18", "9.22337203685478E+18")},
    {"4" + std::string(38, '0'),
     DataType::Single,
     {},
     "B",
     "3.402823E+38",
     Range("-3.402823E+38", "3.402823E+38")},
    {"-2" + std::string(307, '0'),
     DataType::Double,
     {},
     "B",
     "-1.79769313486232E+307",
     Range("-1.79769313486232E+307", "1.79769313486232E+307")},
    {std::string(400, '9'),
     DataType::Double,
     {},
     "B",
     "1.79769313486232E+307",
     Range("-1.79769313486232E+307", "1.79769313486232E+307")},
    {std::string(400, '9'), DataType::Variant, {}, "B", std::string(400, '9'), ""},
};

TEST(ValidateValueTest, RepairsInARunAndRefusesOnAScreen) {
    Recorder recorder;
    for (const Case& c : kCases) {
        const TooLargeRule tooLarge{c.code, "too long", "987"};
        std::string value = c.value;
        EXPECT_TRUE(fValidateValue(value, c.widths, c.type, tooLarge, false));
        EXPECT_EQ(value, c.repaired) << c.value;
        EXPECT_EQ(recorder.Take(), "") << c.value;

        value = c.value;
        EXPECT_EQ(fValidateValue(value, c.widths, c.type, tooLarge, true), c.message.empty()) << c.value;
        EXPECT_EQ(value, c.value);
        EXPECT_EQ(recorder.Take(), c.message) << c.value;
    }
}

TEST(ValidateValueTest, TakesTheDecimalPointOfTheOptions) {
    DecimalPointCharacter = ',';
    std::string value = "99999,5";
    EXPECT_TRUE(fValidateValue(value, {0, 5, 1}, DataType::Single, {}, false));
    EXPECT_EQ(value, "99999,5");
    value = "1.5";
    EXPECT_TRUE(fValidateValue(value, {0, 5, 1}, DataType::Single, {}, false));
    EXPECT_EQ(value, "0");
    DecimalPointCharacter = '.';
}

TEST(ValidateValueTest, EmptyNumbersAreZeroAndBlobsAreCut) {
    std::string value;
    EXPECT_TRUE(fValidateValue(value, {}, DataType::Variant, {}, true));
    EXPECT_EQ(value, "0");
    value = "abcdef";
    EXPECT_TRUE(fValidateValue(value, {4, 0, 0}, DataType::Blob, {"E", {}, {}}, false));
    EXPECT_EQ(value, "abcd");
    value = "12.";
    EXPECT_TRUE(fValidateValue(value, {0, 1, 0}, DataType::Double, {"E", {}, {}}, false));
    EXPECT_EQ(value, "0");  // the point alone is no number
}

}  // namespace

}  // namespace vellumark::test
