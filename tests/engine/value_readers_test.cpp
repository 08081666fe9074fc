#include <gtest/gtest.h>

#include "access_file.h"
#include "embedded.h"
#include "engine/connectionSlots.h"
#include "repository/modVellumark.h"
#include "spreadsheet_files.h"
#include "value_source.h"

namespace vellumark::test {

namespace {

const std::vector<std::string> kLetters = {"a", "b", "c", "d", "e"};

// The same values in each kind of source.
enum class Kind {
    Category,
    Delimited,
    Positional,
    Spreadsheet,
    DaoDatabase,
    AdoDatabase,
    DaoAccess,
    AdoAccess
};

// What the reader of each kind says.
struct KindWords {
    const char* atEnd;
    const char* atError;
};
constexpr KindWords kOtherDatabaseWords = {
    "No more data found when reading values from an Other Database for ",
    "Error occurred reading values from an Other Database for "};
constexpr KindWords kWords[] = {
    {"No more data found when reading Generic Value for ", "Error occurred reading Generic Value for "},
    {"End of File occurred reading values from a Delimited Text File for ",
     "Error occurred reading values from a Delimited Text File for "},
    {"End Of File occurred reading values from a Positional Text File for ",
     "Error occurred reading values from a Positional Text File for "},
    {"End Of File occurred reading values from an Excel Spreadsheet for ",
     "Error occurred reading values from an Excel Spreadsheet for "},
    kOtherDatabaseWords,
    kOtherDatabaseWords,
    kOtherDatabaseWords,
    kOtherDatabaseWords};

class ValueReadersTest : public ValueSourceTest, public ::testing::WithParamInterface<Kind> {
 protected:
    void TearDown() override {
        CloseConnectionSlots();
        ValueSourceTest::TearDown();
    }

    // The fields of a source of these values.
    Fields SourceOf(const std::vector<std::string>& values);
    std::string ReadValues(const std::vector<std::string>& values, const Fields& fields, int rows) {
        Fields all = SourceOf(values);
        all.insert(all.end(), fields.begin(), fields.end());
        return Read(all, rows);
    }
    std::string AtEnd() const { return ReadingFailure(Words().atEnd); }
    std::string AtError() const { return ReadingFailure(Words().atError); }

 private:
    static const KindWords& Words() { return kWords[static_cast<std::size_t>(GetParam())]; }
    std::string Lines(const std::vector<std::string>& values, const std::string& rest);
    std::string SheetOf(const std::vector<std::string>& values);
    std::string DatabaseOf(const std::vector<std::string>& values);
    std::string AccessFileOf(const std::vector<std::string>& values);
};

std::string ValueReadersTest::Lines(const std::vector<std::string>& values, const std::string& rest) {
    std::string text;
    for (const std::string& value : values)
        text.append(value).append(rest).append("\r\n");
    return folder.Write("values.txt", text);
}

std::string ValueReadersTest::SheetOf(const std::vector<std::string>& values) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string& value : values)
        rows.push_back({"", value, "x"});
    return WriteXlsx(folder.Path("values.xlsx"), "Data", rows);
}

std::string ValueReadersTest::DatabaseOf(const std::vector<std::string>& values) {
    std::string statements = "drop table if exists [My Data]; create table [My Data] ([Val] TEXT);";
    for (const std::string& value : values)
        statements += "insert into [My Data] values ('" + value + "');";
    return MakeEmbedded(folder.Path("values.db"), statements);
}

std::string ValueReadersTest::AccessFileOf(const std::vector<std::string>& values) {
    AccessFile file(AccessVersion::Access2000);
    file.AddTable({"My Data", {{"Val", 10, 100}}});
    for (const std::string& value : values)
        file.AddRow({file.Text(value)});
    return file.Save(folder.Path("values.mdb"));
}

