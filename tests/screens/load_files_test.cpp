#include "engine/modGenerateChoice.h"
#include "engine/screens/frmGenerateData.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "screen_test.h"
#include "test_files.h"
#include "tools/screens/frmCreateLoadFile.h"
#include "tools/screens/frmLoadTable.h"

namespace vellumark::test {

namespace {

// A Scenario with ten rows for the table Customer of the shop.
class LoadFilesTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ReadShop();
        ASSERT_TRUE(CreateScenario("Fill"));
        CurrentTTRId =
            AddTableRule(std::stoi(Rows("select [Id] from [Table] where [Name] = 'Customer'")), 1, 10, true);
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Options] set [Dir Output Text Files] = ?", {folder.Path() + "/"});
        ProgramStarter = [this](const std::vector<std::string>& command) {
            started.push_back(command.back());
        };
    }
    void TearDown() override {
        ProgramStarter = platform::StartDetached;
        LastTextFile.clear();
        CurrentTTRId = 0;
        ScreenTest::TearDown();
    }

    static std::string Focus() {
        return QApplication::focusWidget() == nullptr
                   ? ""
                   : QApplication::focusWidget()->objectName().toStdString();
    }
    static std::string LoadFields(const QWidget& form) {
        return TextOf(form, "txtDatabase") + "|" + TextOf(form, "txtTable") + "|" + TextOf(form, "txtFile") +
               "|" + TextOf(form, "txtDelimiter");
    }
    std::string Customers(const std::string& fields) const {
        return RowsOf(dao::OpenDatabase(shop), "select " + fields + " from [Customer]");
    }

    std::string shop = folder.Path("shop.mdb");
    std::vector<std::string> started;  // the files opened
};

