#include "repository/modOptionsMaintenance.h"

#include "repository/modVellumark.h"
#include "session.h"

namespace vellumark {
namespace {

class OptionsTest : public test::SessionTest {
 protected:
    void TearDown() override {
        AutoConnect = false;
        DecimalPointCharacter = '.';
        SessionTest::TearDown();
    }
};

TEST_F(OptionsTest, NullsShowAsTheirDefaults) {
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("delete from [Options]");
        RepositoryDatabase.Execute("insert into [Options] ([Dir SQL]) values ('/tmp/')");
    }
    const OptionsRecord options = ReadOptions();
    struct Case {
        std::string OptionsRecord::*text;
        const char* shown;
    };
    for (const auto& [text, shown] : {
             Case{&OptionsRecord::targetDatabase, "Oracle"},
             Case{&OptionsRecord::ownerCode, "Y"},
             Case{&OptionsRecord::startTimestamp, "2000-01-01 01:01:01"},
             Case{&OptionsRecord::startDate, "2000-01-01"},
             Case{&OptionsRecord::startTime, "01:01:01"},
             Case{&OptionsRecord::fillCharacter, ""},
             Case{&OptionsRecord::fillDigit, "9"},
             Case{&OptionsRecord::startRange, "1"},
             Case{&OptionsRecord::endRange, ""},
             Case{&OptionsRecord::commitPoint, "1000"},
             Case{&OptionsRecord::decimalPoint, "."},
             Case{&OptionsRecord::tooLargeString, "*"},
             Case{&OptionsRecord::tooLargeNumber, "1"},
             Case{&OptionsRecord::editor, "Notepad"},
             Case{&OptionsRecord::inputDelimiter, ","},
             Case{&OptionsRecord::outputDelimiter, ","},
             Case{&OptionsRecord::year2000Conversion, "69"},
             Case{&OptionsRecord::sqlHeaderFile, ""},
             Case{&OptionsRecord::dirSQL, "/tmp/"},
         })
        EXPECT_EQ(options.*text, shown);
    EXPECT_EQ(options.inputPatterns[0], "");
    EXPECT_FALSE(options.quotes[0].inOutput);
}

TEST_F(OptionsTest, AllIsWrittenAndTakenByTheSession) {
    OptionsRecord options = ReadOptions();
    EXPECT_EQ(options.commitPoint, "1000");
    options.ownerCode = "O";
    options.databaseOwner = "dbo";
    options.autoConnect = true;
    options.openWithEditor = false;
    options.decimalPoint = ",";
    options.commitPoint = "-7";
    options.endRange = "";
    options.startTimestamp = "2001-02-03 04:05:06";
    options.dirSQL = "/tmp";
    options.dirJet = "C:\\Temp\\";
    options.dirReport = "";
    options.quotes[2] = {true, true, "\""};
    options.inputPatterns[1] = "H001";
    options.outputPatterns[2] = "Y002M002";
    ASSERT_TRUE(fWriteOptions(options));

    EXPECT_EQ(Rows("select [Code DataBase Owner], [DataBase Owner], [flag DB Auto Connect], [Flag Open SQL "
                   "File With Editor], [Commit Point], [End Range] is null, [Default Start Timestamp], [Dir "
                   "SQL], [Dir Jet MDB], [Dir Report] from [Options]"),
              "O|dbo|-1|0|-7|1|2001-02-03 04:05:06|/tmp/|C:\\Temp\\|");
    EXPECT_EQ(
        Rows("select [Flag B Input File Textfile In Quotes], [Code B Output Textfile In Quotes], [Char B "
             "Output Textfile In Quotes], [Code S Output Textfile In Quotes], [Code Input Time Edit "
             "Pattern], [Code Output Timestamp Edit Pattern] from [Options]"),
        "-1|Q|\"|N|H001|Y002M002");
    EXPECT_EQ(Count("Options"), 1);
    EXPECT_TRUE(AutoConnect);
    EXPECT_EQ(DecimalPointCharacter, ',');

    OptionsRecord again = ReadOptions();
    EXPECT_EQ(again.dirSQL, "/tmp/");
    EXPECT_TRUE(again.quotes[2].inInput && again.quotes[2].inOutput);
    EXPECT_FALSE(again.quotes[5].inOutput);
    EXPECT_EQ(again.outputPatterns[2], "Y002M002");
    EXPECT_EQ(again.dirOutputExcel, ProgramFolder);
}

TEST_F(OptionsTest, AFailureIsToldAndChangesNothing) {
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("delete from [Options]");
    }
    EXPECT_FALSE(fWriteOptions({}));
    EXPECT_TRUE(recorder.Take().starts_with(
        "exclamation: Unexpected error occurred storing the options.\n\nError: 3021 "));
    EXPECT_EQ(Count("Options"), 0);
}

TEST_F(OptionsTest, PagesHaveTheirRules) {
    const OptionsRecord good = ReadOptions();
    const std::string header = folder.Write("head.sql", "");
    struct Case {
        OptionsPage page;
        std::string OptionsRecord::*text;
        std::string value;
        std::string fault;
    };
    const std::string none = "";
    const std::string noNumber = ": Please enter a whole number of at most 2147483647";
    for (const auto& [page, text, value, fault] : std::vector<Case>{
             {OptionsPage::Database, &OptionsRecord::sqlHeaderFile, header, none},
             {OptionsPage::Database, &OptionsRecord::sqlHeaderFile, header + "x",
              "txtSQLHeaderFile: SQL Header file does not exist"},
             {OptionsPage::Database, &OptionsRecord::commitPoint, "", none},
             {OptionsPage::Database, &OptionsRecord::commitPoint, "5-", "txtCommit" + noNumber},
             {OptionsPage::Defaults, &OptionsRecord::startRange, "100", none},
             {OptionsPage::Defaults, &OptionsRecord::startRange, "101",
              "txtStartRange: Start range must be less than or equal to end range"},
             {OptionsPage::Defaults, &OptionsRecord::startRange, "",
              "txtStartRange: Please enter a start range greater than zero"},
             {OptionsPage::Defaults, &OptionsRecord::startRange, "2147483648", "txtStartRange" + noNumber},
             {OptionsPage::Defaults, &OptionsRecord::endRange, "0", none},
             {OptionsPage::Defaults, &OptionsRecord::endRange, "", none},
             {OptionsPage::Defaults, &OptionsRecord::endRange, "-1",
              "txtStartRange: Start range must be less than or equal to end range"},
             {OptionsPage::Defaults, &OptionsRecord::fillDigit, " ",
              "txtFillNumeric: Please enter a digit from 0 to 9 in the Numeric Fill Character"},
             {OptionsPage::Defaults, &OptionsRecord::tooLargeNumber, "--1",
              "txtGeneratedNumLarge" + noNumber},
             {OptionsPage::Editor, &OptionsRecord::editor, "", none},
             {OptionsPage::InputValues, &OptionsRecord::inputDelimiter, "",
              "txtITFDelimiter: Please enter a default delimiter"},
             {OptionsPage::InputValues, &OptionsRecord::year2000Conversion, "",
              "txtYrConversion: Please enter a Year 2000 conversion value"},
             {OptionsPage::InputValues, &OptionsRecord::year2000Conversion, "-",
              "txtYrConversion" + noNumber},
             {OptionsPage::OutputFiles, &OptionsRecord::inputDelimiter, "", none},
         }) {
        OptionsRecord options = good;
        options.*text = value;
        const auto found = FindOptionsFault(page, options);
        EXPECT_EQ(found ? std::string(found->field) + ": " + std::string(found->message) : "", fault);
    }
}

}  // namespace
}  // namespace vellumark
