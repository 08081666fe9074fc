#include "engine/modColumnValue.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>

#include "insert_scenario.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark::test {

namespace {

class ColumnValueTest : public InsertScenarioTest {
 protected:
    // The values of that column in the rows of a rule, one after another with a blank between.
    std::string Values(const RuleColumn& column, const Fields& rule = {},
                       TargetFormat format = TargetFormat::Delimited) {
        {
            RepositoryScope repository;
            for (const char* table : {"Table", "Column", "TSO Insert Table Rule", "TSO Insert Column Rule"})
                RepositoryDatabase.Execute("delete from [" + std::string(table) + "]");
        }
        AddRule("T", {column}, rule);
        std::string text = Generate(format);
        text = platform::Replace(text, "\r\n", " ");
        return text.substr(0, text.size() - 1);
    }
};

TEST_F(ColumnValueTest, JoinsNamesAndNumbers) {
    struct Case {
        std::string name;
        int length, row;
        std::string tooLarge, value;
    };
    SetOption("Value Too Large String", "*+");
    for (const Case& c :
         {Case{"CUSTOMER_NAME", 10, 123, "B", "CUSTOME123"}, Case{"NAME", 10, 123, "B", "NAME123"},
          Case{"NAME", 7, 123, "B", "NAME123"}, Case{"NAME", 6, 123, "B", "NAM123"},
          Case{"NAME", 3, 123, "B", "123"}, Case{"NAME", 3, 12345, "B", "123"},
          Case{"NAME", 3, 12345, "E", "345"}, Case{"NAME", 3, 12345, "D", "*+"},
          Case{"NAME", 3, 12345, "", "12345"}, Case{"NAME", 0, 5, "B", ""}, Case{"GRÖSSE", 4, 7, "B", "GRÖ7"},
          Case{"GRÖSSE", 7, 7, "B", "GRÖSSE7"}})
        EXPECT_EQ(Values({c.name, "Character", c.length, 0, 0, {{"generated value too large", c.tooLarge}}},
                         {{"Start Range", c.row}}),
                  c.value)
            << c.name << c.length << c.tooLarge;
}

TEST_F(ColumnValueTest, TakesNumbersFromTheRulesOwnRange) {
    const RuleColumn own{"A", "Long Integer", 0, 0, 0, {{"Start Range", "10"}, {"End Range", "12"}}};
    EXPECT_EQ(Values(own, {{"End Range", 2}, {"Quantity", 7}}), "10 11 12 10 11 12 10 11");
    EXPECT_EQ(
        Values({"A", "Long Integer", 0, 0, 0, {{"Start Range", "0"}, {"End Range", "9"}}}, {{"Quantity", 2}}),
        "1 1");
    EXPECT_EQ(
        Values({"A", "Character", 9, 0, 0, {{"Start Range", "9"}, {"End Range", "10"}}}, {{"Quantity", 3}}),
        "A9 A10 A9");
}

TEST_F(ColumnValueTest, PutsNumbersIntoEachNumericType) {
    struct Case {
        std::string type;
        std::string value;
    };
    for (const Case& c :
         {Case{"Integer", "32767"}, Case{"Long Integer", "70000"}, Case{"Tiny Integer", "255"},
          Case{"Big Integer", "70000"}, Case{"Currency", "70000"}, Case{"Single", "70000"},
          Case{"Double", "70000"}, Case{"Variant", "70000"}})
        EXPECT_EQ(Values({"A", c.type}, {{"Start Range", 70000}}), c.value) << c.type;
    EXPECT_EQ(Values({"A", "Integer", 0, 2, 0, {{"generated value too large", "E"}}},
                     {{"Start Range", 98}, {"End Range", 102}, {"Quantity", 1}}),
              "98 99 00 01 02");
    SetOption("Value Too Large Number", 77);
    EXPECT_EQ(Values({"A", "Integer", 0, 1, 0, {{"generated value too large", "D"}}},
                     {{"Start Range", 9}, {"End Range", 10}}),
              "9 7");
    EXPECT_EQ(Values({"A", "Tiny Integer"}, {{"Start Range", -1}, {"End Range", 1}}), "0 0 1");
}

TEST_F(ColumnValueTest, PrefersAConstant) {
    struct Case {
        RuleColumn column;
        std::string value;
    };
    const std::vector<Case> cases = {
        {{"A", "Date", 0, 0, 0, {{"Constant Value", "2001-02-03"}}}, "2001-02-03"},
        {{"A", "Character", 3, 0, 0, {{"Constant Value", "abcd"}}}, "abc"},
        {{"A", "Character", 9, 0, 0, {{"Constant Value", "abc"}, {"Code Generate Data Type", "V"}}}, "abc"},
        {{"A", "Character", 9, 0, 0, {{"Constant Value", "abc"}, {"Code Generate Data Type", "N"}}}, ""},
        {{"A", "Integer", 0, 0, 0, {{"Constant Value", "1,5"}}}, "0"},
        {{"A", "Integer", 0, 0, 0, {{"Constant Value", "-"}}}, "0"},
        {{"A", "Integer", 0, 0, 0, {{"Code Generate Data Type", "X"}}}, "0"},
        {{"A", "Boolean", 0, 0, 0, {{"Constant Value", "False"}}}, "False"},
        {{"A", "Boolean", 0, 0, 0, {{"Constant Value", "True"}, {"Code Generate Data Type", "X"}}}, ""},
        {{"A", "Blob", 4}, "'Blob'"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Values(c.column), c.value);
}

TEST_F(ColumnValueTest, JoinsTheNumberToConstantsOnly) {
    const Fields end = {{"Constant Value", "ab"}, {"Concat Value with Id", "E"}};
    const Fields beginning = {{"Constant Value", "ab"}, {"Concat Value with Id", "B"}};
    const Fields rows = {{"Start Range", 8}, {"End Range", 10}};
    EXPECT_EQ(Values({"A", "Character", 9, 0, 0, end}, rows), "ab8 ab9 ab10");
    EXPECT_EQ(Values({"A", "Character", 3, 0, 0, beginning}, rows), "8ab 9ab 10a");
    EXPECT_EQ(Values({"A", "Character", 9, 0, 0, {{"Concat Value with Id", "B"}}}, rows), "A8 A9 A10");
}

TEST_F(ColumnValueTest, FillsColumns) {
    const auto fill = [](const std::string& type, int length, int precision, int scale, const char* where,
                         const char* constant) {
        return RuleColumn{"A",       type,  length,
                          precision, scale, {{"Fill the column", where}, {"Constant Value", constant}}};
    };
    struct Case {
        RuleColumn column;
        std::string value;
    };
    const std::vector<Case> cases = {
        {fill("Character", 6, 0, 0, "B", ""), "####A1"},
        {fill("Character", 6, 0, 0, "E", ""), "A1####"},
        {fill("Character", 6, 0, 0, "E", "ä"), "ä#####"},
        {fill("Character", 2, 0, 0, "E", ""), "A1"},
        {fill("Integer", 0, 4, 0, "B", ""), "9991"},
        {fill("Long Integer", 0, 6, 2, "E", ""), "1999"},
        {fill("Integer", 0, 5, 0, "E", ""), "19999"},
        {fill("Integer", 0, 5, 0, "B", ""), "32767"},  // 99991
        {fill("Integer", 0, 4, 0, "B", "-5"), "0"},    // 99-5
        {fill("Integer", 0, 2, 3, "B", ""), "1"},
        {fill("Date", 0, 12, 0, "E", ""), "2000-01-0299"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Values(c.column), c.value);
    EXPECT_EQ(Values(fill("Character", 2050, 0, 0, "E", "abc")), "abc" + std::string(2047, '#'));
    EXPECT_EQ(Values(fill("Character", 2052, 0, 0, "E", "abc")), "abc" + std::string(2045, '#'));
    EXPECT_EQ(Values(fill("Character", 5000, 0, 0, "B", "abc")), std::string(2045, '#') + "abc");
    SetOption("Fill Character", "é");
    EXPECT_EQ(Values(fill("Character", 4, 0, 0, "B", "")), "ééA1");
}

TEST_F(ColumnValueTest, MovesDatesFromTheirStart) {
    SetOption("Default Start Date", "2000-01-31");
    SetOption("Default Start Time", "23:59:59");
    SetOption("Default Start Timestamp", "2000-12-31 23:59:59");
    const Fields rows = {{"Start Range", 1}, {"End Range", 2}};
    struct Case {
        std::string type, step, values;
    };
    const std::string never = " ";  // two empty values
    for (const Case& c :
         {Case{"Date", "Y", "2001-01-31 2002-01-31"}, Case{"Date", "M", "2000-02-29 2000-03-31"},
          Case{"Date", "D", "2000-02-01 2000-02-02"}, Case{"Date", "H", never},
          Case{"Time", "H", "00:59:59 01:59:59"}, Case{"Time", "N", "00:00:59 00:01:59"},
          Case{"Time", "S", "00:00:00 00:00:01"}, Case{"Time", "D", never},
          Case{"TimeStamp", "S", "2001-01-01-00.00.00.000000 2001-01-01-00.00.01.000000"},
          Case{"TimeStamp", "M", "2001-01-31-23.59.59.000000 2001-02-28-23.59.59.000000"},
          Case{"TimeStamp", "", never}})
        EXPECT_EQ(
            Values({"A", c.type, 0, 0, 0, {{"date time increment", c.step}, {"Start Range", "50"}}}, rows),
            c.values)
            << c.type << c.step;
}

TEST_F(ColumnValueTest, DrawsBooleans) {
    const auto words = [this](TargetFormat format) {
        std::set<std::string> found;
        const std::string values = Values({"A", "Boolean"}, {{"Quantity", 40}}, format);
        for (const std::string_view line : platform::Split(values, ' '))
            if (line == "TRUE" || line == "FALSE" || line == "0" || line == "1" || line == "-1")
                found.emplace(line);
        return found;
    };
    EXPECT_EQ(words(TargetFormat::Delimited), (std::set<std::string>{"FALSE", "TRUE"}));
    EXPECT_EQ(words(TargetFormat::Oracle), (std::set<std::string>{"FALSE", "TRUE"}));
    EXPECT_EQ(words(TargetFormat::SqlServer), (std::set<std::string>{"0", "1"}));
    EXPECT_EQ(words(TargetFormat::Jet), (std::set<std::string>{"-1", "0"}));
}

TEST_F(ColumnValueTest, DrawsFromTheOneStreamInTheOrderOfTheColumns) {
    const Fields random = {{"Range order", "R"}, {"Start Range", "1"}, {"End Range", "1000000"}};
    const std::string first = Values({"A", "Long Integer", 0, 0, 0, random}, {{"Quantity", 2}});
    const std::string continued = Values({"A", "Long Integer", 0, 0, 0, random}, {{"Quantity", 2}});
    EXPECT_NE(first, continued);
    SessionRandomStream() = {};
    EXPECT_EQ(Values({"A", "Long Integer", 0, 0, 0, random}, {{"Quantity", 4}}), first + " " + continued);

    // A constant and a null draw their number all the same.
    SessionRandomStream() = {};
    Fields constant = random, null = random;
    constant.push_back({"Constant Value", "c"});
    null.push_back({"Code Generate Data Type", "N"});
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute("delete from [TSO Insert Table Rule]");
    }
    AddRule("U", {{"A", "Character", 9, 0, 0, constant},
                  {"B", "Long Integer", 0, 0, 0, random},
                  {"C", "Integer", 0, 0, 0, null},
                  {"D", "Long Integer", 0, 0, 0, random}});
    const std::string row = Generate(TargetFormat::Delimited);
    const auto drawn = platform::Split(first, ' '), next = platform::Split(continued, ' ');
    EXPECT_EQ(row, "c," + std::string(drawn[1]) + ",," + std::string(next[1]) + "\r\n");
}

TEST(RandomTest, CoversItsRange) {
    RandomStream random;
    std::set<int> range, number, unshifted, single;
    for (int i = 0; i < 1000; ++i) {
        range.insert(RandomInRange(random, 5, 8));
        number.insert(RandomNumber(random, 3, 4));
        unshifted.insert(RandomInRange(random, -1, 1));
        single.insert(RandomNumber(random, 7, 7));
    }
    EXPECT_EQ(range, (std::set<int>{5, 6, 7, 8}));
    EXPECT_EQ(number, (std::set<int>{3, 4}));
    EXPECT_EQ(unshifted, (std::set<int>{1, 2, 3}));
    EXPECT_EQ(single, (std::set<int>{7}));
}

TEST(RandomTest, ValuesGoRoundTheirRange) {
    struct Case {
        int start, end, row, value;
    };
    for (const Case& c : {Case{1, 3, 1, 1}, Case{1, 3, 3, 3}, Case{1, 3, 4, 1}, Case{5, 5, 9, 5},
                          Case{1, 2147483647, 2147483647, 2147483647}, Case{5, 1, 1, 2}, Case{5, 1, 3, 1}})
        EXPECT_EQ(ValueFromRange(c.start, c.end, c.row), c.value) << c.start << " " << c.end << " " << c.row;
    EXPECT_THROW(ValueFromRange(5, 4, 1), platform::Error);
    RandomStream random;
    const auto drawMany = [&random] {
        for (int i = 0; i < 100; ++i)
            RandomInRange(random, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    };
    EXPECT_THROW(drawMany(), platform::Error);
}

}  // namespace

}  // namespace vellumark::test
