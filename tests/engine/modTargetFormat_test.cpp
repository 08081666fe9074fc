#include "engine/modTargetFormat.h"

#include <gtest/gtest.h>

namespace vellumark {

namespace {

constexpr TargetFormat kAllFormats[] = {TargetFormat::Db2,        TargetFormat::Jet,
                                        TargetFormat::NonStopSql, TargetFormat::NonStopSqlWithDefine,
                                        TargetFormat::SqlServer,  TargetFormat::Oracle,
                                        TargetFormat::Sybase,     TargetFormat::Delimited};

const EditPattern kPattern = CompileEditPattern("D001C001M001C001Y001C006H001C009I001C009S001C003N001");

struct FormatCase {
    TargetFormat format;
    const char* value;
    const char* expected;
};

TEST(TargetFormat, DateLiterals) {
    for (const auto& [format, value, expected] : {
             FormatCase{TargetFormat::Db2, "2001-02-03", "2001-02-03"},
             FormatCase{TargetFormat::NonStopSql, "2001-02-03", "2001-02-03"},
             FormatCase{TargetFormat::NonStopSqlWithDefine, "2001-02-03", "2001-02-03"},
             FormatCase{TargetFormat::Jet, "2001-02-03", "2001-02-03"},
             FormatCase{TargetFormat::Oracle, "2001-02-03", "2001-02-0300.00.00"},
             FormatCase{TargetFormat::SqlServer, "2001-02-03", "Feb 3 2001 12:00AM"},
             FormatCase{TargetFormat::SqlServer, "0101-12-31", "Dec 31 0101 12:00AM"},
             FormatCase{TargetFormat::Sybase, "2001-02-03", "Feb 3 2001"},
             FormatCase{TargetFormat::Sybase, "2001-10-10", "Oct 10 2001"},
             FormatCase{TargetFormat::Delimited, "2001-02-03", "03/02/2001 ::."},
         })
        EXPECT_EQ(DateLiteral(format, value, kPattern), expected) << TargetFormatName(format);
}

TEST(TargetFormat, TimeLiterals) {
    for (const auto& [format, value, expected] : {
             FormatCase{TargetFormat::Db2, "04:05:06", "04.05.06"},
             FormatCase{TargetFormat::NonStopSql, "04:05:06", "04.05.06"},
             FormatCase{TargetFormat::NonStopSqlWithDefine, "04:05:06", "04.05.06"},
             FormatCase{TargetFormat::Oracle, "14:05:06", "0001-01-0114.05.06"},
             FormatCase{TargetFormat::SqlServer, "04:05:06", "Jan 1 1900 04:05AM"},
             FormatCase{TargetFormat::Jet, "14:05:06", "Jan 1 1900 02:05PM"},
             FormatCase{TargetFormat::Sybase, "04:05:06", "04:05AM"},
             FormatCase{TargetFormat::Sybase, "00:05:06", "12:05AM"},
             FormatCase{TargetFormat::Sybase, "11:59:59", "11:59AM"},
             FormatCase{TargetFormat::Sybase, "12:00:00", "12:00PM"},
             FormatCase{TargetFormat::Sybase, "13:05:06", "01:05PM"},
             FormatCase{TargetFormat::Sybase, "23:59:59", "11:59PM"},
             FormatCase{TargetFormat::Delimited, "04:05:06", "// 04:05:06."},
             // Hour 24 has no place on a twelve-hour clock.
             FormatCase{TargetFormat::Db2, "24:10:00", "24.10.00"},
             FormatCase{TargetFormat::Sybase, "24:10:00", "24:10:00"},
             FormatCase{TargetFormat::Jet, "24:10:00", "24:10:00"},
         })
        EXPECT_EQ(TimeLiteral(format, value, kPattern), expected) << TargetFormatName(format) << " " << value;
}

TEST(TargetFormat, TimestampLiterals) {
    constexpr const char* value = "2001-02-03 04:05:06.000789";
    for (const auto& [format, text, expected] : {
             FormatCase{TargetFormat::Db2, value, "2001-02-03-04.05.06.000789"},
             FormatCase{TargetFormat::NonStopSql, value, "2001-02-03-04.05.06.000789"},
             FormatCase{TargetFormat::NonStopSqlWithDefine, value, "2001-02-03-04.05.06.000789"},
             FormatCase{TargetFormat::Oracle, value, "2001-02-0304.05.06"},
             FormatCase{TargetFormat::SqlServer, value, "Feb 3 2001 04:05AM"},
             FormatCase{TargetFormat::Sybase, value, "Feb 3 2001 04:05AM"},
             FormatCase{TargetFormat::Jet, "2001-12-31 12:05:06.000000", "Dec 31 2001 12:05PM"},
             FormatCase{TargetFormat::Delimited, value, "03/02/2001 04:05:06.000789"},
             FormatCase{TargetFormat::Db2, "2001-02-03 04:05:06.abcdéf", "2001-02-03-04.05.06.abcdéf"},
             FormatCase{TargetFormat::Oracle, "2001-02-03 24:05:06.000000", "2001-02-0324.05.06"},
             FormatCase{TargetFormat::Jet, "2001-02-03 24:05:06.000001", "2001-02-03 24:05:06.000001"},
         })
        EXPECT_EQ(TimestampLiteral(format, text, kPattern), expected)
            << TargetFormatName(format) << " " << text;
}

TEST(TargetFormat, TextThatIsNoValueStaysInEveryFormat) {
    for (const TargetFormat format : kAllFormats) {
        for (const char* text : {"", "soon", "2001-02-30", "2001-02-03x"})
            EXPECT_EQ(DateLiteral(format, text, kPattern), text) << TargetFormatName(format);
        for (const char* text : {"", "soon", "25:00:00", "04:05"})
            EXPECT_EQ(TimeLiteral(format, text, kPattern), text) << TargetFormatName(format);
        for (const char* text :
             {"", "soon", "2001-02-03", "2001-02-03 04:05:06", "2001-02-30 04:05:06.000000"})
            EXPECT_EQ(TimestampLiteral(format, text, kPattern), text) << TargetFormatName(format);
    }
}

TEST(TargetFormat, LiteralsAppendToARow) {
    std::string row = "x";
    AppendDateLiteral(row, TargetFormat::Sybase, {2001, 2, 3}, {});
    AppendTimeLiteral(row, TargetFormat::Oracle, {4, 5, 6}, {});
    AppendTimestampLiteral(row, TargetFormat::Db2, {{2001, 2, 3}, {4, 5, 6}}, "000000", {});
    EXPECT_EQ(row, "xFeb 3 20010001-01-0104.05.062001-02-03-04.05.06.000000");
}

TEST(TargetFormat, BooleanLiterals) {
    struct Case {
        TargetFormat format;
        const char* isTrue;
        const char* isFalse;
    };
    for (const auto& [format, isTrue, isFalse] : {
             Case{TargetFormat::Db2, "TRUE", "FALSE"},
             Case{TargetFormat::Oracle, "TRUE", "FALSE"},
             Case{TargetFormat::NonStopSql, "TRUE", "FALSE"},
             Case{TargetFormat::NonStopSqlWithDefine, "TRUE", "FALSE"},
             Case{TargetFormat::Sybase, "TRUE", "FALSE"},
             Case{TargetFormat::SqlServer, "1", "0"},
             Case{TargetFormat::Jet, "0", "-1"},
         }) {
        for (const char* value : {"TRUE", "true", "True"})
            EXPECT_EQ(BooleanLiteral(format, value), isTrue) << TargetFormatName(format);
        for (const char* value : {"FALSE", "no", "1", "-1", " TRUE"})
            EXPECT_EQ(BooleanLiteral(format, value), isFalse) << TargetFormatName(format);
    }
    for (const char* value : {"TRUE", "true", "no", "-1"})
        EXPECT_EQ(BooleanLiteral(TargetFormat::Delimited, value), value);
}

std::string Wrapped(TargetFormat format, DataType type) {
    const LiteralAffixes affixes = LiteralAffixesFor(format, type);
    return affixes.prefix + "v" + affixes.suffix;
}

TEST(TargetFormat, LiteralsOfDatesAndTimes) {
    constexpr const char* oracle = "TO_DATE('v', 'YYYY-MM-DDHH24.MI.SS')";
    struct Case {
        TargetFormat format;
        const char* date;
        const char* time;
        const char* timestamp;
    };
    for (const auto& [format, date, time, timestamp] : {
             Case{TargetFormat::Db2, "'v'", "'v'", "'v'"},
             Case{TargetFormat::Oracle, oracle, oracle, oracle},
             Case{TargetFormat::SqlServer, "('v')", "('v')", "('v')"},
             Case{TargetFormat::NonStopSql, "DATE \"v\"", "TIME \"v\"", "TIMESTAMP \"v\""},
             Case{TargetFormat::NonStopSqlWithDefine, "DATE \"v\"", "TIME \"v\"", "TIMESTAMP \"v\""},
             Case{TargetFormat::Sybase, "'v'", "'v'", "'v'"},
             Case{TargetFormat::Jet, "'v'", "'v'", "'v'"},
             Case{TargetFormat::Delimited, "v", "v", "v"},
         }) {
        EXPECT_EQ(Wrapped(format, DataType::Date), date) << TargetFormatName(format);
        EXPECT_EQ(Wrapped(format, DataType::Time), time) << TargetFormatName(format);
        EXPECT_EQ(Wrapped(format, DataType::TimeStamp), timestamp) << TargetFormatName(format);
    }
}

TEST(TargetFormat, LiteralsOfOtherTypes) {
    for (const TargetFormat format : kAllFormats) {
        const bool delimited = format == TargetFormat::Delimited;
        EXPECT_EQ(Wrapped(format, DataType::Character), delimited ? "v" : "'v'") << TargetFormatName(format);
        EXPECT_EQ(Wrapped(format, DataType::Blob), "'v'") << TargetFormatName(format);
        for (const DataType type : {DataType::Boolean, DataType::Integer, DataType::LongInteger,
                                    DataType::TinyInteger, DataType::BigInteger, DataType::Currency,
                                    DataType::Single, DataType::Double, DataType::Variant})
            EXPECT_EQ(Wrapped(format, type), "v") << TargetFormatName(format) << " " << DataTypeName(type);
    }
}

TEST(TargetFormat, StatementWords) {
    struct Case {
        TargetFormat format;
        const char* head;  // with a name between head and suffix
        const char* terminator;
        const char* nullWord;
        bool writesCommit;
    };
    for (const auto& [format, head, terminator, nullWord, writesCommit] : {
             Case{TargetFormat::Db2, "insert into T", ";", "NULL", true},
             Case{TargetFormat::Oracle, "insert into T", "/", "null", true},
             Case{TargetFormat::SqlServer, "insert into T", " ", "(null)", true},
             Case{TargetFormat::NonStopSql, "insert into T", ";", "NULL", true},
             Case{TargetFormat::NonStopSqlWithDefine, "insert into =T", ";", "NULL", true},
             Case{TargetFormat::Sybase, "insert into T", "Go", "NULL", true},
             Case{TargetFormat::Jet, "insert into [T]", " ", "null", false},
             Case{TargetFormat::Delimited, "T", "", "", false},
         }) {
        const FormatWords& words = WordsOf(format);
        EXPECT_EQ(std::string(words.insertHead) + "T" + std::string(words.nameSuffix), head);
        EXPECT_EQ(words.terminator, terminator) << TargetFormatName(format);
        EXPECT_EQ(words.nullWord, nullWord) << TargetFormatName(format);
        EXPECT_EQ(words.writesCommit, writesCommit) << TargetFormatName(format);
    }
}

}  // namespace

}  // namespace vellumark
