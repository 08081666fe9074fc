#include "repository/screens/frmOptions.h"

#include <QDateTimeEdit>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <filesystem>

#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class FrmOptionsTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        SettingsFilePath = WriteSettings(folder.Path());
        ProgramStarter = [this](const std::vector<std::string>& command) { started = command; };
    }
    void TearDown() override {
        ProgramStarter = platform::StartDetached;
        AutoConnect = false;
        DecimalPointCharacter = '.';
        ScreenTest::TearDown();
    }

    std::string WriteSettings(const std::string& repository) {
        return folder.Write("Vellumark.INI", "REPOSITORY=" + repository + "\nVALUES=" + folder.Path() +
                                                 "\nVM_DATABASES=" + folder.Path("databases") + "\n");
    }

    // A screen in front, as the main window shows it.
    std::unique_ptr<frmOptions> Open() {
        auto form = std::make_unique<frmOptions>(nullptr);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        return form;
    }

    static void GoTo(frmOptions& form, OptionsPage page) {
        Child<QTabWidget>(form, "vstOptions").setCurrentIndex(static_cast<int>(page));
    }
    static int PageOf(const frmOptions& form) { return Child<QTabWidget>(form, "vstOptions").currentIndex(); }
    std::string Option(const std::string& columns) { return Rows("select " + columns + " from [Options]"); }

    std::vector<std::string> started;
};

TEST_F(FrmOptionsTest, FieldsShowAndStoreTheirOptions) {
    auto form = Open();
    EXPECT_EQ(TextOf(*form, "cboDatabase"), "Text File - Delimited");
    EXPECT_FALSE(IsEnabled(*form, "txtOwner"));
    Choose(*form, "cboOwner", "Override");
    Type(*form, "txtOwner", "dbo");
    Choose(*form, "cboDatabase", "Oracle");
    Type(*form, "txtCommit", "5x0");
    Click(*form, "chkAutoConnect");
    GoTo(*form, OptionsPage::Defaults);
    Type(*form, "txtStartRange", "7");
    Type(*form, "txtEndRange", "");
    Type(*form, "txtFillText", "~~");
    Choose(*form, "cboDecimalPoint", ",");
    auto& date = Child<QDateTimeEdit>(*form, "dtpDefDate");
    date.setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClicks(&date, "0987");
    Press(Child(*form, "dtpDefTime"), Qt::Key_Up);
    auto& timestamp = Child<QDateTimeEdit>(*form, "dtpDefTStamp");
    timestamp.setSelectedSection(QDateTimeEdit::SecondSection);
    Press(timestamp, Qt::Key_Down);
    GoTo(*form, OptionsPage::Folders);
    Type(*form, "txtGenSQL", "/tmp");
    GoTo(*form, OptionsPage::Editor);
    Click(*form, "chkOpenSQLFile");
    GoTo(*form, OptionsPage::InputValues);
    Click(*form, "ChkITFTime");
    GoTo(*form, OptionsPage::OutputFiles);
    Choose(*form, "cboOTFDate", "Quotes");
    Type(*form, "txtOTFFieldDate", "\"");
    WhenShown("frmUpdateEditPatterns", [](QWidget& pattern) {
        Click(pattern, "cmdUEPDelete");
        Click(pattern, "cmdUEPOk");
    });
    Click(*form, "cmdOTFTime");
    EXPECT_EQ(TextOf(*form, "txtOTFTime"), "HH:MI:");
    WhenShown("frmUpdateEditPatterns", [](QWidget& pattern) { Press(pattern, Qt::Key_Escape); });
    Click(*form, "cmdOTFDate");
    EXPECT_EQ(TextOf(*form, "txtOTFDate"), "YYYY-MM-DD");
    Click(*form, "cmdClose");

    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Option("[Code DataBase Owner], [DataBase Owner], [Target DataBase], [Commit Point], [Start "
                     "Range], [End Range], [Fill Character], [Dir SQL], [Flag Open SQL File With Editor]"),
              "O|dbo|Oracle|50|7||~|/tmp/|0");
    EXPECT_EQ(Option("[Default Start Date], [Default Start Time], [Default Start Timestamp]"),
              "0987-01-01|02:01:01|2000-01-01 01:01:00");
    EXPECT_EQ(
        Option("[Flag T Input File Textfile In Quotes], [Flag S Input File Textfile In Quotes], [Code D "
               "Output Textfile In Quotes], [Char D Output Textfile In Quotes], [Code Output Time Edit "
               "Pattern], [Code Input Time Edit Pattern]"),
        "-1|0|Q|\"|H001C009I001C009|H001C009I001C009S001");
    EXPECT_TRUE(AutoConnect);
    EXPECT_EQ(DecimalPointCharacter, ',');

    auto again = Open();
    EXPECT_EQ(TextOf(*again, "cboOwner"), "Override");
    EXPECT_EQ(TextOf(*again, "txtOwner"), "dbo");
    EXPECT_EQ(TextOf(*again, "cboOTFDate"), "Quotes");
    EXPECT_EQ(TextOf(*again, "dtpDefTStamp"), "2000-01-01 01:01:00");
    Choose(*again, "cboOwner", "No");
    EXPECT_EQ(TextOf(*again, "txtOwner"), "");
    for (const char* leave : {"cmdCancel", "picClose"}) {
        again->show();
        Click(*again, leave);
        EXPECT_FALSE(again->isVisible());
    }
    EXPECT_EQ(Option("[Code DataBase Owner]"), "O");
}

