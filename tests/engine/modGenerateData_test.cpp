#include "engine/modGenerateData.h"

#include <gtest/gtest.h>

#include "engine/modRunProgress.h"
#include "engine/modValueReaders.h"
#include "insert_scenario.h"
#include "repository/modVellumark.h"

namespace vellumark::test {

namespace {

class GenerateTest : public InsertScenarioTest {
 protected:
    // One column A that counts, into the rows 1 to `quantity`.
    void AddCounter(int quantity) {
        AddRule("T", {{"A", "Long Integer"}}, {{"End Range", quantity}, {"Quantity", quantity}});
    }
};

// The row's statement, without the list of columns.
struct FormatCase {
    TargetFormat format;
    std::string head;
    std::string literals;
    std::string end;
};

const std::vector<FormatCase> kFormatCases = {
    {TargetFormat::Db2, "insert into SHOP.PEOPLE",
     "'NAME1',\n'it's',\n1,\n'2000-02-29',\n'13.05.05',\n'2000-02-01-00.05.06.000000',\nTRUE,\n"
     "'Blob is not supported yet',\nNULL",
     ";\nCOMMIT\n;\n\n"},
    {TargetFormat::Jet, "insert into [SHOP.PEOPLE]",
     "'NAME1',\n'it's',\n1,\n'2000-02-29',\n'Jan 1 1900 01:05PM',\n'Feb 1 2000 12:05AM',\n0,\n"
     "'Blob is not supported yet',\nnull",
     " \n"},
    {TargetFormat::NonStopSql, "insert into SHOP.PEOPLE",
     "'NAME1',\n'it's',\n1,\nDATE \"2000-02-29\",\nTIME \"13.05.05\",\nTIMESTAMP "
     "\"2000-02-01-00.05.06.000000\",\n"
     "TRUE,\n'Blob is not supported yet',\nNULL",
     ";\nCOMMIT\n;\n\n"},
    {TargetFormat::NonStopSqlWithDefine, "insert into =SHOP.PEOPLE",
     "'NAME1',\n'it's',\n1,\nDATE \"2000-02-29\",\nTIME \"13.05.05\",\nTIMESTAMP "
     "\"2000-02-01-00.05.06.000000\",\n"
     "TRUE,\n'Blob is not supported yet',\nNULL",
     ";\nCOMMIT\n;\n\n"},
    {TargetFormat::SqlServer, "insert into SHOP.PEOPLE",
     "'NAME1',\n'it's',\n1,\n('Feb 29 2000 12:00AM'),\n('Jan 1 1900 01:05PM'),\n('Feb 1 2000 12:05AM'),\n1,\n"
     "'Blob is not supported yet',\n(null)",
     " \nCOMMIT\n \n\n"},
    {TargetFormat::Oracle, "insert into SHOP.PEOPLE",
     "'NAME1',\n'it's',\n1,\nTO_DATE('2000-02-2900.00.00', 'YYYY-MM-DDHH24.MI.SS'),\n"
     "TO_DATE('0001-01-0113.05.05', 'YYYY-MM-DDHH24.MI.SS'),\n"
     "TO_DATE('2000-02-0100.05.06', 'YYYY-MM-DDHH24.MI.SS'),\nTRUE,\n'Blob is not supported yet',\nnull",
     "/\nCOMMIT\n/\n\n"},
    {TargetFormat::Sybase, "insert into SHOP.PEOPLE",
     "'NAME1',\n'it's',\n1,\n'Feb 29 2000',\n'01:05PM',\n'Feb 1 2000 12:05AM',\nTRUE,\n"
     "'Blob is not supported yet',\nNULL",
     "Go\nCOMMIT\nGo\n\n"},
};

const std::vector<RuleColumn> kPeople = {
    {"NAME", "Character", 20},
    {"NOTE", "Character", 20, 0, 0, {{"Constant Value", "it's"}}},
    {"LEFTOUT", "Character", 20, 0, 0, {{"Flag Exclude", true}}},
    {"QTY", "Integer"},
    {"BORN", "Date", 0, 0, 0, {{"date time increment", "M"}}},
    {"AT", "Time", 0, 0, 0, {{"date time increment", "N"}}},
    {"SEEN", "TimeStamp", 0, 0, 0, {{"date time increment", "H"}}},
    {"OK", "Boolean", 0, 0, 0, {{"Constant Value", "True"}}},
    {"PIC", "Blob", 30},
    {"GONE", "Integer", 0, 0, 0, {{"Code Generate Data Type", "N"}}},
};

void SetStartValues(const std::function<void(const std::string&, const std::string&)>& set) {
    set("Default Start Date", "2000-01-31");
    set("Default Start Time", "13:04:05");
    set("Default Start Timestamp", "2000-01-31 23:05:06");
}

TEST_F(GenerateTest, WritesEachFormatsStatements) {
    AddRule("PEOPLE", kPeople);
    SetStartValues([this](const std::string& name, const std::string& value) { SetOption(name, value); });
    for (const FormatCase& c : kFormatCases) {
        const bool jet = c.format == TargetFormat::Jet;
        const std::string columns =
            jet ? "[NAME],\n[NOTE],\n[QTY],\n[BORN],\n[AT],\n[SEEN],\n[OK],\n[PIC],\n[GONE]"
                : "NAME,\nNOTE,\nQTY,\nBORN,\nAT,\nSEEN,\nOK,\nPIC,\nGONE";
        EXPECT_EQ(Generate(c.format),
                  Crlf(c.head + "\n(\n" + columns + "\n)\nvalues (\n" + c.literals + "\n)\n" + c.end));
    }
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(GenerateTest, WritesDelimitedLinesByTheOptionsAndTheRules) {
    std::vector<RuleColumn> columns = kPeople;
    columns[1].rule.push_back({"Code Output Textfile in Quotes", "Q"});
    columns[1].rule.push_back({"Char Output Textfile in Quotes", "\""});
    columns[3].rule.push_back({"Code Output Textfile in Quotes", "N"});
    columns[4].rule.push_back({"Code Output Datetime Edit Pattern", "D001C001M002C001Y002"});
    AddRule("PEOPLE", columns, {{"Quantity", 2}});
    SetStartValues([this](const std::string& name, const std::string& value) { SetOption(name, value); });
    const std::string plain =
        "NAME1,\"it's\",1,29/Feb/00,13:05:05,2000-02-01-00.05.06.000000,True,'Blob is not supported yet',\n";
    EXPECT_EQ(Generate(TargetFormat::Delimited), Crlf(plain + plain));

    for (const char* group : {"C", "I", "D"}) {
        SetOption("Code " + std::string(group) + " Output Textfile In Quotes", "Q");
        SetOption("Char " + std::string(group) + " Output Textfile In Quotes", group);
    }
    SetOption("Output File Delimiter", "|");
    const std::string quoted =
        "CNAME1C|\"it's\"|1|D29/Feb/00D|13:05:05|2000-02-01-00.05.06.000000|True|'Blob is not supported "
        "yet'|\n";
    EXPECT_EQ(Generate(TargetFormat::Delimited), Crlf(quoted + quoted));
}

TEST_F(GenerateTest, MakesWholeRangesUntilTheQuantityIsReached) {
    struct Case {
        int start, end, quantity;
        std::string rows;
    };
    const std::vector<Case> cases = {
        {1, 4, 10, "1\n2\n3\n4\n1\n2\n3\n4\n1\n2\n3\n4\n"},
        {1, 3, 5, "1\n2\n3\n1\n2\n3\n"},
        {7, 0, 3, "7\n7\n7\n"},
        {5, 5, 1, "5\n"},
        {-2, 1, 1, "-2\n-1\n0\n1\n"},
        {1, 4, 0, ""},
        {2147483646, 2147483647, 3, "2147483646\n2147483647\n2147483646\n2147483647\n"},
    };
    AddCounter(1);
    for (const Case& c : cases) {
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "update [TSO Insert Table Rule] set [Start Range] = ?, [End Range] = ?, [Quantity] = ?",
            {c.start, c.end, c.quantity});
        EXPECT_EQ(Generate(TargetFormat::Delimited), Crlf(c.rows)) << c.start << " to " << c.end;
    }
}

TEST_F(GenerateTest, RefusesARangeThatRunsBackwards) {
    folder.Write("out.txt", "kept");
    AddCounter(1);
    AddRule("BACK", {{"A", "Integer"}}, {{"Start Range", 5}, {"End Range", 3}});
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle),
              "exclamation: Cannot generate data for BACK (5-3)\n\n"
              "Start range must be less than or equal to end range");
    EXPECT_EQ(ReadFile(outputPath), "kept");
}

