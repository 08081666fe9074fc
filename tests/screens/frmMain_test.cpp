#include "app/frmMain.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QSettings>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QToolBar>
#include <filesystem>

#include "embedded.h"
#include "platform/screens/qtText.h"
#include "repository/addresses.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modDatabaseConnection.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class FrmMainTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        QSettings().clear();
        CommandWords = {};
        TargetConnectionState = 'D';
        ConnectionStatusText = "Target Database: Disconnected";
    }

    void TearDown() override {
        CommandWords = {};
        ScreenTest::TearDown();
    }

    // The schema Shop with a second Insert Scenario "Second", in a shown window; the first one is selected.
    std::unique_ptr<frmMain> OpenShop() {
        ReadShop();
        CreateScenario("Second");
        OpenScenario(kFirst);
        auto window = std::make_unique<frmMain>();
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        recorder.Take();
        return window;
    }

    void Elsewhere(const std::string& sql) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql);
    }

    static constexpr const char* kFirst = "Scenario to create data";
};

ScenarioList& List(const frmMain& window, const char* name) {
    return Child<ScenarioList>(window, name);
}

// The entries in the order shown, the selected one in brackets.
std::string Entries(const frmMain& window, const char* name) {
    const ScenarioList& list = List(window, name);
    const QAbstractItemModel& model = *list.findChild<QTreeView*>()->model();
    QStringList entries;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString entry = model.index(row, 0).data().toString();
        entries.append(entry == ToQt(list.SelectedName()) ? "[" + entry + "]" : entry);
    }
    return FromQt(entries.join('|'));
}

QAbstractItemView& FrontView(const frmMain& window, const char* list) {
    return dynamic_cast<QAbstractItemView&>(*List(window, list).currentWidget());
}

QPoint EntryAt(const QAbstractItemView& view, int row) {
    return view.visualRect(view.model()->index(row, 0)).center();
}

void ClickEntry(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, EntryAt(view, row));
}

void ClickTab(const frmMain& window, int index) {
    auto& bar = *Child<QTabWidget>(window, "vstTSOList").tabBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
}

