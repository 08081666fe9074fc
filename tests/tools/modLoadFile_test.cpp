#include "tools/modLoadFile.h"

#include <filesystem>

#include "insert_scenario.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark::test {
namespace {

// The rule 1 of a table WIDE, with a column of each data type that is its number wide.
class LoadFileTest : public InsertScenarioTest {
 protected:
    void SetUp() override {
        InsertScenarioTest::SetUp();
        std::vector<RuleColumn> columns;
        for (const char* type :
             {"Character", "Date", "Time", "TimeStamp", "Integer", "Long Integer", "Single", "Double",
              "Currency", "Big Integer", "Tiny Integer", "Variant", "Boolean", "Blob", "Interval"})
            columns.push_back({"C" + std::to_string(columns.size() + 1), type});
        columns.push_back({"Hidden", "Integer", 0, 0, 0, {{"Flag Exclude", true}}});
        AddRule("WIDE", columns);
        Execute("update [Column] set [Vellumark Size] = [Id]");
        SetOption("Dir Output Text Files", folder.Path() + "/");
    }

    static void Execute(const std::string& sql) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql);
    }

    // What is written for the rule, each tab as ">" and each line end as "\n".
    std::string Written(TargetFormat format, const std::string& delimiter = ",") {
        std::filesystem::remove(outputPath);
        EXPECT_TRUE(fCreateLoadFile({1, format, delimiter, outputPath})) << recorder.Take();
        const std::string text = ReadFile(outputPath);
        EXPECT_EQ(Crlf(platform::Replace(text, "\r\n", "\n")), text);
        return platform::Replace(platform::Replace(text, "\r\n", "\n"), "\t", ">");
    }
};

constexpr TargetFormat kFormats[] = {TargetFormat::Jet, TargetFormat::Oracle, TargetFormat::SqlServer,
                                     TargetFormat::Db2};

TEST_F(LoadFileTest, EachFormatKnowsEveryDataType) {
    EXPECT_EQ(Written(TargetFormat::Jet, ";"), R"([EnterYourDataFileHere]
ColNameHeader = False
Format = Delimited(;)
CharacterSet = OEM
Col1="C1" char width 1
Col2="C2" datetime
Col3="C3" datetime
Col4="C4" datetime
Col5="C5" integer
Col6="C6" long width 6
Col7="C7" single
Col8="C8" double
Col9="C9" currency
Col10="C10" long width 10
Col11="C11" integer
Col12="C12" byte
Col13="C13" bit
Col14="C14" byte
Col15="C15" char width 15
)");
    EXPECT_EQ(Written(TargetFormat::SqlServer, "|"), R"(6.5
15
1>SQLCHAR    >0>1>"|">1>C1
2>SQLDATETIME>0>2>"|">2>C2
3>SQLDATETIME>0>3>"|">3>C3
4>SQLDATETIME>0>4>"|">4>C4
5>SQLINT2    >0>5>"|">5>C5
6>SQLINT4    >0>6>"|">6>C6
7>SQLDECIMAL >0>7>"|">7>C7
8>SQLDECIMAL >0>8>"|">8>C8
9>SQLMONEY   >0>9>"|">9>C9
10>SQLINT4    >0>10>"|">10>C10
11>SQLINT1    >0>11>"|">11>C11
12>SQLINT4    >0>12>"|">12>C12
13>SQLBIT     >0>13>"|">13>C13
14>SQLCHAR    >0>14>"|">14>C14
15>SQLCHAR    >0>15>"|">15>C15
)");
    // The other two tell names alone, in the order of the rules.
    Execute("update [TSO Insert Column Rule] set [Flag Exclude] = -1 where [Id] > 3");
    Execute("update [TSO Insert Column Rule] set [Sort Order] = 9 where [Id] = 1");
    EXPECT_EQ(Written(TargetFormat::Oracle, "|"), R"(OPTIONS (direct=true)
LOAD DATA
INFILE 'EnterYourDataFileHere'
BADFILE 'EnterYourBadFileHere'
APPEND
INTO TABLE WIDE
FIELDS TERMINATED BY "|"
(
C2,
C3,
C1)
)");
    EXPECT_EQ(Written(TargetFormat::Db2, ""), R"(LOAD FROM [EnterYourDataFileHere] OF DEL
METHOD P (1,2,3)
INSERT INTO WIDE
(C2,C3,C1)
)");
}