Fields ValueReadersTest::SourceOf(const std::vector<std::string>& values) {
    switch (GetParam()) {
        case Kind::Category:
            return {{"Type", "V"}, {"FK CAT Id", AddCategory(values)}};
        case Kind::Delimited:
            return {{"Type", "D"},
                    {"Name and Path", Lines(values, ";rest")},
                    {"Delimiter", ";"},
                    {"Delimited Field Number", 1}};
        case Kind::Positional:
            return {{"Type", "P"}, {"Name and Path", Lines(values, "")}, {"Start from Column", 1}};
        case Kind::Spreadsheet:
            return {{"Type", "X"},
                    {"Name and Path", SheetOf(values)},
                    {"Sheet", "data"},
                    {"Start from Column", 2},
                    {"End at Column", 2}};
        case Kind::DaoDatabase:
            return {{"Type", "O"},
                    {"FK CON Id", AddConnectionRow("Mine", 'D', DatabaseOf(values), "My Data", "Val")}};
        case Kind::AdoDatabase:
            return {{"Type", "O"},
                    {"FK CON Id",
                     AddConnectionRow("Mine", 'A', AccessString(DatabaseOf(values)), "My Data", "Val")}};
        case Kind::DaoAccess:
            return {{"Type", "O"},
                    {"FK CON Id", AddConnectionRow("Mine", 'D', AccessFileOf(values), "My Data", "Val")}};
        default:
            return {{"Type", "O"},
                    {"FK CON Id",
                     AddConnectionRow("Mine", 'A', AccessString(AccessFileOf(values)), "My Data", "Val")}};
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ValueReadersTest,
                         ::testing::Values(Kind::Category, Kind::Delimited, Kind::Positional,
                                           Kind::Spreadsheet, Kind::DaoDatabase, Kind::AdoDatabase,
                                           Kind::DaoAccess, Kind::AdoAccess));

}  // namespace

TEST_P(ValueReadersTest, StepsThroughTheRows) {
    struct Case {
        Fields fields;
        int rows;
        const char* values;
    };
    const std::vector<Case> cases = {
        {{}, 5, " a b c d e"},
        {{}, 7, " a b c d e !"},
        {{{"If End of File", "L"}}, 7, " a b c d e a b"},
        {{{"If End of File", "H"}}, 8, " a b c d e e e e"},
        {{{"File Read Interval", 2}}, 4, " a c e !"},
        {{{"File Read Interval", 3}, {"If End of File", "L"}}, 4, " a d a d"},
        {{{"File Read Interval", 3}, {"If End of File", "H"}}, 4, " a d d d"},
        {{{"File Read Interval", 0}}, 4, " a a a a"},
        {{{"File Read Interval", dao::Value{}}}, 2, " a b"},
        {{{"File Read Interval", 2000000000}, {"If End of File", "L"}}, 3, " a a a"},
        {{{"Start from Row", 2}, {"End at Row", 3}}, 3, " b c !"},
        {{{"Start from Row", 4}, {"End at Row", 9}, {"If End of File", "L"}}, 4, " d e d e"},
        {{{"Start from Row", dao::Value{}}, {"End at Row", dao::Value{}}}, 6, " a b c d e !"},
        {{{"Start from Row", 3}, {"End at Row", 0}}, 2, " c !"},
        {{{"Start from Row", 3}, {"End at Row", 0}, {"If End of File", "L"}}, 3, " c c c"},
    };
    for (const Case& c : cases) {
        ReadEndMarker.clear();
        const std::string values = ReadValues(kLetters, c.fields, c.rows);
        EXPECT_EQ(values, c.values);
        EXPECT_EQ(recorder.Take(), values.ends_with('!') ? AtEnd() : "");
        EXPECT_EQ(ReadEndMarker, values.ends_with('!') ? "EOF" : "");
    }
}

TEST_P(ValueReadersTest, HoldsEachValueForSomeRows) {
    const Fields three = {{"File Read Hold Frequency", 3}};
    EXPECT_EQ(ReadValues({"a", "b"}, three, 7), " a a a b b b !");
    EXPECT_EQ(ReadValues({"a", "b"}, {{"File Read Hold Frequency", 2}, {"If End of File", "L"}}, 5),
              " a a b b a");
    EXPECT_EQ(ReadValues({"a", "b"}, {{"File Read Hold Frequency", 0}}, 2), " a b");
    EXPECT_EQ(recorder.Take(), AtEnd());
}