TEST_F(GenerateTest, TakesTheRulesInTheirOrder) {
    AddRule("SECOND",
            {{"A", "Integer"}, {"B", "Integer", 0, 0, 0, {{"Constant Value", "8"}, {"Sort Order", 0}}}},
            {{"Sort Order", 2}});
    AddRule("FIRST", {{"A", "Integer"}}, {{"Sort Order", 1}, {"Start Range", 3}});
    AddRule("NONE", {{"A", "Integer"}}, {{"Flag Use Generated Data", false}});
    EXPECT_EQ(Generate(TargetFormat::Delimited), "3\r\n8,1\r\n");
    EXPECT_EQ(progress.started, "2 rows, 2 tables");
    EXPECT_EQ(progress.rows, 2);
    EXPECT_EQ(progress.captions,
              (std::vector<std::string>{"Preparing Test Scenario for data generation", "Generating data"}));
}

TEST_F(GenerateTest, CommitsEveryCommitPointAcrossTables) {
    AddCounter(3);
    AddRule("U", {{"A", "Long Integer"}}, {{"Quantity", 2}});
    const auto rows = [](const std::string& table, const std::string& number) {
        return "insert into SHOP." + table + "\n(\nA\n)\nvalues (\n" + number + "\n)\n/\n";
    };
    const std::string commit = "COMMIT\n/\n\n";
    struct Case {
        int commitPoint;
        std::string afterSecond, afterFourth, atEnd;
    };
    for (const Case& c :
         {Case{2, commit, commit, commit}, Case{4, "", commit, commit}, Case{1000, "", "", commit},
          Case{5, "", "", commit}, Case{0, "", "", ""}, Case{-1, "", "", ""}}) {
        SetOption("Commit Point", c.commitPoint);
        EXPECT_EQ(Generate(TargetFormat::Oracle),
                  Crlf(rows("T", "1") + rows("T", "2") + c.afterSecond + rows("T", "3") + rows("U", "1") +
                       c.afterFourth + rows("U", "1") + c.atEnd))
            << c.commitPoint;
    }
    SetOption("Commit Point", 1);
    EXPECT_EQ(Generate(TargetFormat::Jet).find("COMMIT"), std::string::npos);
}

