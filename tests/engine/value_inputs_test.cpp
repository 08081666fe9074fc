#include <filesystem>
#include <gtest/gtest.h>

#include "embedded.h"
#include "engine/connectionSlots.h"
#include "repository/modVellumark.h"
#include "spreadsheet_files.h"
#include "test_files.h"
#include "value_source.h"

namespace vellumark::test {

namespace {

const std::string kDelimitedError =
    ReadingFailure("Error occurred reading values from a Delimited Text File for ");
const std::string kPositionalError =
    ReadingFailure("Error occurred reading values from a Positional Text File for ");
const std::string kSpreadsheetError =
    ReadingFailure("Error occurred reading values from an Excel Spreadsheet for ");
const std::string kDatabaseError =
    ReadingFailure("Error occurred reading values from an Other Database for ");

class ValueInputsTest : public ValueSourceTest {
 protected:
    void TearDown() override {
        CloseConnectionSlots();
        ValueSourceTest::TearDown();
    }

    std::string Delimited(const std::string& text, const Fields& fields, int rows) {
        Fields all = {{"Type", "D"}, {"Name and Path", folder.Write("in.txt", text)}};
        all.insert(all.end(), fields.begin(), fields.end());
        return Read(all, rows);
    }
    std::string Positional(const std::string& text, int first, int last, int rows) {
        return Read({{"Type", "P"},
                     {"Name and Path", folder.Write("in.txt", text)},
                     {"Start from Column", first},
                     {"End at Column", last}},
                    rows);
    }
    std::string Sheet(const std::string& path, const Fields& fields, int rows) {
        Fields all = {{"Type", "X"}, {"Name and Path", path}};
        all.insert(all.end(), fields.begin(), fields.end());
        return Read(all, rows);
    }
};

}  // namespace

TEST_F(ValueInputsTest, ReadsFieldsOfDelimitedText) {
    options.inputFileDelimiter = "|";
    const std::string text = "a;b|c\r\n\nd;\xFF\"x;y\"z\r\n;;§e§f";
    const auto field = [](int number) {
        return Fields{{"Delimiter", ";"}, {"Delimited Field Number", number}};
    };
    EXPECT_EQ(Delimited(text, field(1), 4), " a  d ");
    EXPECT_EQ(Delimited(text, field(2), 4), " b|c  \xFF\"x ");
    EXPECT_EQ(Delimited(text, field(3), 4), "   y\"z §e§f");
    EXPECT_EQ(Delimited(text, field(2147483647), 4), "    ");
    EXPECT_EQ(Delimited(text, {{"Delimited Field Number", 2}}, 1), " c");
    EXPECT_EQ(Delimited(text, {}, 1), " a;b");
    EXPECT_EQ(Delimited(text, {{"Delimiter", "§§"}, {"Delimited Field Number", 2}, {"Start from Row", 4}}, 1),
              " e");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(Delimited(text, field(0), 1), " !");
    EXPECT_EQ(recorder.Take(), kDelimitedError);
}

TEST_F(ValueInputsTest, ReadsColumnsOfPositionalText) {
    const std::string text = "12345\r\näöü\n\nab";
    EXPECT_EQ(Positional(text, 2, 3, 4), " 23 öü  b");
    EXPECT_EQ(Positional(text, 4, 999999999, 4), " 45   ");
    EXPECT_EQ(Positional(std::string(10000000, 'x') + "y\nz", 10000001, 10000001, 2), " y ");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(Positional(text, 3, 2, 1), " !");
    EXPECT_EQ(recorder.Take(), kPositionalError);
}

TEST_F(ValueInputsTest, SaysWhenATextFileIsNotThere) {
    const std::string path = folder.Path("in.txt");
    const std::string message = "exclamation: Cannot open the Input Value text file: " + path;
    EXPECT_EQ(Read({{"Type", "D"}, {"Name and Path", path}}, 1), " !");
    EXPECT_EQ(recorder.Take(), message + "|" + kDelimitedError);
    EXPECT_EQ(Read({{"Type", "P"}, {"Name and Path", folder.Path()}}, 1), " !");
    EXPECT_EQ(recorder.Take(), "exclamation: Cannot open the Input Value text file: " + folder.Path() +
                                   "\n\nError: 75 It is no ordinary file.|" + kPositionalError);

    RepositoryScope repository;
    ValuesScope values;
    AddSource({{"Type", "D"}, {"Name and Path", folder.Write("in.txt", "a\nb\nc\n")}});
    std::string text;
    const auto grown = MakeValueReader(served);
    EXPECT_TRUE(grown->fGetAlternateValue(1, text));
    folder.Write("in.txt", "a\nb\nc\nd\n");
    EXPECT_FALSE(grown->fGetAlternateValue(2, text));
    EXPECT_EQ(recorder.Take(),
              message + "\n\nError: 57 The file changed while it was being read.|" + kDelimitedError);
    const auto removed = MakeValueReader(served);
    EXPECT_TRUE(removed->fGetAlternateValue(1, text));
    std::filesystem::remove(path);
    EXPECT_FALSE(removed->fGetAlternateValue(2, text));
    EXPECT_EQ(recorder.Take(), message + "|" + kDelimitedError);
    EXPECT_EQ(text, "aa");
}

TEST_F(ValueInputsTest, WalksThroughSpreadsheets) {
    const std::string path = WriteXlsx(folder.Path("in.xlsx"), "S",
                                       {{"a1", "b1", "c1", "END", "e1"},
                                        {"a2", "", "c2"},
                                        {"a3", "b3", "c3", "d3"},
                                        {"STOP", "b4"},
                                        {"a5"},
                                        {},
                                        {"a7"}});
    struct Case {
        Fields fields;
        int rows;
        const char* values;
    };
    const Fields end = {{"Row end Cell", "STOP"}, {"Column end Cell", "END"}};
    const auto with = [&](Fields fields) {
        fields.insert(fields.end(), end.begin(), end.end());
        return fields;
    };
    const std::vector<Case> cases = {
        {end, 10, " a1 a2 a3 b1  b3 c1 c2 c3 !"},
        {with({{"If End of File", "L"}}), 11, " a1 a2 a3 b1  b3 c1 c2 c3 a1 a2"},
        {with({{"If End of File", "H"}}), 11, " a1 a2 a3 b1  b3 c1 c2 c3 c3 c3"},
        {with({{"File Read Interval", 2}}), 7, " a1 a3 b1 b3 c1 c3 !"},
        {with({{"File Read Interval", 0}}), 3, " a1 a1 a1"},
        {with({{"Start from Row", 2}, {"Start from Column", 3}, {"End at Row", 2}}), 2, " c2 !"},
        {with({{"End at Column", 2}, {"End at Row", 2}}), 5, " a1 a2 b1  !"},
        {with({{"End at Column", 0}, {"End at Row", 0}}), 2, " a1 !"},
        {with({{"File Read Hold Frequency", 2}, {"Start from Row", 3}, {"Start from Column", 2}}), 3,
         " b3 b3 b4"},
        // Without terminators an empty cell ends the walk, of a row its own end.
        {{}, 7, " a1 a2 a3 STOP a5 b1 "},
        {{{"Start from Row", 3}, {"Start from Column", 2}, {"End at Column", 2}}, 3, " b3 b4 !"},
        {{{"Row end Cell", "never"}, {"End at Column", 1}}, 8, " a1 a2 a3 STOP a5  a7 !"},
        {{{"Column end Cell", "never"}, {"Start from Row", 2}, {"End at Row", 2}}, 4, " a2  c2 !"},
        {{{"Start from Row", 7}, {"End at Column", 1}}, 2, " a7 !"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Sheet(path, c.fields, c.rows), c.values);
        recorder.Take();
        ReadEndMarker.clear();
    }
    for (const Fields& none :
         {Fields{{"Start from Row", 4}, {"Row end Cell", "STOP"}},
          Fields{{"Start from Column", 4}, {"Column end Cell", "END"}}, Fields{{"Start from Row", 6}},
          Fields{{"Start from Row", 2}, {"Start from Column", 2}},
          Fields{{"Start from Row", 6}, {"Row end Cell", "x"}}, Fields{{"Start from Column", 99}}}) {
        EXPECT_EQ(Sheet(path, none, 1), " !");
        EXPECT_EQ(recorder.Take(), kSpreadsheetError);
    }
}

TEST_F(ValueInputsTest, DrawsARowAndAColumnOfASpreadsheet) {
    const std::string path = WriteXlsx(folder.Path("in.xlsx"), "S", {{"11", "12", "13"}, {"21", "22", "23"}});
    RandomStream same;
    std::string expected;
    for (int i = 0; i < 20; ++i) {
        const int row = RandomInRange(same, 1, 2);
        expected += " " + std::to_string(10 * row + RandomInRange(same, 1, 3));
    }
    EXPECT_EQ(Sheet(path, {{"Read File Order", "R"}}, 20), expected);
}

TEST_F(ValueInputsTest, ChoosesTheSheetByItsName) {
    const std::string cell = "<row><c t=\"inlineStr\"><is><t>";
    const std::string path = WriteXlsx(
        folder.Path("in.xlsx"),
        XlsxParts{{{"First", cell + "one</t></is></c></row>"}, {"Second", cell + "two</t></is></c></row>"}}});
    EXPECT_EQ(Sheet(path, {{"Sheet", "SECOND"}}, 1), " two");
    EXPECT_EQ(Sheet(path, {{"Sheet", "Third"}}, 1), " one");
    EXPECT_EQ(Sheet(path, {}, 1), " one");
    const std::string xls = TestData("people.xls");
    EXPECT_EQ(Sheet(xls, {{"Start from Column", 1}, {"End at Column", 2}}, 6),
              " Ann Jörg Zoë 42 1.5 1234567.25");
    const std::string ods =
        WriteOds(folder.Path("in.ods"),
                 "<table:table table:name=\"S\"><table:table-row "
                 "table:number-rows-repeated=\"3\"><table:table-cell "
                 "office:value-type=\"float\" office:value=\"7\"/></table:table-row></table:table>");
    EXPECT_EQ(Sheet(ods, {}, 4), " 7 7 7 !");
}

TEST_F(ValueInputsTest, SaysWhyASpreadsheetCannotBeOpened) {
    const auto message = [&](const std::string& path, const std::string& reason) {
        return "exclamation: Cannot open the Input Value Excel Spreadsheet: " + path + reason + "|" +
               kSpreadsheetError;
    };
    const std::string missing = folder.Path("missing.xlsx");
    EXPECT_EQ(Sheet(missing, {}, 1), " !");
    EXPECT_EQ(recorder.Take(), message(missing, ""));
    const std::string text = folder.Write("text.xlsx", "a,b");
    EXPECT_EQ(Sheet(text, {}, 1), " !");
    EXPECT_EQ(recorder.Take(), message(text,
                                       "\n\nError: 3343 The file is no workbook of a kind that can be read "
                                       "(.xlsx, .ods, .xls)."));
    const std::string secret = WriteZip(folder.Path("secret.xlsx"), {{"_rels/.rels", "<a/>"}}, "password");
    EXPECT_EQ(Sheet(secret, {}, 1), " !");
    EXPECT_EQ(recorder.Take(), message(secret, "\n\nError: 70 The file is protected by a password."));
}

TEST_F(ValueInputsTest, SaysWhyADatabaseGivesNoValues) {
    const std::string path = MakeEmbedded(folder.Path("in.db"), "create table [T] ([A] TEXT);");
    const auto source = [&](const std::string& file, const std::string& column) {
        return Fields{{"Type", "O"},
                      {"FK CON Id", AddConnectionRow("My connection", 'D', file, "T", column)}};
    };
    const std::string cannotConnect = "exclamation: Cannot connect to Input Value Database: ";
    EXPECT_EQ(Read({{"Type", "O"}, {"FK CON Id", 0}}, 1), " !");
    EXPECT_EQ(recorder.Take(), cannotConnect + "|" + kDatabaseError);
    const std::string missing = folder.Path("missing.db");
    EXPECT_EQ(Read(source(missing, "A"), 1), " !");
    EXPECT_EQ(recorder.Take(), "exclamation: Error: 3024 Could not find file '" + missing + "'.|" +
                                   cannotConnect + "My connection|" + kDatabaseError);
    EXPECT_EQ(Read(source(path, "B"), 1), " !");
    EXPECT_EQ(recorder.Take(), "critical: Error no: 3061 no such column: B|" + kDatabaseError);
}

TEST_F(ValueInputsTest, OpensAConnectionOnceInARun) {
    const std::string path = MakeEmbedded(
        folder.Path("in.db"), "create table [T] ([A] TEXT); insert into [T] values ('x'), (null);");
    const Fields source = {{"Type", "O"}, {"FK CON Id", AddConnectionRow("Mine", 'D', path, "T", "A")}};
    EXPECT_EQ(Read(source, 2), " x ");
    std::filesystem::rename(path, path + ".moved");
    EXPECT_EQ(Read(source, 2), " x ");
    CloseConnectionSlots();
    EXPECT_EQ(Read(source, 1), " !");
}

TEST_F(ValueInputsTest, ReadsNumbersOfADatabaseInTheirShortestForm) {
    const std::string path = MakeEmbedded(
        folder.Path("in.db"),
        "create table [T] ([A]); insert into [T] values (100000.0), (-2.5), (1e20), (7), (0.0);");
    EXPECT_EQ(Read({{"Type", "O"}, {"FK CON Id", AddConnectionRow("Mine", 'D', path, "T", "A")}}, 5),
              " 100000 -2.5 1E+20 7 0");
}

TEST_F(ValueInputsTest, SaysWhenTheSourceIsMissingOrUnknown) {
    served.tableId = 7;
    EXPECT_EQ(Read(1), " !");
    EXPECT_EQ(recorder.Take(), "exclamation: Error: Cannot find [Value Source] for Table: 7 Column: NAME");
    served.tableId = 1;
    EXPECT_EQ(Read({{"Type", "Z"}}, 1), " !");
    EXPECT_EQ(Read({{"Type", dao::Value{}}}, 1), " !");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(ValueInputsTest, StripsQuotesByTheOptionsOfTheDataType) {
    struct Case {
        DataType type;
        const char* code;
        TypeGroup group;
        const char* values;
    };
    for (const Case& c : {Case{DataType::Character, "D", TypeGroup::Character, " a 2"},
                          Case{DataType::LongInteger, "D", TypeGroup::Numeric, " a 2"},
                          Case{DataType::Variant, "D", TypeGroup::Numeric, " a 2"},
                          Case{DataType::Boolean, "D", TypeGroup::Boolean, " a 2"},
                          Case{DataType::Character, "D", TypeGroup::Numeric, " 'a' 2"},
                          Case{DataType::Character, "N", TypeGroup::Character, " 'a' 2"},
                          Case{DataType::Character, "Q", TypeGroup::Numeric, " a 2"},
                          Case{DataType::Blob, "Q", TypeGroup::Character, " 'a' 2"},
                          Case{DataType::Blob, "D", TypeGroup::Character, " 'a' 2"}}) {
        served.dataType = c.type;
        options.inputInQuotes = {};
        options.inputInQuotes[static_cast<std::size_t>(c.group)] = true;
        EXPECT_EQ(Delimited("'a'\n2", {{"Code Input Value In Quotes", c.code}}, 2), c.values);
    }
}

TEST_F(ValueInputsTest, ReadsDatesByTheirPatterns) {
    options.inputPatterns[static_cast<std::size_t>(TypeGroup::Date)] = "D001M001Y001";
    options.inputPatterns[static_cast<std::size_t>(TypeGroup::Time)] = "H001I001";
    options.inputPatterns[static_cast<std::size_t>(TypeGroup::Timestamp)] = "Y001M001D001H001I001S001N001";
    options.year2000Conversion = 30;
    served.outputPattern = CompileEditPattern("Y001C001M001C001D001C006H001C009I001C009S001C003N001");
    struct Case {
        DataType type;
        TargetFormat format;
        const char* pattern;
        const char* text;
        const char* literal;
    };
    for (const Case& c : {Case{DataType::Date, TargetFormat::Db2, "", "29022024", " 2024-02-29"},
                          Case{DataType::Date, TargetFormat::Db2, "0", "29022024", " 2024-02-29"},
                          Case{DataType::Date, TargetFormat::Oracle, "M001C001D001C001Y002", "12/31/31",
                               " 1931-12-3100.00.00"},
                          Case{DataType::Date, TargetFormat::Db2, "", "30022024", " 2000-01-01"},
                          Case{DataType::Time, TargetFormat::Db2, "", "1305", " 13.05.00"},
                          Case{DataType::Time, TargetFormat::Sybase, "H001C009I001", "13:05", " 01:05PM"},
                          Case{DataType::Time, TargetFormat::Db2, "", "9999", " 00.00.00"},
                          Case{DataType::TimeStamp, TargetFormat::Db2, "", "20240229130506123456",
                               " 2024-02-29-13.05.06.123456"},
                          Case{DataType::TimeStamp, TargetFormat::Delimited, "", "20240229130506123456",
                               " 2024/02/29 13:05:06.123456"},
                          Case{DataType::TimeStamp, TargetFormat::Jet, "", "", " Jan 1 2000 12:00AM"}}) {
        served.dataType = c.type;
        served.format = c.format;
        EXPECT_EQ(Delimited(std::string(c.text) + "\n", {{"Code Input Datetime Edit Pattern", c.pattern}}, 1),
                  c.literal);
    }
    // The codes are those of the literal.
    served.dataType = DataType::Date;
    served.format = TargetFormat::Sybase;
    const int codes = AddConversion({{"feb 29 2024", "leap"}});
    EXPECT_EQ(Delimited("29022024\n01032024", {{"FK CNV Id", codes}}, 2), " leap Mar 1 2024");
}

TEST_F(ValueInputsTest, EndsTheRuleButNotTheRun) {
    AddRule("PEOPLE",
            {{"ID", "Long Integer"}, {"NAME", "Character", 10, 0, 0, {{"Code Generate Data Type", "V"}}}},
            {{"End Range", 5}, {"Quantity", 5}});
    AddRule("PLACES", {{"ID", "Long Integer"}, {"NAME", "Character", 10}});
    AddSource({{"Type", "D"}, {"Name and Path", folder.Write("in.txt", "Ann\nBob\n")}}, 1, 2);
    SetOption("Code C Output Textfile In Quotes", "N");
    EXPECT_EQ(Generate(TargetFormat::Delimited), Crlf("1,Ann\n2,Bob\n1,NAME1\n"));
    EXPECT_EQ(recorder.Take(),
              ReadingFailure("End of File occurred reading values from a Delimited Text File for "));
}

TEST_F(ValueInputsTest, EndsTheRunForASourceThatFails) {
    AddRule("PEOPLE", {{"NAME", "Character", 10, 0, 0, {{"Code Generate Data Type", "V"}}}},
            {{"Quantity", 5}});
    AddRule("PLACES", {{"NAME", "Character", 10}});
    AddSource({{"Type", "V"}, {"FK CAT Id", 12345}});
    EXPECT_EQ(FailToGenerate(TargetFormat::Delimited),
              ReadingFailure("Error occurred reading Generic Value for "));
    EXPECT_EQ(WithoutComments(ReadFile(outputPath), TargetFormat::Delimited), "");
}

TEST_F(ValueInputsTest, JoinsNumbersToValuesAndCutsThem) {
    AddRule(
        "PEOPLE",
        {{"NAME", "Character", 4, 0, 0, {{"Code Generate Data Type", "V"}, {"Concat Value with Id", "E"}}},
         {"AGE", "Integer", 0, 2, 0, {{"Code Generate Data Type", "V"}}}},
        {{"End Range", 3}, {"Quantity", 3}});
    AddSource({{"Type", "V"}, {"FK CAT Id", AddCategory({"Ann", "Roberta"})}, {"If End of File", "L"}});
    AddSource({{"Type", "V"}, {"FK CAT Id", AddCategory({"x", "7"})}, {"If End of File", "H"}}, 1, 2);
    SetOption("Code C Output Textfile In Quotes", "N");
    EXPECT_EQ(Generate(TargetFormat::Delimited), Crlf("Ann1,0\nRobe,7\nAnn3,7\n"));
}

}  // namespace vellumark::test
