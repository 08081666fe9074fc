#include "repository/modEditPatterns.h"

#include <gtest/gtest.h>

namespace vellumark {

namespace {

constexpr const char* kDatePattern = "Y001C002M001C002D001";
constexpr const char* kTimePattern = "H001C009I001C009S001";
constexpr const char* kTimestampPattern = "Y001C002M001C002D001C002H001C003I001C003S001C003N001";

TEST(EditPatterns, ReadableText) {
    struct Case {
        const char* pattern;
        const char* text;
    };
    for (const auto& [pattern, text] : {
             Case{"", ""},
             Case{kDatePattern, "YYYY-MM-DD"},
             Case{kTimePattern, "HH:MI:SS"},
             Case{kTimestampPattern, "YYYY-MM-DD-HH.MI.SS.NNNNNN"},
             Case{"D002C004C006M002C006Y002", "DDD, MMM YY"},
             Case{"C001C002C003C004C005C006C007C008C009", "/-.,; _\\:"},
             Case{"Y001Q001M001", "YYYYMM"},
             Case{"Y003y001M001", "MM"},
             Case{"ééééM001", "MM"},
             Case{"Y001M0", "YYYY"},
             Case{"M01", ""},
         })
        EXPECT_EQ(EditPatternToText(pattern), text) << pattern;
}

TEST(EditPatterns, Formats) {
    struct Case {
        char kind;
        const char* value;
        const char* pattern;
        const char* text;
    };
    constexpr const char* timestamp = "2001-02-03 14:05:06.000789";
    for (const auto& [kind, value, pattern, text] : {
             Case{'D', "2001-02-03", kDatePattern, "2001-02-03"},
             Case{'D', "2001-02-03", "D001C001M001C001Y001", "03/02/2001"},
             Case{'D', "2001-02-03", "D002C006D001C006M002C006Y002", "Sat 03 Feb 01"},
             Case{'D', "1905-12-31", "Y002M001D001", "051231"},
             Case{'D', "0050-01-02", "Y001", "0050"},
             Case{'T', "04:05:06", "H001C003I001C008S001", "04.05\\06"},
             Case{'T', "24:05:06", "H001I001S001", "240506"},
             Case{'S', timestamp, kTimestampPattern, "2001-02-03-14.05.06.000789"},
             Case{'S', timestamp, "Y001M001D001H001I001S001N001", "20010203140506000789"},
             Case{'S', "2001-02-03-14:05:06.000000", kTimePattern, "14:05:06"},
             Case{'S', "2001-02-03 14:05:06.abcdef", "N001", "abcdef"},
             Case{'S', "2001-02-03", "Y001H001N001", "2001"},
             // Tokens of the other kind stand for empty parts.
             Case{'T', "04:05:06", "Y001", ""},
             Case{'T', "04:05:06", "Y001M002D002C001H001N001", "/04"},
             Case{'D', "2001-02-03", "H001I001S001N001C001D001", "/03"},
             Case{'D', "", kDatePattern, "--"},
             // What is no value of its kind stays; no pattern, no text.
             Case{'D', "soon", kDatePattern, "soon"},
             Case{'T', "25:00:00", kTimePattern, "25:00:00"},
             Case{'S', "2001-02-30 14:05:06.000000", kTimePattern, "2001-02-30 14:05:06.000000"},
             Case{'D', "2001-02-03", "", ""},
             Case{'D', "soon", "", ""},
         })
        EXPECT_EQ(FormatWithEditPattern(kind, value, pattern), text)
            << kind << " " << value << " " << pattern;
}

TEST(EditPatterns, CompiledPatternAppendsBehindOtherText) {
    std::string row = "1,";
    AppendFormatted(row, CompileEditPattern("M002C002Y002C006H001N001"),
                    {platform::Date{1999, 11, 5}, platform::Time{7, 0, 0}, "000012"});
    EXPECT_EQ(row, "1,Nov-99 07000012");
}

struct ParseCase {
    char kind;
    const char* text;
    const char* pattern;
    const char* value;
};

TEST(EditPatterns, Parses) {
    for (const auto& [kind, text, pattern, value] : {
             ParseCase{'D', "2001-05-31", kDatePattern, "2001-05-31"},
             ParseCase{'D', "31/05/2001", "D001C001M001C001Y001", "2001-05-31"},
             ParseCase{'D', "31x05é2001", "D001C001M001C001Y001", "2001-05-31"},
             ParseCase{'T', "10.11.12", kTimePattern, "10:11:12"},
             ParseCase{'T', "24:10:11", kTimePattern, "24:10:11"},
             ParseCase{'S', "2001-05-31-10.11.12.123456", kTimestampPattern, "2001-05-31 10:11:12.123456"},
             ParseCase{'S', "2001-05-31-24.11.12.abcdef", kTimestampPattern, "2001-05-31 24:11:12.abcdef"},
             // Missing fields keep their start values, whatever the kind.
             ParseCase{'D', "2001-05", "Y001C002M001", "2001-05-01"},
             ParseCase{'D', "", "", "2000-01-01"},
             ParseCase{'T', "07", "H001", "07:00:00"},
             ParseCase{'S', "0531", "M001D001", "2000-05-31 00:00:00.000000"},
             ParseCase{'D', "2001-05-31 10:11", kDatePattern, "2001-05-31"},
             ParseCase{'T', "200107", "Y001H001", "07:00:00"},
             // Names are for output only: they take nothing.
             ParseCase{'D', "Sat", "D002", "2000-01-01"},
             ParseCase{'D', "2001", "M002Y001", "2001-01-01"},
             ParseCase{'D', "2001Feb", "Y001M002M001", "2000-01-01"},
             ParseCase{'D', "200105", "Q001Y001M001", "2001-05-01"},
             // Later tokens overwrite earlier ones.
             ParseCase{'D', "552001", "Y002Y001", "2001-01-01"},
         })
        EXPECT_EQ(ParseWithEditPattern(kind, text, pattern, 69), value)
            << kind << " " << text << " " << pattern;
}

TEST(EditPatterns, BadInputBecomesTheFixedValue) {
    for (const auto& [kind, text, pattern, value] : {
             ParseCase{'D', "20010531", kDatePattern, "2000-01-01"},
             ParseCase{'D', "2001", kDatePattern, "2000-01-01"},
             ParseCase{'D', "2001-5-1", kDatePattern, "2000-01-01"},
             ParseCase{'D', "1900-02-29", kDatePattern, "2000-01-01"},
             ParseCase{'D', "", kDatePattern, "2000-01-01"},
             ParseCase{'D', "0000-02-03", kDatePattern, "2000-01-01"},
             ParseCase{'T', "25:00:00", kTimePattern, "00:00:00"},
             ParseCase{'T', "10:11:1", kTimePattern, "00:00:00"},
             ParseCase{'S', "2001-05-31-10.11.12.123", kTimestampPattern, "2000-01-01 00:00:00.000000"},
             ParseCase{'S', "2001-05-31-10.61.12.123456", kTimestampPattern, "2000-01-01 00:00:00.000000"},
             ParseCase{'D', "xx0531", "Y002M001D001", "2000-01-01"},
             ParseCase{'T', "xx07", "Y002H001", "00:00:00"},
         })
        EXPECT_EQ(ParseWithEditPattern(kind, text, pattern, 69), value)
            << kind << " " << text << " " << pattern;
}

TEST(EditPatterns, TwoDigitYears) {
    struct Case {
        const char* text;
        int conversion;
        const char* value;
    };
    for (const auto& [text, conversion, value] :
         {Case{"30", 30, "2030-01-01"}, Case{"31", 30, "1931-01-01"}, Case{"00", 0, "2000-01-01"},
          Case{"01", 0, "1901-01-01"}, Case{"99", 99, "2099-01-01"}, Case{"00", -1, "1900-01-01"},
          Case{"7", 30, "2000-01-01"}})
        EXPECT_EQ(ParseWithEditPattern('D', text, "Y002", conversion), value) << text << " " << conversion;
}

TEST(EditPatterns, ParsedValuesAppendBehindOtherText) {
    const EditPattern pattern = CompileEditPattern(kDatePattern);
    std::string values;
    AppendParsed(values, 'D', "2001-05-31", pattern, 69);
    AppendParsed(values, 'D', "nonsense", pattern, 69);
    AppendParsed(values, 'D', "2002-05-31", pattern, 69);
    EXPECT_EQ(values, "2001-05-312000-01-012002-05-31");
}

}  // namespace

}  // namespace vellumark