TEST_F(GenerateTest, NamesTablesByTheOwnerOption) {
    AddCounter(1);
    SetOption("DataBase Owner", "BOSS");
    struct Case {
        std::string code, owner, head;
    };
    for (const Case& c :
         {Case{"Y", "SHOP", "SHOP.T"}, Case{"Y", "", "T"}, Case{"N", "SHOP", "T"}, Case{"O", "", "BOSS.T"}}) {
        SetOption("Code DataBase Owner", c.code);
        {
            RepositoryScope repository;
            RepositoryDatabase.Execute("update [Table] set [Owner] = ?", {c.owner});
        }
        EXPECT_TRUE(Generate(TargetFormat::Oracle).starts_with("insert into " + c.head + "\r\n")) << c.code;
    }
    SetOption("DataBase Owner", "");
    EXPECT_TRUE(Generate(TargetFormat::Oracle).starts_with("insert into T\r\n"));
}

TEST_F(GenerateTest, CopiesTheHeaderFileBeforeTheFirstStatement) {
    AddCounter(1);
    const std::string rows = Generate(TargetFormat::Oracle);
    SetOption("SQL Header File", folder.Write("head.sql", "set echo off\r\n\nspool x"));
    EXPECT_EQ(Generate(TargetFormat::Oracle), "set echo off\r\n\r\nspool x\r\n" + rows);
    EXPECT_EQ(Generate(TargetFormat::Delimited), "1\r\n");
    SetOption("SQL Header File", folder.Path("gone.sql"));
    EXPECT_EQ(Generate(TargetFormat::Oracle), rows);
    EXPECT_EQ(recorder.Take(), "exclamation: Cannot open the SQL Header File: " + folder.Path("gone.sql") +
                                   "\n\nPlease check the settings in Options.");
}

