#include "schema/modDataTypes.h"

#include <gtest/gtest.h>

#include "recorder.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {
namespace {

std::string Text(const MappedType& mapped) {
    return mapped.sourceName + "|" + std::string(DataTypeName(mapped.type)) + "|" +
           std::to_string(mapped.maximumLength) + "|" + std::to_string(mapped.precision) + "|" +
           std::to_string(mapped.size);
}

// name, type, maximum length, precision and size of columns that report neither length nor precision.
TEST(ModDataTypes, MapsAdoTypesWithoutANumber) {
    const struct {
        int code;
        std::string_view mapped;
    } cases[] = {
        {0, "adEmpty|Character|0|0|80"},
        {2, "adSmallInt|Integer|0|0|2"},
        {3, "adInteger|Integer|0|0|2"},
        {4, "adSingle|Single|0|7|4"},
        {5, "adDouble|Double|0|15|8"},
        {6, "adCurrency|Double|0|0|8"},
        {7, "adDate|Date|0|0|8"},
        {8, "adBSTR|Blob|0|0|4096"},
        {9, "adIDispatch|Character|0|0|80"},
        {10, "adError|Character|0|0|80"},
        {11, "adBoolean|Boolean|0|0|2"},
        {12, "adVariant|Variant|0|0|16"},
        {13, "adIUnknown|Character|0|0|80"},
        {14, "adDecimal|Double|0|0|8"},
        {16, "adTinyInt|Tiny Integer|0|0|2"},
        {17, "adUnsignedTinyInt|Tiny Integer|0|0|2"},
        {18, "adUnsignedSmallInt|Integer|0|0|2"},
        {19, "adUnsignedInt|Integer|0|0|2"},
        {20, "adBigInt|Big Integer|0|0|8"},
        {21, "adUnsignedBigInt|Big Integer|0|0|8"},
        {64, "adFileTime|Time|0|0|8"},
        {72, "adGUID|Blob|0|0|1024"},
        {128, "adBinary|Blob|0|0|4096"},
        {129, "adChar|Big Integer|0|15|8"},
        {130, "adWChar|Character|0|0|80"},
        {131, "adNumeric|Double|0|0|8"},
        {132, "adUserDefined|Character|0|0|80"},
        {133, "adDBDate|Date|0|0|8"},
        {134, "adDBTime|Time|0|0|8"},
        {135, "adDBTimeStamp|TimeStamp|0|0|8"},
        {136, "adChapter|Character|0|0|80"},
        {137, "adDBFileTime|Time|0|0|8"},
        {138, "adPropVariant|Variant|0|0|16"},
        {139, "adVarNumeric|Double|0|0|8"},
        {200, "adVarChar|Character|0|0|80"},
        {201, "adLongVarChar|Character|0|0|80"},
        {202, "adVarWChar|Character|0|0|80"},
        {203, "adLongVarWChar|Character|0|0|80"},
        {204, "adVarBinary|Blob|0|0|4096"},
        {205, "adLongVarBinary|Blob|0|0|4096"},
        {1, "? : 1|Character|0|0|80"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Text(MapAdoType({c.code, std::nullopt, std::nullopt})), c.mapped);
}

TEST(ModDataTypes, MapsAdoTypesByLengthAndPrecision) {
    const struct {
        AdoColumn column;
        std::string_view mapped;
    } cases[] = {
        {{0, 12, 3}, "adEmpty|Character|12|3|80"},
        {{3, {}, 5}, "adInteger|Integer|0|5|2"},
        {{3, {}, 6}, "adInteger|Long Integer|0|6|4"},
        {{4, {}, 24}, "adSingle|Single|0|24|4"},
        {{5, {}, 0}, "adDouble|Double|0|15|8"},
        {{5, {}, 53}, "adDouble|Double|0|53|8"},
        {{8, 30, {}}, "adBSTR|Blob|30|0|30"},
        {{72, 16, {}}, "adGUID|Blob|16|0|1024"},
        {{128, 8, {}}, "adBinary|Blob|8|0|8"},
        {{128, 0, {}}, "adBinary|Blob|0|0|4096"},
        {{129, 1, {}}, "adChar|Character|1|0|1"},
        {{129, 0, 4}, "adChar|Big Integer|0|15|8"},
        {{130, 9, {}}, "adWChar|Character|9|0|9"},
        {{131, {}, 12}, "adNumeric|Double|0|12|8"},
        {{200, 0, {}}, "adVarChar|Character|0|0|0"},
        {{200, 40, {}}, "adVarChar|Character|40|0|40"},
        {{201, 0, {}}, "adLongVarChar|Character|0|0|0"},
        {{202, 0, {}}, "adVarWChar|Character|0|0|80"},
        {{203, 70, {}}, "adLongVarWChar|Character|70|0|70"},
        {{205, 2, {}}, "adLongVarBinary|Blob|2|0|2"},
        {{999, 7, 6}, "? : 999|Character|7|6|80"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Text(MapAdoType(c.column)), c.mapped);
}

TEST(ModDataTypes, MapsDaoTypes) {
    const struct {
        int code, size;
        std::string_view mapped;
    } cases[] = {
        {1, 1, "dbBoolean|Boolean|0|0|1"},       {2, 9, "dbByte|Tiny Integer|0|3|1"},
        {3, 9, "dbInteger|Integer|0|5|2"},       {4, 9, "dbLong|Long Integer|0|10|4"},
        {5, 9, "dbCurrency|Double|0|15|8"},      {6, 9, "dbSingle|Single|0|7|4"},
        {7, 9, "dbDouble|Double|0|15|8"},        {8, 9, "dbDate|TimeStamp|0|0|8"},
        {9, 20, "dbBinary|Blob|0|0|20"},         {9, 0, "dbBinary|Blob|0|0|0"},
        {10, 50, "dbText|Character|50|0|50"},    {11, 0, "dbLongBinary|Blob|0|0|1024"},
        {11, 77, "dbLongBinary|Blob|0|0|77"},    {12, 0, "dbMemo|Character|1024|0|1024"},
        {12, 77, "dbMemo|Character|77|0|77"},    {13, 0, "db... Unknown-13|Blob|0|0|1024"},
        {14, 5, "db... Unknown-14|Blob|0|0|5"},  {15, 16, "dbGUID|Blob|0|0|16"},
        {16, 8, "dbBigInt|Long Integer|0|10|4"}, {17, 30, "dbVarBinary|Blob|0|0|30"},
        {18, 6, "dbChar|Character|6|0|6"},       {19, 16, "dbNumeric|Double|0|15|8"},
        {20, 16, "dbDecimal|Double|0|15|8"},     {21, 16, "dbFloat|Double|0|15|8"},
        {22, 16, "dbTime|Time|0|0|8"},           {23, 16, "dbTimeStamp|TimeStamp|0|0|8"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Text(MapDaoType({"T", "C", c.code, c.size}, kDbmsJet)), c.mapped);
}

TEST(ModDataTypes, AsksWhatDaoLeavesOpen) {
    const std::string bigInteger =
        "question: Cannot determine if the data type for the following is a Character or a Big Integer.\n\n"
        "Table: Orders\nColumn: No\n\nIs it a Character column?";
    const std::string binary =
        "question: Cannot determine if the data type for the following is a Character or a Binary.\n\n"
        "Table: Orders\nColumn: No\n\nIs it a Character column?";
    const struct {
        std::string_view dbms;
        int code, size;
        bool isCharacter;
        std::string question;
        std::string_view mapped;
    } cases[] = {
        {kDbmsDB2, 10, 8, true, bigInteger, "dbText|Character|8|0|8"},
        {kDbmsDB2, 10, 8, false, bigInteger, "dbText|Big Integer|0|15|8"},
        {kDbmsDB2, 10, 9, false, "", "dbText|Character|9|0|9"},
        {kDbmsDB2, 12, 0, false, "", "dbMemo|Character|1024|0|1024"},
        {kDbmsSqlServer, 12, 0, true, binary, "dbMemo|Character|1024|0|1024"},
        {kDbmsSqlServer, 12, 0, false, binary, "dbMemo|Blob|0|0|1024"},
        {kDbmsSqlServer, 12, 300, false, binary, "dbMemo|Blob|0|0|300"},
        {kDbmsSqlServer, 10, 8, false, "", "dbText|Character|8|0|8"},
        {kDbmsOracle, 12, 0, false, "", "dbMemo|Character|1024|0|1024"},
    };
    for (const auto& c : cases) {
        test::Recorder recorder;
        recorder.yesNoAnswers = {c.isCharacter};
        EXPECT_EQ(Text(MapDaoType({"Orders", "No", c.code, c.size}, c.dbms)), c.mapped);
        EXPECT_EQ(recorder.Take(), c.question);
    }
}

}  // namespace
}  // namespace vellumark