TEST_F(FrmMainTest, ShowsTheOpenSchemaAndForgetsItAtClose) {
    auto window = OpenShop();
    Elsewhere("update [Database] set [Description] = '<b>all</b>', [COOLGen Model Name] = 'M1'");
    Press(*window, Qt::Key_F5);
    EXPECT_EQ(TextOf(*window, "lblDBNameVal"), "Shop");
    EXPECT_EQ(TextOf(*window, "lblDBDescriptionVal"), "<b>all</b>");
    EXPECT_EQ(TextOf(*window, "lblModelVal"), "M1");
    EXPECT_EQ(FromQt(window->windowTitle()), "Vellumark - Shop");
    EXPECT_EQ(Entries(*window, "lvwInsertTSO"), "[Scenario to create data]|Second");
    EXPECT_EQ(Entries(*window, "lvwDeleteTSO"), "Scenario to delete data");

    Press(*window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(SessionState, kNotOpen);
    EXPECT_EQ(TextOf(*window, "lblDBNameVal") + TextOf(*window, "lblModelVal"), "");
    EXPECT_EQ(Entries(*window, "lvwInsertTSO") + Entries(*window, "lvwDeleteTSO"), "");
    auto& hint = dynamic_cast<QLabel&>(*List(*window, "lvwInsertTSO").currentWidget());
    EXPECT_TRUE(hint.text().contains("No Database schema is open."));
    WhenShown("frmDatabaseOpen", [](QWidget& list) { Press(list, Qt::Key_Return); });
    emit hint.linkActivated("ID_Open");
    EXPECT_EQ(TextOf(*window, "lblDBNameVal"), "Shop");
}

TEST_F(FrmMainTest, ASchemaIsReadTargetedDeletedAndTypedAnew) {
    frmMain window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const std::string file = MakeEmbedded(folder.Path("bank.mdb"), "create table Account (Id integer);");
    WhenShown("frmDatabaseConnection", [&](QWidget& form) {
        Type(form, "txtName", "Bank");
        Type(form, "txtDescription", "All accounts");
        Type(form, "txtMDB", file);
        Click(form, "cmdOK");
    });
    RunCommand(window, "ID_NewDB");
    EXPECT_EQ(TextOf(window, "lblDBNameVal") + "|" + TextOf(window, "lblDBDescriptionVal"),
              "Bank|All accounts");
    EXPECT_EQ(Entries(window, "lvwInsertTSO"), "[Scenario to create data]");

    WhenShown("frmDatabaseConnection", [&](QWidget& form) {
        EXPECT_EQ(FromQt(form.windowTitle()), "Target Database Connection Details");
        Press(form, Qt::Key_Return);
    });
    RunCommand(window, "ID_CONTarget");
    EXPECT_EQ(TextOf(window, "lblStatus"), "Target Database: Connected");

    recorder.yesNoAnswers = {true};
    WhenShown("frmDatabaseOpen", [](QWidget& list) {
        Click(list, "cmdOK");
        Click(list, "cmdCancel");
    });
    RunCommand(window, "ID_DBDelete");
    EXPECT_EQ(TextOf(window, "lblDBNameVal") + TextOf(window, "lblStatus"), "Target Database: Disconnected");
    recorder.Take();

    recorder.promptAnswers = {"By hand"};
    WhenShown("frmDBSMaintenance", [](QWidget& editor) { Press(editor, Qt::Key_Escape); });
    RunCommand(window, "ID_DBSNew");
    EXPECT_EQ(TextOf(window, "lblDBNameVal"), "By hand");
    WhenShown("frmNewCOOLGen", [](QWidget& form) { Press(form, Qt::Key_Escape); });
    RunCommand(window, "ID_NewCOOLGen");
    EXPECT_EQ(TextOf(window, "lblDBNameVal"), "By hand");
}

// The rule screen stands beside the main window.
void CloseRuleScreen(QWidget& window) {
    for (QWidget* other : QApplication::topLevelWidgets()) {
        if (other->objectName() == "frmTTR")
            other->close();
    }
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST_F(FrmMainTest, ListsSelectAndOpenScenarios) {
    auto window = OpenShop();
    const QSignalSpy edited(&Child<QAction>(*window, "ID_TbtEdit"), &QAction::triggered);
    for (const char* view : {"ID_btnIcon", "ID_btnSmallIcon", "ID_btnList", "ID_btnReport"}) {
        RunCommand(*window, view);
        QCoreApplication::processEvents();
        QAbstractItemView& entries = FrontView(*window, "lvwInsertTSO");
        ClickEntry(entries, 1);
        EXPECT_EQ(CurrentTSOName, "Second") << view;
        EXPECT_EQ(CurrentTSOFolder, ScenarioFolder("Second"));
        const auto before = edited.size();
        QTest::mousePress(entries.viewport(), Qt::LeftButton, {}, EntryAt(entries, 0));
        QTest::mouseDClick(entries.viewport(), Qt::LeftButton, {}, EntryAt(entries, 0));
        EXPECT_EQ(CurrentTSOName, kFirst) << view;
        Press(entries, Qt::Key_Return);
        EXPECT_EQ(edited.size(), before + 2) << view;
        CloseRuleScreen(*window);
    }
    QAbstractItemView& entries = FrontView(*window, "lvwInsertTSO");
    Press(entries, Qt::Key_Down);
    EXPECT_EQ(CurrentTSOName, "Second");
    ClickEntry(entries, 1, Qt::ControlModifier);  // would take the selection away
    EXPECT_EQ(Entries(*window, "lvwInsertTSO"), "Scenario to create data|[Second]");
    EXPECT_EQ(SessionState, kOpenWithScenario);
}

TEST_F(FrmMainTest, TabsTakeTheirSelectedScenario) {
    auto window = OpenShop();
    ClickEntry(FrontView(*window, "lvwInsertTSO"), 1);
    ClickTab(*window, 1);
    EXPECT_EQ(CurrentTSOName, "Scenario to delete data");
    EXPECT_EQ(CurrentTSOType, 'D');
    EXPECT_FALSE(Child<QAction>(*window, "ID_TableStats").isEnabled());
    ClickTab(*window, 0);
    EXPECT_EQ(CurrentTSOName, "Second");

    ClickTab(*window, 1);
    recorder.yesNoAnswers = {true};
    RunCommand(*window, "ID_Delete");
    EXPECT_EQ(SessionState, kOpenNoScenario);
    ClickTab(*window, 0);
    EXPECT_EQ(CurrentTSOName, "Second");
    EXPECT_EQ(SessionState, kOpenWithScenario);
    ClickTab(*window, 1);
    EXPECT_EQ(SessionState, kOpenNoScenario);
    EXPECT_EQ(CurrentTSOId, 0);
    EXPECT_FALSE(Child<QAction>(*window, "ID_GenData").isEnabled());
    EXPECT_TRUE(Child<QAction>(*window, "ID_NewTS").isEnabled());

    CloseDatabaseSchema();
    ClickTab(*window, 0);
    ClickTab(*window, 1);
    EXPECT_EQ(SessionState, kNotOpen);
}

TEST_F(FrmMainTest, NewCopyAndRenameAskForTheName) {
    auto window = OpenShop();
    ClickTab(*window, 1);
    recorder.promptAnswers = {"Clear"};
    Press(*window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(
        recorder.Take().starts_with("prompt: Vellumark: Enter the new Delete Data Scenario name: []"));
    EXPECT_EQ(Entries(*window, "lvwDeleteTSO"), "Scenario to delete data|[Clear]");
    EXPECT_EQ(CurrentTSOType, 'D');

    recorder.promptAnswers = {"Copy", "Renamed", std::nullopt, std::nullopt, std::nullopt};
    RunCommand(*window, "ID_SaveTSAs");
    EXPECT_EQ(Entries(*window, "lvwDeleteTSO"), "Scenario to delete data|[Clear]|Copy");
    RunCommand(*window, "ID_TSORename");
    EXPECT_EQ(Entries(*window, "lvwDeleteTSO"), "Scenario to delete data|[Renamed]|Copy");
    EXPECT_EQ(recorder.Take(),
              "prompt: Vellumark - Scenario Save As: Enter the new Delete Data Scenario name: [Clear]|"
              "prompt: Vellumark - Rename Scenario: Enter the new Delete Data Scenario name: [Clear]");

    for (const char* key : {"ID_NewTS", "ID_SaveTSAs", "ID_TSORename"})
        RunCommand(*window, key);
    EXPECT_EQ(Entries(*window, "lvwDeleteTSO"), "Scenario to delete data|[Renamed]|Copy");
    EXPECT_EQ(CurrentTSOName, "Renamed");
}

TEST_F(FrmMainTest, DeleteAsksAndNoLeavesEverything) {
    auto window = OpenShop();
    recorder.yesNoAnswers = {false, true, true};
    Press(*window, Qt::Key_Delete);
    EXPECT_EQ(recorder.Take(),
              "question: Do you really want to delete the selected Insert Data Scenario: scenario to create "
              "data?");
    EXPECT_EQ(Entries(*window, "lvwInsertTSO"), "[Scenario to create data]|Second");
    EXPECT_EQ(SessionState, kOpenWithScenario);

    Press(*window, Qt::Key_Delete);
    EXPECT_EQ(Entries(*window, "lvwInsertTSO"), "Second");
    EXPECT_EQ(SessionState, kOpenNoScenario);
    EXPECT_EQ(Count("Test Scenario", "[Name] = 'Scenario to create data'"), 0);
    ClickEntry(FrontView(*window, "lvwInsertTSO"), 0);
    EXPECT_EQ(CurrentTSOName, "Second");

    recorder.Take();
    ClickTab(*window, 1);
    RunCommand(*window, "ID_Delete");
    EXPECT_EQ(recorder.Take(),
              "question: Do you really want to delete the selected Delete Data Scenario: scenario to delete "
              "data?");
}

TEST_F(FrmMainTest, ChangesByOthersAreShown) {
    auto window = OpenShop();
    Elsewhere("delete from [Test Scenario] where [Name] = 'Second'");
    ClickEntry(FrontView(*window, "lvwInsertTSO"), 1);
    EXPECT_EQ(recorder.Take(), "exclamation: The Scenario is no longer in the Repository: Second");
    EXPECT_EQ(Entries(*window, "lvwInsertTSO"), "[Scenario to create data]");
    EXPECT_EQ(CurrentTSOName, kFirst);

    Elsewhere("delete from [Database]");
    Press(*window, Qt::Key_F5);
    EXPECT_EQ(SessionState, kNotOpen);
    EXPECT_EQ(TextOf(*window, "lblDBNameVal"), "");
}

TEST_F(FrmMainTest, TargetConnectionAndProgressStandInTheStatusBar) {
    auto window = OpenShop();
    EXPECT_EQ(TextOf(*window, "lblStatus"), "Target Database: Disconnected");
    RunCommand(*window, "ID_DBSConnect");
    EXPECT_EQ(TextOf(*window, "lblStatus"), "Target Database: Connected");
    window->ShowProgress("Reading Database Definition");
    RefreshCommands();
    EXPECT_EQ(TextOf(*window, "lblStatus"), "Reading Database Definition");
    window->ShowProgress("");
    EXPECT_EQ(TextOf(*window, "lblStatus"), "Target Database: Connected");
    RunCommand(*window, "ID_DBSDisconnect");
    EXPECT_EQ(TextOf(*window, "lblStatus"), "Target Database: Disconnected");
    EXPECT_TRUE(Child<QAction>(*window, "ID_DBSConnect").isEnabled());

    std::filesystem::remove(folder.Path("shop.mdb"));
    RunCommand(*window, "ID_DBSConnect");
    EXPECT_NE(recorder.Take(), "");
    EXPECT_EQ(TextOf(*window, "lblStatus"), "Target Database: Disconnected");
}

TEST_F(FrmMainTest, ReportShowsTimesAndSorts) {
    auto window = OpenShop();
    RunCommand(*window, "ID_btnReport");
    auto& report = dynamic_cast<QTreeView&>(FrontView(*window, "lvwInsertTSO"));
    const QAbstractItemModel& model = *report.model();
    EXPECT_EQ(FromQt(model.headerData(0, Qt::Horizontal).toString()), "Test Scenario");
    EXPECT_EQ(FromQt(model.headerData(1, Qt::Horizontal).toString()), "Last Modified");
    EXPECT_EQ(FromQt(model.index(1, 1).data().toString()), ScenarioLastModified("Second"));
    report.sortByColumn(0, Qt::DescendingOrder);
    EXPECT_EQ(Entries(*window, "lvwInsertTSO"), "Second|[Scenario to create data]");
    ClickEntry(report, 0);
    EXPECT_EQ(CurrentTSOName, "Second");
}

TEST_F(FrmMainTest, LookIsRememberedAndExitCloses) {
    {
        frmMain window;
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        window.resize(1011, 707);
        Child<QToolBar>(window, "tbrDatabase").hide();
        RunCommand(window, "ID_btnReport");
        const QSignalSpy closed(&window, &frmMain::Closed);
        Press(window, Qt::Key_Q, Qt::ControlModifier);
        EXPECT_EQ(closed.size(), 1);
        EXPECT_FALSE(window.isVisible());
    }
    frmMain again;
    again.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&again));
    EXPECT_EQ(again.size(), QSize(1011, 707));
    EXPECT_FALSE(IsShown(again, "tbrDatabase"));
    EXPECT_TRUE(Child<QAction>(again, "ID_btnReport").isChecked());
    ReadShop();
    EXPECT_NE(dynamic_cast<QTreeView*>(&FrontView(again, "lvwInsertTSO")), nullptr);
    EXPECT_TRUE(FrontView(again, "lvwInsertTSO").hasFocus());
}

TEST_F(FrmMainTest, SisterWordsOpenTheirFile) {
    const struct {
        std::array<std::string, 2> words;
        const char* opened;
        const char* screen;
    } cases[] = {
        {{"", ""}, "", ""},
        {{"CW", ""}, "ID_CaseWeaver", "frmCaseWeaver"},
        {{"/x.ini", "CW"}, "ID_CaseWeaver", "frmCaseWeaver"},
        {{"SW", ""}, "ID_SheetWeaver", "frmSheetWeaver"},
        {{"CW", "SW"}, "ID_CaseWeaver", "frmCaseWeaver"},
        {{"SW", "CW"}, "ID_CaseWeaver", "frmCaseWeaver"},
        {{"cw", "xSW"}, "", ""},
    };
    for (const auto& c : cases) {
        CommandWords = c.words;
        frmMain window;
        std::string opened;
        for (const char* key : {"ID_CaseWeaver", "ID_SheetWeaver"})
            QObject::connect(&Child<QAction>(window, key), &QAction::triggered, &window,
                             [&opened, key] { opened += key; });
        if (*c.opened != '\0')
            WhenShown(c.screen, [](QWidget& screen) { Press(screen, Qt::Key_Escape); });
        window.show();
        QCoreApplication::processEvents();
        EXPECT_EQ(opened, c.opened) << c.words[0] << "," << c.words[1];
    }
}

TEST_F(FrmMainTest, HelpAndBoxesOfTextOpen) {
    const frmMain window;
    SettingsFilePath = "/etc/Vellumark.INI";
    WhenShown("frmAbout", [&](QWidget& about) {
        EXPECT_EQ(TextOf(about, "lblVersion"), "Version " + VersionString);
        EXPECT_EQ(TextOf(about, "lblSettingsFile"), SettingsFilePath);
        Press(about, Qt::Key_Return);
    });
    RunCommand(window, "ID_HelpAbout...");
    WhenShown("frmTechSupport", [&](QWidget& support) {
        Click(support, "cmdCopy");
        Press(support, Qt::Key_Escape);
    });
    RunCommand(window, "ID_TechnicalSupport");
    EXPECT_TRUE(QApplication::clipboard()->text().contains("Vellumark: " + ToQt(VersionString)));
    EXPECT_EQ(recorder.Take(), "");
    SetSessionState(kOpenNoScenario);
    RunCommand(window, "ID_DBSSaveAs");
    EXPECT_TRUE(recorder.Take().ends_with("TO DO v4...   "));
}

TEST_F(FrmMainTest, WebCommandsOpenABrowser) {
    const frmMain window;
    QTextBrowser browser;
    const QSignalSpy visited(&browser, &QTextBrowser::anchorClicked);
    QDesktopServices::setUrlHandler("https", &browser, "anchorClicked");
    RunCommand(window, "ID_WebHome");
    RunCommand(window, "ID_WebVM");
    QDesktopServices::unsetUrlHandler("https");
    ASSERT_EQ(visited.size(), 2);
    EXPECT_EQ(FromQt(visited[0][0].toUrl().toString()), kMakerAddress);
    EXPECT_EQ(FromQt(visited[1][0].toUrl().toString()), kProductAddress);
}

}  // namespace

}  // namespace vellumark::test