TEST_F(GenerateTest, WritesNoCommentsForASisterToolsSchema) {
    AddCounter(1);
    for (const char source : {'T', 'R'}) {
        CurrentDBSSource = source;
        EXPECT_TRUE(TestDataGenerateAll({false, outputPath, TargetFormat::Delimited}, progress));
        EXPECT_EQ(ReadFile(outputPath), "1\r\n");
    }
}

TEST_F(GenerateTest, SaysSoWhenNoTableIsToBeGenerated) {
    AddRule("T", {{"A", "Integer"}}, {{"Flag Use Generated Data", false}});
    EXPECT_EQ(Generate(TargetFormat::Oracle), "");
    EXPECT_EQ(
        recorder.Take(),
        "information: No tables were selected in this scenario for data generation!\n\nEdit the scenario and "
        "drag and drop the desired tables to the right hand tree to select them.");
}

TEST_F(GenerateTest, ARuleWithoutColumnsHasNoStatements) {
    AddRule("EMPTY", {{"A", "Integer", 0, 0, 0, {{"Flag Exclude", true}}}}, {{"Quantity", 2}});
    SetOption("Commit Point", 1);
    EXPECT_EQ(Generate(TargetFormat::Oracle), "");
    EXPECT_EQ(progress.rows, 2);
    EXPECT_EQ(Generate(TargetFormat::Delimited), "\r\n\r\n");
}

TEST_F(GenerateTest, ALoneEmptyLiteralKeepsItsComma) {
    AddRule("T", {{"OK", "Boolean", 0, 0, 0, {{"Code Generate Data Type", "?"}}}});
    EXPECT_EQ(Generate(TargetFormat::Jet), Crlf("insert into [SHOP.T]\n(\n[OK]\n)\nvalues (\n,\n\n)\n \n"));
    EXPECT_EQ(Generate(TargetFormat::Delimited), "\r\n");
}

TEST_F(GenerateTest, RefusesADataTypeThatNobodyKnows) {
    AddCounter(2);
    AddRule("U", {{"A", "Integer"}, {"B", "Geometry"}});
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle),
              "critical: Function 'InsertValue' format 'Geometry' not fully supported");
    const std::string row = "insert into SHOP.T\n(\nA\n)\nvalues (\n";
    EXPECT_EQ(WithoutComments(ReadFile(outputPath), TargetFormat::Oracle),
              Crlf(row + "1\n)\n/\n" + row + "2\n)\n/\nCOMMIT\n/\n\n"));
}

TEST_F(GenerateTest, ShowsTheStatementInHandOnAnUnexpectedError) {
    SetOption("Default Start Date", "9999-12-30");
    AddRule("T",
            {{"A", "Character", 9, 0, 0, {{"Constant Value", "x"}}},
             {"B", "Integer"},
             {"C", "Date"},
             {"D", "Integer"}},
            {{"End Range", 3}, {"Quantity", 3}});
    recorder.choiceAnswers = {1, 0};
    const std::string question =
        "choice: Unexpected error occurred during the data generation.\nError: 5 Invalid procedure call or "
        "argument: "
        "moving 9999-12-30 by 2 days leaves the years 100 to 9999";
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle),
              question + "|message: insert into SHOP.T\n(\nA,\nB,\nC,\nD\n) values (\n'x',\n2,\n");
    const std::string first =
        "insert into SHOP.T\n(\nA,\nB,\nC,\nD\n)\nvalues (\n'x',\n1,\n"
        "TO_DATE('9999-12-3100.00.00', 'YYYY-MM-DDHH24.MI.SS'),\n1\n)\n/\n";
    EXPECT_EQ(WithoutComments(ReadFile(outputPath), TargetFormat::Oracle), Crlf(first));
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle), question);
    EXPECT_EQ(progress.finished, 2);
}

