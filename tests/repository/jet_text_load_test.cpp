#include <filesystem>
#include <gmock/gmock.h>

#include "recorder.h"
#include "repository/modJetDatabaseServices.h"
#include "repository/modVellumark.h"
#include "temp_folder.h"
#include "test_files.h"

namespace vellumark {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class TextIntoTable : public testing::Test {
 protected:
    TextIntoTable() { dao::CreateDatabase(folder_.Path("test.mdb")); }

    dao::Database Open() const { return dao::OpenDatabase(folder_.Path("test.mdb")); }

    void MakeTable(const std::string& columns) const {
        const dao::Database database = Open();
        DeleteTableIfPresent(database, "T");
        database.Execute("create table [T] (" + columns + ")");
    }

    bool Load(const std::string& text, const std::string& delimiter = ",") {
        folder_.Write("text/rows.txt", text);
        return fLoadTextIntoJetTable(
            {" test.mdb ", folder_.Path() + " ", "T", folder_.Path("text"), "rows.txt", delimiter});
    }

    // Each value as SQL would write it; rows end with "/".
    std::string Rows() const {
        const dao::Database database = Open();
        std::string quoted;
        for (const dao::Field& field : database.TableDefinition("T").fields)
            quoted += (quoted.empty() ? "quote([" : " || '|' || quote([") + field.name + "])";
        dao::Statement select = database.Prepare("select " + quoted + " from [T] order by rowid");
        std::string rows;
        while (select.Step())
            rows.append(select.ColumnText(0)).append("/");
        return rows;
    }