TEST_F(FrmOptionsTest, TimestampsKeepAnHourThatSummerTimeSkips) {
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Options] set [Default Start Timestamp] = '2001-03-25 02:30:00'");
    }
    auto form = Open();
    EXPECT_EQ(TextOf(*form, "dtpDefTStamp"), "2001-03-25 02:30:00");
    Click(*form, "cmdClose");
    EXPECT_EQ(Option("[Default Start Timestamp]"), "2001-03-25 02:30:00");
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
}

TEST_F(FrmOptionsTest, ABrokenRuleKeepsThePage) {
    auto form = Open();
    auto& pages = Child<QTabWidget>(*form, "vstOptions");
    GoTo(*form, OptionsPage::Defaults);
    Type(*form, "txtStartRange", "200");
    auto& field = Child<QLineEdit>(*form, "txtStartRange");
    const std::vector<std::pair<const char*, std::function<void()>>> ways = {
        {"mouse",
         [&] {
             QTabBar& bar = *pages.tabBar();
             QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(2).center());
         }},
        {"Ctrl+Tab", [&] { Press(field, Qt::Key_Tab, Qt::ControlModifier); }},
        {"arrow", [&] { Press(*pages.tabBar(), Qt::Key_Right); }},
        {"mnemonic", [&] { Press(field, Qt::Key_F, Qt::AltModifier); }},
        {"close", [&] { Click(*form, "cmdClose"); }},
    };
    for (const auto& [name, leave] : ways) {
        Child(*form, "txtEndRange").setFocus();
        leave();
        EXPECT_EQ(recorder.Take(), "exclamation: Start range must be less than or equal to end range")
            << name;
        EXPECT_EQ(PageOf(*form), 1) << name;
        EXPECT_TRUE(field.hasFocus()) << name;
        EXPECT_EQ(field.selectedText(), "200") << name;
    }
    EXPECT_TRUE(form->isVisible());
    Type(*form, "txtEndRange", "0");
    Press(field, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(PageOf(*form), 2);
    EXPECT_EQ(recorder.Take(), "");
    Click(*form, "cmdCancel");
    EXPECT_EQ(Option("[Start Range]"), "1");
}

TEST_F(FrmOptionsTest, FilesAndFoldersArePicked) {
    auto form = Open();
    EXPECT_FALSE(IsEnabled(*form, "cmdEdit"));
    picker.answers = {folder.Path("none.txt"), folder.Write("head.txt", ""), std::nullopt};
    Click(*form, "cmdBrowseSQLHeaderFile");
    Click(*form, "cmdClose");
    EXPECT_EQ(recorder.Take(), "exclamation: SQL Header file does not exist");
    EXPECT_TRUE(Child(*form, "txtSQLHeaderFile").hasFocus());
    Click(*form, "cmdBrowseSQLHeaderFile");
    for (const char* edit : {"cmdEdit", "picNotepad"}) {
        started.clear();
        Click(*form, edit);
        EXPECT_EQ(started.back(), folder.Path("head.txt")) << edit;
    }
    GoTo(*form, OptionsPage::Editor);
    Click(*form, "cmdEditor");
    EXPECT_EQ(TextOf(*form, "txtEditor"), "Notepad");
    EXPECT_EQ(picker.requests[1].title, "Select SQL Header File");
    EXPECT_EQ(picker.requests[1].start, ProgramFolder);
    EXPECT_EQ(picker.requests[2].filter, "exe (*.exe)|*.exe|All files (*.*)|*.*");

    GoTo(*form, OptionsPage::Folders);
    Type(*form, "txtJet", folder.Path());
    WhenShown("frmFileControls", [](QWidget& folders) {
        EXPECT_EQ(FromQt(folders.windowTitle()), "Select default folder for Jet MDB Files");
        Press(folders, Qt::Key_Return);
    });
    Click(*form, "cmdBrowseJet");
    EXPECT_EQ(TextOf(*form, "txtJet"), folder.Path() + "/");
    WhenShown("frmFileControls", [](QWidget& folders) { Press(folders, Qt::Key_Escape); });
    Click(*form, "cmdCOOLGen");
    EXPECT_EQ(TextOf(*form, "txtCOOLGen"), ProgramFolder);
}

TEST_F(FrmOptionsTest, SettingsAreReadAgainWhenTheUserComesBack) {
    MakeSchema("Shop");
    auto form = Open();
    GoTo(*form, OptionsPage::IniFile);
    EXPECT_EQ(TextOf(*form, "txtINIFile"), SettingsFilePath);
    EXPECT_EQ(TextOf(*form, "txtVellumarkRepository"), RepositoryPath);
    EXPECT_EQ(TextOf(*form, "txtExecutableLoc"), FromQt(QCoreApplication::applicationFilePath()));
    Click(*form, "cmdEditINIFile");
    EXPECT_EQ(started.back(), SettingsFilePath);
    EXPECT_EQ(CurrentDBSName, "Shop") << "nothing has changed yet";

    const auto comeBack = [&] {
        QWidget editor;
        editor.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
        editor.close();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    };
    const std::string before = RepositoryPath;
    WriteSettings(folder.Path("gone"));
    comeBack();
    EXPECT_TRUE(
        recorder.Take().starts_with("exclamation: The Repository of the settings file cannot be used"));
    EXPECT_EQ(TextOf(*form, "txtVellumarkRepository"), before);
    EXPECT_EQ(CurrentDBSName, "Shop");

    std::filesystem::create_directory(folder.Path("other"));
    std::filesystem::copy(RepositoryPath, folder.Path("other/Vellumark.mdb"));
    WriteSettings(folder.Path("other"));
    comeBack();
    EXPECT_EQ(TextOf(*form, "txtVellumarkRepository"), folder.Path("other/Vellumark.mdb"));
    EXPECT_EQ(SessionState, kNotOpen);
    comeBack();
    EXPECT_EQ(recorder.Take(), "");
}

}  // namespace

}  // namespace vellumark::test
