#include "repository/modTargetFormats.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vellumark {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TargetFormats, Names) {
    struct Case {
        TargetFormat format;
        const char* name;
    };
    for (const auto& [format, name] : {
             Case{TargetFormat::Db2, "DB2 Universal Database"},
             Case{TargetFormat::Jet, "Jet"},
             Case{TargetFormat::NonStopSql, "NonStop SQL"},
             Case{TargetFormat::NonStopSqlWithDefine, "NonStop SQL (with define)"},
             Case{TargetFormat::SqlServer, "MS/SQL Server"},
             Case{TargetFormat::Oracle, "Oracle"},
             Case{TargetFormat::Sybase, "Sybase"},
             Case{TargetFormat::Delimited, "Text File - Delimited"},
         }) {
        EXPECT_EQ(TargetFormatName(format), name);
        EXPECT_EQ(ParseTargetFormat(name), format);
    }
    EXPECT_EQ(ParseTargetFormat("ORACLE"), TargetFormat::Oracle);
    for (const char* none : {"", "DB2", "Oracle ", "NonStop", "NonStop SQL (with", "Text File"})
        EXPECT_FALSE(ParseTargetFormat(none)) << none;
}

TEST(TargetFormats, ListsByPurpose) {
    EXPECT_THAT(FillDBMSList("All"),
                ElementsAre("DB2 Universal Database", "Jet", "NonStop SQL", "NonStop SQL (with define)",
                            "MS/SQL Server", "Oracle", "Sybase", "Text File - Delimited"));
    EXPECT_THAT(FillDBMSList("DeleteSQL"),
                ElementsAre("DB2 Universal Database", "Jet", "NonStop SQL", "NonStop SQL (with define)",
                            "MS/SQL Server", "Oracle", "Sybase"));
    EXPECT_THAT(FillDBMSList("CreateLoadFile"),
                ElementsAre("DB2 Universal Database", "Jet", "MS/SQL Server", "Oracle"));
    EXPECT_THAT(FillDBMSList("else"), IsEmpty());
}

TEST(DataTypes, Names) {
    struct Case {
        DataType type;
        const char* name;
    };
    for (const auto& [type, name] : {
             Case{DataType::Character, "Character"},
             Case{DataType::Date, "Date"},
             Case{DataType::Time, "Time"},
             Case{DataType::TimeStamp, "TimeStamp"},
             Case{DataType::Blob, "Blob"},
             Case{DataType::Boolean, "Boolean"},
             Case{DataType::Integer, "Integer"},
             Case{DataType::LongInteger, "Long Integer"},
             Case{DataType::TinyInteger, "Tiny Integer"},
             Case{DataType::BigInteger, "Big Integer"},
             Case{DataType::Currency, "Currency"},
             Case{DataType::Single, "Single"},
             Case{DataType::Double, "Double"},
             Case{DataType::Variant, "Variant"},
         }) {
        EXPECT_EQ(DataTypeName(type), name);
        EXPECT_EQ(ParseDataType(name), type);
    }
    EXPECT_EQ(ParseDataType("timestamp"), DataType::TimeStamp);
    for (const char* none : {"", "Long", "LongInteger", "Integer ", "Text"})
        EXPECT_FALSE(ParseDataType(none)) << none;
}

TEST(DataTypes, KeysOfNumberFields) {
    for (const char key : {'0', '9', '-', '\b'})
        EXPECT_TRUE(fNumericKey(key, DataType::Integer, '.')) << key;
    for (const char key : {'.', ',', 'a', ' ', '+', '/', ':', '\r'})
        EXPECT_FALSE(fNumericKey(key, DataType::Integer, '.')) << key;
    for (const DataType type : {DataType::Double, DataType::Single}) {
        EXPECT_TRUE(fNumericKey('.', type, '.'));
        EXPECT_TRUE(fNumericKey(',', type, ','));
        EXPECT_FALSE(fNumericKey('.', type, ','));
    }
    EXPECT_FALSE(fNumericKey('.', DataType::Currency, '.'));
    EXPECT_EQ(MachineDecimalPoint(), '.');
}

}  // namespace

}  // namespace vellumark
