#include "scenario/modColumnRules.h"

#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modGenericValues.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "scenario/modValueSources.h"
#include "session.h"

namespace vellumark {
namespace {

class ColumnRuleTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
        tabId = AddTable("T", {"Txt Character", "Num Integer", "Day Date", "At Time", "Mom TimeStamp",
                               "Yes Boolean", "Bin Blob", "Opt Character"});
        {
            RepositoryScope repository;
            RepositoryDatabase.Execute(
                "update [Column] set [Vellumark Character Maximum Length] = 5, "
                "[Vellumark Numeric Precision] = 3, [Flag Optional] = ([Name] = 'Opt')");
        }
        CreateSystemScenario();
        ASSERT_TRUE(CreateScenario("Fill"));
        ruleId = AddTableRule(tabId, 1, 5, true);
    }

    // Sets one field and stores the rule; what was shown, or "ok".
    std::string Set(const char* column, const char* field, const std::string& value) {
        std::optional<ColumnRuleDetails> details = ReadColumnRule(ruleId, column);
        const bool stored = details && fSetColumnField(*details, field, value) && fUpdateColumnRule(*details);
        const std::string shown = recorder.Take();
        EXPECT_EQ(stored, shown.empty()) << shown;
        return stored ? "ok" : shown.substr(shown.find(' ') + 1);
    }

    std::string Stored(const char* fields, const char* column) {
        return Rows(std::string("select ") + fields +
                    " from [TSO Insert Column Rule] where [FK TSO Id] = 1 and [Id] = " +
                    "(select [Id] from [Column] where [Name] = '" + column + "')");
    }

    int tabId = 0, ruleId = 0;
};