// Held values are as they were read.
TEST_P(ValueReadersTest, ConvertsWhatItReadsButNotWhatItHolds) {
    const int codes = AddConversion({{"A", "Ann"}, {"b", "Bob"}, {"B", "other"}, {"e", ""}});
    EXPECT_EQ(ReadValues({"a", "B", "c", "e", "d"}, {{"FK CNV Id", codes}}, 5), " Ann Bob c  d");
    EXPECT_EQ(ReadValues({"a", "b"}, {{"FK CNV Id", codes}, {"File Read Hold Frequency", 2}}, 4),
              " Ann a Bob b");
    EXPECT_EQ(
        ReadValues({"\"a\"", "(b)", "c"}, {{"Code Input Value In Quotes", "Q"}, {"FK CNV Id", codes}}, 3),
        " Ann Bob c");
    EXPECT_EQ(ReadValues({"a"}, {{"FK CNV Id", 99}}, 1), " a");
    served.dataType = DataType::Date;
    served.format = TargetFormat::Sybase;
    EXPECT_EQ(ReadValues({"\"31/12/99\"", "\"01/02/30\"", "\"x\""},
                         {{"Code Input Value In Quotes", "Q"},
                          {"Code Input Datetime Edit Pattern", "D001C001M001C001Y002"}},
                         3),
              " Dec 31 1999 Feb 1 2030 Jan 1 2000");
}

TEST_P(ValueReadersTest, PicksRandomRowsForEver) {
    RandomStream same;
    std::string expected;
    for (int row = 0; row < 40; ++row) {
        const int picked = RandomInRange(same, 2, 4);
        if (GetParam() == Kind::Spreadsheet)
            RandomInRange(same, 2, 2);  // the column
        expected += " " + kLetters[static_cast<std::size_t>(picked - 1)];
    }
    EXPECT_EQ(ReadValues(kLetters, {{"Read File Order", "R"}, {"Start from Row", 2}, {"End at Row", 4}}, 40),
              expected);
    EXPECT_EQ(
        ReadValues(kLetters, {{"Read File Order", "R"}, {"Start from Row", 5}, {"If End of File", "S"}}, 3),
        " e e e");
}

TEST_P(ValueReadersTest, StartsAnewOnTheFirstRow) {
    AddSource(SourceOf(kLetters));
    RepositoryScope repository;
    ValuesScope values;
    const auto reader = MakeValueReader(served);
    std::string text;
    for (const int row : {1, 2, 3, 1, 2, 1})
        EXPECT_TRUE(reader->fGetAlternateValue(row, text));
    EXPECT_EQ(text, "abcaba");
}

TEST_P(ValueReadersTest, KeepsItsStateInTheSource) {
    const auto state = [&] {
        return Rows(
            "select [temp Last Value], [temp Hold Counter], [temp Last Row Processed], [temp Total Rows]"
            " from [Value Source]");
    };
    ReadValues(kLetters, {{"File Read Hold Frequency", 3}, {"End at Row", 5}}, 5);
    EXPECT_EQ(state(), "b|2|2|5");
    ReadValues({"a"}, {}, 2);
    EXPECT_EQ(state(), "|0|-1|1");
}

TEST_P(ValueReadersTest, RefusesDataWithoutRows) {
    EXPECT_EQ(ReadValues({}, {{"If End of File", "L"}}, 1), " !");
    EXPECT_EQ(ReadValues(kLetters, {{"Start from Row", 6}, {"If End of File", "L"}}, 1), " !");
    EXPECT_EQ(ReadValues(kLetters, {{"Start from Row", 6}, {"Read File Order", "R"}}, 1), " !");
    EXPECT_EQ(recorder.Take(), AtError() + "|" + AtError() + "|" + AtError());
    EXPECT_EQ(ReadEndMarker, "");
}

// The marker is never cleared, so that a later failure reads as an end.
TEST_P(ValueReadersTest, TakesAFailureForAnEndBehindAnEnd) {
    ReadEndMarker = "EOF";
    EXPECT_EQ(ReadValues({}, {}, 1), " !");
    EXPECT_EQ(recorder.Take(), AtEnd());
}

}  // namespace vellumark::test