TEST_F(LoadFileTest, WithoutColumnsTheHeadStandsAlone) {
    Execute("update [TSO Insert Column Rule] set [Flag Exclude] = -1");
    const char* heads[] = {
        "[EnterYourDataFileHere]\nColNameHeader = False\nFormat = Delimited(,)\nCharacterSet = OEM\n",
        "OPTIONS (direct=true)\nLOAD DATA\nINFILE 'EnterYourDataFileHere'\nBADFILE 'EnterYourBadFileHere'\n"
        "APPEND\nINTO TABLE WIDE\nFIELDS TERMINATED BY \",\"\n(\n",
        "6.5\n", "LOAD FROM [EnterYourDataFileHere] OF DEL\nINSERT INTO WIDE\n"};
    for (std::size_t i = 0; i < std::size(kFormats); ++i)
        EXPECT_EQ(Written(kFormats[i]), heads[i]);
}

TEST_F(LoadFileTest, OffersWhatFitsTheTarget) {
    const std::pair<const char*, const char*> files[] = {{"Jet", "schema.ini"},
                                                         {"oracle", "LoadFile.ctl"},
                                                         {"MS/SQL Server", "LoadFile.fmt"},
                                                         {"DB2 Universal Database", "LoadFile.txt"}};
    for (const auto& [format, name] : files) {
        std::string path = "typed";
        EXPECT_TRUE(fSetDefaultFileName(format, path));
        EXPECT_EQ(path, folder.Path(name));
    }
    for (const char* format : {"Sybase", "Other", ""}) {
        std::string path = "typed";
        EXPECT_FALSE(fSetDefaultFileName(format, path));
        EXPECT_EQ(path, "typed");
    }
    SetOption("Output File Delimiter", ";");
    EXPECT_EQ(ReadLoadFileDefaults(1).tableName + ReadLoadFileDefaults(1).delimiter, "WIDE;");
    EXPECT_EQ(ReadLoadFileDefaults(1).format, "DB2 Universal Database");
    Execute("update [Database] set [FK CON Id Target] = 7");
    for (const auto& [type, offered] : {std::pair{"Oracle", "Oracle"}, {"Other", "DB2 Universal Database"}}) {
        Execute("delete from [Database Connection]");
        Execute("insert into [Database Connection] ([Id], [Type]) values (7, '" + std::string(type) + "')");
        EXPECT_EQ(ReadLoadFileDefaults(1).format, offered);
    }
}

TEST_F(LoadFileTest, WhatCanNotBeWrittenLeavesTheOldFile) {
    const std::string older = folder.Write("older.ctl", "older"), missing = folder.Path("missing/x.ctl");
    recorder.yesNoAnswers = {false};
    const struct {
        LoadFile file;
        std::string message;
    } cases[] = {
        {{1, TargetFormat::Oracle, ",", ""}, "exclamation: Please enter name and path for the text file"},
        {{1, TargetFormat::Oracle, ",", older},
         "question: " + older + " already exists. Do you want to replace it?"},
        {{1, TargetFormat::Oracle, ",", missing}, "exclamation: Cannot open the file: " + missing},
        {{1, TargetFormat::Oracle, "", older},
         "exclamation: Please enter the delimiter that is used in the delimited text data file"},
        {{2, TargetFormat::Oracle, ",", older}, "exclamation: There is no Table rule 2 in this Scenario."},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(fCreateLoadFile(c.file));
        EXPECT_EQ(recorder.Take(), c.message);
    }
    EXPECT_EQ(ReadFile(older), "older");
}

}  // namespace
}  // namespace vellumark::test