TEST_F(LoadFilesTest, ALoadFileIsWrittenForTheChosenLoader) {
    frmCreateLoadFile form;
    form.show();
    EXPECT_EQ(TextOf(form, "lblTable") + TextOf(form, "cboDatabase") + TextOf(form, "txtDelimiter"),
              "CustomerJet,");
    EXPECT_EQ(TextOf(form, "txtTextFile"), folder.Path("schema.ini"));
    picker.answers = {std::nullopt, folder.Path("other.ctl")};
    Click(form, "cmdBrowseFile");
    EXPECT_EQ(picker.requests[0].title + "|" + picker.requests[0].filter + "|" + picker.requests[0].start,
              "Select file|schema.ini |schema.ini|ini (*.ini)|*.ini|All files (*.*)|*.*|" +
                  folder.Path("schema.ini"));
    Choose(form, "cboDatabase", "Oracle");
    EXPECT_EQ(TextOf(form, "txtTextFile"), folder.Path("LoadFile.ctl"));
    Click(form, "cmdBrowseFile");
    EXPECT_EQ(picker.requests[1].filter, "ctl (*.ctl)|*.ctl|txt (*.txt)|*.txt|All files (*.*)|*.*");

    const std::string path = folder.Path("other.ctl");
    Click(form, "cmdViewFile");
    Type(form, "txtDelimiter", "");
    Press(form, Qt::Key_Return);
    EXPECT_EQ(recorder.Take(),
              "exclamation: Text file does not exist|"
              "exclamation: Please enter the delimiter that is used in the delimited text data file");
    EXPECT_EQ(TextOf(form, "cmdClose"), "&Cancel");
    Type(form, "txtDelimiter", "|");
    Press(form, Qt::Key_Return);
    EXPECT_NE(
        ReadFile(path).find("INTO TABLE Customer\r\nFIELDS TERMINATED BY \"|\"\r\n(\r\nCustomerId,\r\n"),
        std::string::npos);
    EXPECT_EQ(TextOf(form, "cmdClose"), "&Close");
    Click(form, "cmdViewFile");
    EXPECT_EQ(started, (std::vector{path, path}));
    Press(form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(recorder.Take(), "");
}

// As with a schema of Case Weaver: the run leads on to the loading of its text.
TEST_F(LoadFilesTest, ARunIsLoadedWithItsTypes) {
    CurrentDBSSource = 'T';
    frmGenerateData generate(nullptr);
    generate.show();
    const std::string text = folder.Path("customers.txt");
    Type(generate, "txtTextFile", text);
    WhenShown("frmLoadTable", [&](QWidget& form) {
        EXPECT_EQ(LoadFields(form), shop + "|Customer|" + text + "|,");
        Click(form, "cmdLoad");
        EXPECT_EQ(recorder.Take(), "information: Table loaded");
        EXPECT_EQ(TextOf(form, "cmdCancel"), "&Close");
        Click(form, "cmdView");
        Click(form, "cmdCancel");
    });
    Click(generate, "cmdGenerateData");
    EXPECT_EQ(started, std::vector{text});
    EXPECT_EQ(Customers("distinct typeof(CustomerId), typeof(FirstName), typeof(Born), typeof(IsMember),"
                        " typeof(CreditLimit), typeof(RegisteredAt)"),
              "integer|text|text|integer|real|text");
    EXPECT_EQ(Customers("CustomerId || ',' || FirstName || ',' || LastName || ',' || Email || ',' || Born"
                        " || iif(IsMember, ',TRUE,', ',FALSE,') || printf('%g', CreditLimit) || ',' ||"
                        " strftime('%Y-%m-%d-%H.%M.%S.000000', RegisteredAt) || char(13)") +
                  "\n",
              ReadFile(text));
    EXPECT_NE(ReadFile(folder.Path("schema.ini"))
                  .find("[customers.txt]\r\nColNameHeader = False\r\nFormat=Delimited(,)\r\n"),
              std::string::npos);
}

TEST_F(LoadFilesTest, WhatCanNotBeLoadedStaysOnScreen) {
    CurrentDBSId = 0;
    frmLoadTable form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(LoadFields(form), "|||,");
    Type(form, "txtDelimiter", "");
    const std::string text =
        folder.Write("rows.txt", "1|a|b|||yes|1|20010203040506000000\r\n2|\"c\r\n\"|d|||no|x|\r\n");
    const std::string access = folder.Write("old.mdb", ReadFile(TestData("fruit.mdb")));
    const std::pair<const char*, std::string> steps[] = {
        {"txtDatabase", access}, {"txtTable", "Customer"}, {"txtFile", text}, {"txtDelimiter", "|"}};
    for (const auto& [field, value] : steps) {
        Click(form, "cmdLoad");
        EXPECT_TRUE(recorder.Take().starts_with("exclamation: Please enter the "));
        EXPECT_EQ(Focus(), field);
        Type(form, field, value);
    }
    const std::string failed = "exclamation: Unexpected error occurred loading Jet table.\n\nError: ";
    Click(form, "cmdLoad");
    EXPECT_EQ(recorder.Take(), failed + "3027 '" + access +
                                   "' is a Microsoft Access file; Vellumark reads such files but doesn't "
                                   "write them.|exclamation: Table not loaded");
    EXPECT_EQ(ReadFile(access), ReadFile(TestData("fruit.mdb")));
    picker.answers = {shop};
    Click(form, "cmdBrowseDB");
    Click(form, "cmdLoad");
    EXPECT_EQ(recorder.Take(), failed +
                                   "13 Row 2: column CreditLimit: 'x' is no number|exclamation: Table not "
                                   "loaded");
    EXPECT_EQ(Customers("count(*)"), "0");
    EXPECT_EQ(TextOf(form, "cmdCancel"), "&Cancel");
    EXPECT_EQ(LoadFields(form), shop + "|Customer|" + text + "||");
}

TEST_F(LoadFilesTest, MissingRowsAreTold) {
    const struct {
        int schema;
        const char *change, *message, *fields;
    } cases[] = {
        {CurrentDBSId, "update [Database Connection] set [Table] = 'Cases'", "", "Cases"},
        {CurrentDBSId, "delete from [Database Connection]",
         "exclamation: Cannot open the Database Connnection Target", ""},
        {99, "delete from [Database]", "exclamation: Cannot open the Database identifier 99", ""},
    };
    CurrentDBSSource = 'R';
    for (const auto& c : cases) {
        CurrentDBSId = c.schema;
        {
            const RepositoryScope repository;
            RepositoryDatabase.Execute(c.change);
        }
        const frmLoadTable form;
        EXPECT_EQ(recorder.Take(), c.message);
        EXPECT_EQ(TextOf(form, "txtTable"), c.fields);
    }
}

}  // namespace

}  // namespace vellumark::test