TEST_F(GenerateTest, ShowsTheColumnListAsFarAsTheFirstRowCame) {
    AddRule("T", {{"A", "Integer"},
                  {"B", "Integer", 0, 0, 0, {{"Start Range", "5"}, {"End Range", "4"}}},
                  {"C", "Integer"}});
    recorder.choiceAnswers = {1};
    EXPECT_EQ(FailToGenerate(TargetFormat::Jet),
              "choice: Unexpected error occurred during the data generation.\nError: 11 Division by zero|"
              "message: insert into [SHOP.T]\n(\n[A],\n[B],\n values (\n1,\n");
}

TEST_F(GenerateTest, TellsOfOutputThatCannotBeWritten) {
    AddCounter(1);
    outputPath = folder.Path("none/out.sql");
    const std::string missing = FailToGenerate(TargetFormat::Oracle);
    EXPECT_TRUE(missing.starts_with(
        "exclamation: Error occurred trying to create the Output Text File.\n\nError: 76 "))
        << missing;
    outputPath = "/dev/full";
    recorder.choiceAnswers = {0, 0};
    const std::string full = "choice: Unexpected error occurred during the data generation.\nError: 61 ";
    EXPECT_TRUE(FailToGenerate(TargetFormat::Oracle).starts_with(full));
    RepositoryScope repository;
    RepositoryDatabase.Execute("update [TSO Insert Table Rule] set [Quantity] = 1000000");
    EXPECT_TRUE(FailToGenerate(TargetFormat::Oracle).starts_with(full));
}

TEST_F(GenerateTest, TellsOfBrokenDefinitions) {
    const std::string question = "choice: Unexpected error occurred during the data generation.\nError: ";
    recorder.choiceAnswers = {0, 0, 0};
    AddRule("T", {{"A", "Integer", 0, 0, 0, {{"FK COL Id", 77}}}});
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle), question + "3021 No current record.");
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute("delete from [Table]");
    }
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle), question + "3021 No current record.");
    SetOption("Default Start Time", "noon");
    EXPECT_EQ(FailToGenerate(TargetFormat::Oracle),
              question + "13 Type mismatch: the option 'Default Start Time' is 'noon'");
}

TEST_F(GenerateTest, AReaderAtTheEndOfItsDataEndsItsRuleOnly) {
    AddRule("T", {{"A", "Integer"}, {"B", "Integer", 0, 0, 0, {{"Code Generate Data Type", "V"}}}});
    AddRule("U", {{"A", "Integer"}});
    const std::string missing = "exclamation: Error: Cannot find [Value Source] for Table: 1 Column: B";
    EXPECT_EQ(FailToGenerate(TargetFormat::Delimited), missing);
    ReadEndMarker = "EOF";  // of some earlier run
    EXPECT_EQ(Generate(TargetFormat::Delimited), "1\r\n");
    EXPECT_EQ(recorder.Take(), missing);
}

TEST(ProgressTest, PointsGrowByTheTotal) {
    struct Case {
        std::int64_t total, count;
        int points;
    };
    for (const Case& c : {Case{1, 1, 100}, Case{0, 0, 0}, Case{0, 1, 100}, Case{60, 60, 60}, Case{3, 2, 66},
                          Case{150, 100, 100}, Case{150, 150, 100}, Case{1000000, 9999, 0},
                          Case{1000000, 10000, 1}, Case{1000000, 2000000, 100}})
        EXPECT_EQ(ProgressPoints(c.total, c.count), c.points) << c.total << " " << c.count;
}

}  // namespace

}  // namespace vellumark::test