TEST_F(ColumnRuleTest, FieldsTakeWhatTheColumnAllows) {
    const struct {
        const char *column, *field, *value, *outcome;
    } cases[] = {
        {"Txt", "Constant Value", "abcde", "ok"},
        {"Txt", "Constant Value", "abcdef", "Maximimum valid length is 5 characters."},
        {"Txt", "fill THE column", "B", "ok"},
        {"Txt", "Fill the column", "D", "'Fill the column' takes one of N, B, E for this column."},
        {"Txt", "date time increment", "D",
         "'date time increment' can't be set for a column of type Character."},
        {"Txt", "Nonsense", "D", "A Column rule has no field 'Nonsense'."},
        {"Txt", "Code Generate Data Type", "N", "Column 'Txt' is mandatory and can't be null."},
        {"Opt", "Code Generate Data Type", "N", "ok"},
        {"Txt", "Code Generate Data Type", "V",
         "Please enter a selection for the 'Other Data Source' or set generated data option to 'Generated "
         "Data'"},
        {"Num", "Constant Value", "12x", "Data type Integer must be numeric with no digit grouping symbols."},
        {"Num", "Constant Value", "1234",
         "Maximimum valid length of number before decimal place is 3 digits."},
        {"Num", "Start Range", "x", "Start number must be numeric"},
        {"Num", "End Range", "9", "Please enter a start number greater than zero"},
        {"Num", "Flag Exclude", "maybe", "'maybe' is neither True nor False."},
        {"Day", "date time increment", "H", "'date time increment' takes one of D, M, Y for this column."},
        {"Mom", "date time increment", "H", "ok"},
        {"Day", "Constant Value", "2001-02-29",
         "'2001-02-29' has an invalid date as it is not a leap year. Date must be 10 characters in this "
         "format "
         "(YYYY-MM-DD)."},
        {"Mom", "Constant Value", "2001-02-28 10:11:12", "ok"},
        {"Day", "Code Output Datetime Edit Pattern", "D001C001X999",
         "'X999' is no token of an Edit pattern."},
        {"Day", "Fill the column", "B", "'Fill the column' can't be set for a column of type Date."},
        {"Yes", "Constant Value", "True", "ok"},
        {"Yes", "Constant Value", "perhaps", "The constant of a Boolean column is True, False or empty."},
        {"Yes", "Start Range", "1", "'Start Range' can't be set for a column of type Boolean."},
        {"Bin", "Flag Exclude", "False", "Column 'Bin' is a Blob, whose rule can't be changed."},
        {"None", "Flag Exclude", "False", "Table rule 1 has no column 'None'."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Set(c.column, c.field, c.value), c.outcome) << c.column << " " << c.field << " " << c.value;
    EXPECT_EQ(Stored("[Constant Value], [Fill the column]", "Txt"), "abcde|B");
}

TEST_F(ColumnRuleTest, AtMostOneUseIsSet) {
    EXPECT_EQ(Set("Num", "Flag column unique", "True"), "ok");
    EXPECT_EQ(Set("Num", "Flag compound column unique", "yes"), "ok");
    const char* flags = "[Flag Exclude], [Flag column unique], [Flag compound column unique]";
    EXPECT_EQ(Stored(flags, "Num"), "0|0|-1");
    EXPECT_EQ(Set("Num", "Flag column unique", "False"), "ok");
    EXPECT_EQ(Stored(flags, "Num"), "0|0|-1");
    EXPECT_EQ(Set("Num", "Flag compound column unique", "False"), "ok");
    EXPECT_EQ(Stored(flags, "Num"), "0|0|0");
}

TEST_F(ColumnRuleTest, AnEmptyStartClearsTheEnd) {
    std::optional<ColumnRuleDetails> details = ReadColumnRule(ruleId, "Num");
    details->startRange = "3";
    details->endRange = "7";
    ASSERT_TRUE(fUpdateColumnRule(*details));
    EXPECT_EQ(Stored("[Start Range], [End Range]", "Num"), "3|7");
    details->startRange = "";
    details->endRange = "";
    ASSERT_TRUE(fUpdateColumnRule(*details));
    EXPECT_EQ(Stored("[Start Range], [End Range]", "Num"), "0|0");
}

TEST_F(ColumnRuleTest, SourcesAreCheckedAndStored) {
    const std::optional<ColumnRuleDetails> rule = ReadColumnRule(ruleId, "Txt");
    const std::string file = folder.Write("values.txt", "a,b\n");
    const struct {
        char type;
        void (*change)(ValueSourceDetails&);
        const char* message;
    } cases[] = {
        {'V', [](auto&) {}, "Please select a Vellumark Category of Values"},
        {'D', [](auto& d) { d.path = "none.txt"; }, "Please select a valid input file name and path."},
        {'O', [](auto& d) { d.connection.table = "T"; }, "Please enter the database connection details"},
        {'P', [](auto& d) { d.startColumn = 5, d.endColumn = 4; },
         "Start number must be less than or equal to end number"},
        {'P', [](auto& d) { d.startColumn = 0, d.endColumn = 4; },
         "Please enter a start number greater than zero"},
        {'D', [](auto& d) { d.startRow = 9, d.endRow = 8; },
         "Start number must be less than or equal to end number"},
        {'D', [](auto& d) { d.interval = -1; }, "Please enter a number equal to or greater than 0"},
        {'D', [](auto& d) { d.hold = -1; }, "Please enter a number equal to or greater than 0"},
    };
    for (const auto& c : cases) {
        ValueSourceDetails details;
        SetSourceKind(details, c.type);
        c.change(details);
        EXPECT_FALSE(fSaveValueSource(details, *rule));
        EXPECT_EQ(recorder.Take(), std::string("exclamation: ") + c.message);
    }
    EXPECT_EQ(Count("Value Source"), 0);

    ValueSourceDetails details;
    SetSourceKind(details, 'D');
    details.path = file;
    details.order = 'S';
    details.atEnd = 'H';
    ASSERT_TRUE(fSaveValueSource(details, *rule));
    EXPECT_EQ(
        Rows(
            "select [FK TCR Id], [FK TTR Id], [FK TSO Id], [Type], [Name and Path], [Start from Row], [End "
            "at Row], "
            "[Delimited Field Number], [Read File Order], [If End of File], [FK CON Id] from [Value Source]"),
        "1|1|1|D|" + file + "|1|999999999|1|S|H|0");
    EXPECT_EQ(Stored("[Code Generate Data Type]", "Txt"), "V");

    SetSourceKind(details, 'O');
    details.connection.table = "Src";
    details.connection.column = "Col";
    ASSERT_TRUE(fSaveValueSource(details, *rule));
    EXPECT_EQ(Rows("select [Description] from [Database Connection]"),
              " DBMS: 'Jet' Table: 'Src' Column: 'Col'");
    SetSourceKind(details, 'V');
    details.categoryId = CategoryId("First names");
    ASSERT_TRUE(fSaveValueSource(details, *rule));
    EXPECT_EQ(Count("Database Connection"), 0);
    EXPECT_EQ(Count("Value Source"), 1);
    EXPECT_EQ(recorder.Take(), "");

    EXPECT_EQ(ReadValueSource(*rule)->categoryId, details.categoryId);
    WarnOfCategoryType(details.categoryId, DataType::Character);
    WarnOfCategoryType(details.categoryId, DataType::Integer);
    EXPECT_EQ(recorder.Take(),
              "information: You have selected a Category of 'Character' datatype for a Column with "
              "'Integer' datatype!");
    EXPECT_FALSE(fSaveValueSource(details, *ReadColumnRule(ruleId, "Yes")));
}

TEST_F(ColumnRuleTest, CategoriesAreImportedWholeOrNotAtAll) {
    const std::size_t before = ListCategories().size();
    EXPECT_FALSE(fImportCategory("Days", 'D', {"2001-02-03", "2001-02-30"}));
    EXPECT_FALSE(fImportCategory("Sizes", 'I', {"1", ""}));
    EXPECT_FALSE(fImportCategory("Prices", 'R', {"1.5", "1,5"}));
    EXPECT_FALSE(fImportCategory("first NAMES", 'C', {"x"}));
    EXPECT_FALSE(fImportCategory("Empty", 'C', {}));
    EXPECT_EQ(ListCategories().size(), before);
    EXPECT_NE(recorder.Take().find("Line 2 was not accepted; nothing was imported."), std::string::npos);

    ASSERT_TRUE(fImportCategory("Sizes", 'I', {"10", "-2"}));
    EXPECT_GT(CategoryId("SIZES"), 0);
    ASSERT_TRUE(fImportConversionCode("Letters", {{"a", "Alpha"}, {"b", "Beta"}}));
    EXPECT_FALSE(fImportConversionCode("Letters", {{"c", "Gamma"}}));
    ValuesScope values;
    EXPECT_EQ(test::RowsOf(ValuesDatabase,
                           "select [Value], [Sort Order] from [Value] where [FK CAT Id] = "
                           "(select [Id] from [Category] where [Name] = 'Sizes')"),
              "10|1\n-2|2");
    EXPECT_EQ(test::RowsOf(ValuesDatabase,
                           "select [Code], [Value] from [Conversion Code Value] where [FK CNV Id] = "
                           "(select [Id] from [Conversion Code] where [Name] = 'Letters')"),
              "a|Alpha\nb|Beta");
}

}  // namespace
}  // namespace vellumark
