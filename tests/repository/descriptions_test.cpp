#include <gtest/gtest.h>

#include "platform/error.h"
#include "repository/modDescriptions.h"
#include "repository/modVellumark.h"
#include "temp_folder.h"

namespace vellumark {
namespace {

TEST(Descriptions, OfAConnectionHoldItsPartsThatAreNotEmpty) {
    EXPECT_EQ(ConnectionDescription("Jet", "", "", "/data/shop.mdb", "Orders", "Id"),
              " DBMS: 'Jet' MDB: 'shop.mdb' Table: 'Orders' Column: 'Id'");
    EXPECT_EQ(ConnectionDescription("Oracle", "sales", "ORCL", "", "", ""),
              " DBMS: 'Oracle' DSN: 'sales' Database: 'ORCL'");
    EXPECT_EQ(ConnectionDescription("", "", "", "", "", ""), "");
}

TEST(Descriptions, OfAValueSourceNameItsFileOrConnection) {
    EXPECT_EQ(ValueSourceDescription("D", "/data/names.txt", 0), "File: names.txt");
    EXPECT_EQ(ValueSourceDescription("P", "C:\\data\\names.txt", 0), "File: names.txt");
    EXPECT_EQ(ValueSourceDescription("X", "prices.xlsx", 0), "Spreadsheet: prices.xlsx");
    EXPECT_EQ(ValueSourceDescription("O", "", 0, " DSN: 'sales'"), " DSN: 'sales'");
    EXPECT_EQ(ValueSourceDescription("", "/data/names.txt", 7, " DSN: 'sales'"), "");
}

class ValueNames : public testing::Test {
 protected:
    ValueNames() {
        ValuesPath = folder_.Path("Vellumark Values.mdb");
        dao::CreateDatabase(ValuesPath);
        const ValuesScope values;
        for (const char* sql :
             {"create table [Category] ([Id] LONG, [Name] TEXT(255) collate nocase)",
              "create table [Conversion Code] ([Id] LONG, [Name] TEXT(100) collate nocase)",
              "create table [Conversion Code Value] ([Id] LONG, [FK CNV Id] LONG, [Code] TEXT(200) collate "
              "nocase, "
              "[Value] TEXT(200) collate nocase)",
              "insert into [Category] values (1, 'Cities'), (2, 'Twice'), (2, 'Twice')",
              "insert into [Conversion Code] values (1, 'States')",
              "insert into [Conversion Code Value] values (1, 1, 'TX', 'Texas'), (2, 1, 'TX', 'Second'), "
              "(3, 1, '5\"', 'five inches'), (1, 2, 'UT', 'Utah')"})
            ValuesDatabase.Execute(sql);
    }

    test::TempFolder folder_;
};

TEST_F(ValueNames, AreThoseOfTheSingleRow) {
    EXPECT_EQ(CategoryName(1), "Cities");
    EXPECT_EQ(CategoryName(2), "");
    EXPECT_EQ(CategoryName(3), "");
    EXPECT_EQ(ConversionCodeName(1), "States");
    EXPECT_EQ(ConversionCodeName(0), "");
    EXPECT_EQ(ValueSourceDescription("V", "", 1), "Category: Cities");
}

TEST_F(ValueNames, AMissingValuesDatabaseIsAnError) {
    ValuesPath = folder_.Path("missing.mdb");
    EXPECT_THROW(CategoryName(1), platform::Error);
}

TEST_F(ValueNames, ACodeWithoutAConversionStandsForItself) {
    const ValuesScope values;
    EXPECT_EQ(ConversionValue(1, "TX"), "Texas");
    EXPECT_EQ(ConversionValue(1, "tx"), "Texas");
    EXPECT_EQ(ConversionValue(1, "5\""), "five inches");
    EXPECT_EQ(ConversionValue(1, "UT"), "UT");
    EXPECT_EQ(ConversionValue(2, "UT"), "Utah");
    EXPECT_EQ(ConversionValue(1, ""), "");
}

}  // namespace
}  // namespace vellumark