    test::TempFolder folder_;
    test::Recorder boxes_;
};

TEST_F(TextIntoTable, LeavesMicrosoftAccessFilesAlone) {
    const std::string before = test::ReadFile(test::TestData("fruit.mdb"));
    const std::string path = folder_.Write("test.mdb", before);
    EXPECT_FALSE(Load("1"));
    EXPECT_THAT(boxes_.Take(), HasSubstr("Error: 3027 '" + path + "' is a Microsoft Access file"));
    EXPECT_FALSE(std::filesystem::exists(folder_.Path("text/schema.ini")));
    EXPECT_EQ(test::ReadFile(path), before);
}

TEST_F(TextIntoTable, DescribesTheFileInSchemaIni) {
    MakeTable(
        "[Flag] YESNO, [Byte] BYTE, [Short] SHORT, [Long] LONG, [Cash] CURRENCY, [Single] SINGLE, [Double] "
        "DOUBLE, "
        "[When] DATETIME, [Full Name] VARCHAR(30), [Code] CHAR(4), [Memo] MEMO, [Raw] BINARY(8), [Big] "
        "LONGBINARY, "
        "[Key] GUID");
    folder_.Write("text/schema.ini", "[other.txt]\r\n");
    EXPECT_TRUE(Load("", ";"));
    EXPECT_EQ(test::ReadFile(folder_.Path("text/schema.ini")),
              "[rows.txt]\r\n"
              "ColNameHeader = False\r\n"
              "Format=Delimited(;)\r\n"
              "CharacterSet=ANSI\r\n"
              "Col1=\"Flag\" bit\r\n"
              "Col2=\"Byte\" byte width 1\r\n"
              "Col3=\"Short\" integer\r\n"
              "Col4=\"Long\" long width 4\r\n"
              "Col5=\"Cash\" currency\r\n"
              "Col6=\"Single\" single\r\n"
              "Col7=\"Double\" double\r\n"
              "Col8=\"When\" datetime\r\n"
              "Col9=\"Full Name\" text width 30\r\n"
              "Col10=\"Code\" char width 4\r\n"
              "Col11=\"Memo\" memo\r\n"
              "Col12=\"Raw\" binary\r\n"
              "Col13=\"Big\" byte\r\n"
              "Col14=\"Key\" byte\r\n");
    EXPECT_EQ(boxes_.Take(), "");
}

TEST_F(TextIntoTable, StoresValuesByTheTypeOfTheirColumn) {
    struct Case {
        std::string type;
        std::string text;
        std::string stored;
    };
    const Case cases[] = {
        {"YESNO", "True", "-1"},
        {"YESNO", "no", "0"},
        {"YESNO", "1", "-1"},
        {"BYTE", "255", "255"},
        {"SHORT", "-32768", "-32768"},
        {"LONG", " +2147483647 ", "2147483647"},
        {"BIGINT", "-9223372036854775808", "-9223372036854775808"},
        {"CURRENCY", "12.25", "12.25"},
        {"SINGLE", "-.5", "-0.5"},
        {"DOUBLE", "2.5E-3", "0.0025"},
        {"NUMERIC(10,2)", "10.25", "10.25"},
        {"DATETIME", "2001-02-03 04:05:06", "'2001-02-03 04:05:06'"},
        {"DATETIME", "2001-02-03-04.05.06.123456", "'2001-02-03 04:05:06'"},
        {"DATETIME", "20010203040506123456", "'2001-02-03 04:05:06'"},
        {"DATETIME", "02/03/2001 04:05:06 PM", "'2001-02-03 16:05:06'"},
        {"DATETIME", "28/02/2001", "'2001-02-28 00:00:00'"},
        {"DATETIME", "04:05:06", "'1899-12-30 04:05:06'"},
        {"DATE", "2001-02-03", "'2001-02-03'"},
        {"TIME", "04:05:06", "'04:05:06'"},
        {"VARCHAR(3)", " wider than three ", "' wider than three '"},
        {"VARCHAR(9)", "007", "'007'"},
        {"MEMO", "\"a \"\"b\"\",\r\nc\"", "'a \"b\",\r\nc'"},
        {"GUID", "{0F3A}", "'{0F3A}'"},
        {"VARCHAR(9)", "", "NULL"},
        {"VARCHAR(9)", "\"\"", "''"},
        {"LONG", "\"\"", "NULL"},
        {"LONG", "\"7\"", "7"},
        {"DATETIME", "  ", "NULL"},
    };
    for (const Case& c : cases) {
        MakeTable("[Value] " + c.type);
        EXPECT_TRUE(Load(c.text + "\r\n")) << boxes_.Take();
        EXPECT_EQ(Rows(), c.stored + "/") << c.type << " from " << c.text;
    }
}

TEST_F(TextIntoTable, RefusesValuesThatAreNoneOfTheirColumn) {
    const std::pair<const char*, const char*> cases[] = {
        {"YESNO", "perhaps"},
        {"BYTE", "256"},
        {"BYTE", "-1"},
        {"SHORT", "32768"},
        {"LONG", "2147483648"},
        {"LONG", "12x"},
        {"LONG", "1.5"},
        {"LONG", "+-1"},
        {"BIGINT", "9223372036854775808"},
        {"CURRENCY", "1e15"},
        {"SINGLE", "1e39"},
        {"DOUBLE", "nan"},
        {"DOUBLE", "1.2.3"},
        {"DATETIME", "2001-02-29"},
        {"DATETIME", "12/31/2001"},
        {"TIME", "noon"},
    };
    for (const auto& [type, text] : cases) {
        MakeTable("[Value] " + std::string(type));
        EXPECT_FALSE(Load(std::string(text) + "\r\n")) << type << " from " << text;
        EXPECT_THAT(boxes_.Take(), HasSubstr("Row 1: column Value: '" + std::string(text) + "' is no "));
        EXPECT_EQ(Rows(), "") << type << " from " << text;
    }
}

TEST_F(TextIntoTable, TakesTheSessionsDecimalPoint) {
    MakeTable("[Value] DOUBLE");
    DecimalPointCharacter = ',';
    EXPECT_TRUE(Load("1,5\r\n2.5\r\n", ";"));
    DecimalPointCharacter = '.';
    EXPECT_EQ(Rows(), "1.5/2.5/");
    EXPECT_FALSE(Load("1,5\r\n", ";"));
}

TEST_F(TextIntoTable, AddsRowsInTheOrderOfTheFile) {
    MakeTable("[Id] LONG, [Name] VARCHAR(20), [Price] DOUBLE");
    Open().Execute("insert into [T] values (0, 'there', 0.5)");
    EXPECT_TRUE(Load("2;b;1.5;;\n1;a\n3\n\n\"4\";\"d\";4.5", ";"));
    EXPECT_EQ(Rows(), "0|'there'|0.5/2|'b'|1.5/1|'a'|NULL/3|NULL|NULL/NULL|NULL|NULL/4|'d'|4.5/");
    EXPECT_EQ(boxes_.Take(), "");
}

TEST_F(TextIntoTable, LoadsNothingWhenOneRowIsBad) {
    MakeTable("[Id] LONG not null primary key, [Name] VARCHAR(20)");
    const std::pair<const char*, const char*> cases[] = {
        {"1,a\r\n2,b\r\nx,c\r\n", "Error: 13 Row 3: column Id: 'x' is no whole number"},
        {"1,a\r\n99999999999,b\r\n", "Error: 6 Row 2: column Id: "},
        {"1,a\r\n2,b,extra\r\n", "Error: 13 Row 2: the table has no column for 'extra'"},
        {"1,a\r\n2,\"b\r\n3,c\r\n", "Error: 13 Row 2: A quote is not closed."},
        {"1,\"a\r\nb\"\r\n2,\"c\r\nd\"\r\nx,e\r\n",
         "Error: 13 Row 3 (line 5): column Id: 'x' is no whole number"},
        {"1,a\r\n1,b\r\n", "Error: 3022 Row 2: "},
        {"1,a\r\n,b\r\n", "Error: 3314 Row 2: "},
    };
    for (const auto& [text, line] : cases) {
        EXPECT_FALSE(Load(text)) << text;
        EXPECT_THAT(
            boxes_.Take(),
            StartsWith("exclamation: Unexpected error occurred loading Jet table.\n\n" + std::string(line)));
        EXPECT_EQ(Rows(), "") << text;
    }
}

TEST_F(TextIntoTable, DropsAnOldTempTable) {
    MakeTable("[Id] LONG");
    Open().Execute("create table [TempTable] ([Id] LONG)");
    EXPECT_FALSE(Load("x\r\n"));
    EXPECT_TRUE(Open().HasTable("TempTable"));
    EXPECT_TRUE(Load("1\r\n"));
    EXPECT_FALSE(Open().HasTable("TempTable"));
}

TEST_F(TextIntoTable, NeedsItsFilesAndItsTable) {
    MakeTable("[Id] LONG");
    folder_.Write("text/rows.txt", "1\r\n");
    const auto load = [&](const std::string& mdb, const std::string& table, const std::string& file,
                          const std::string& delimiter) {
        EXPECT_FALSE(
            fLoadTextIntoJetTable({mdb, folder_.Path(), table, folder_.Path("text"), file, delimiter}));
        return boxes_.Take();
    };
    EXPECT_THAT(load("missing.mdb", "T", "rows.txt", ","), HasSubstr("Error: 3024 "));
    EXPECT_THAT(load("test.mdb", "U", "rows.txt", ","), HasSubstr("Error: 3265 "));
    EXPECT_THAT(load("test.mdb", "T", "missing.txt", ","), HasSubstr("Error: 53 "));
    EXPECT_THAT(load("test.mdb", "T", "Schema.ini", ","), HasSubstr("Error: 52 "));
    EXPECT_FALSE(std::filesystem::exists(folder_.Path("text/schema.ini")));
    EXPECT_THAT(load("test.mdb", "T", "rows.txt", ""), AllOf(HasSubstr("Error: 5 "), HasSubstr("delimiter")));
    EXPECT_EQ(Rows(), "");
}

}  // namespace
}  // namespace vellumark
