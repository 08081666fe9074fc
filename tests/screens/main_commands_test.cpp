#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>
#include <set>

#include "app/frmMain.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

// The menus and toolbars of the main window.
class MainCommandsTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        QSettings().clear();
        CommandWords = {};
        TargetConnectionState = 'D';
    }
};

std::string Bar(const QList<QAction*>& actions) {
    QStringList keys;
    for (const QAction* action : actions)
        keys.append(action->isSeparator() ? "-" : action->objectName());
    return FromQt(keys.join(' '));
}

// N, O and S are the states of the session; "c" and "d" hold with a schema open and its Target connected or
// not, "i" with a schema open but for a Scenario selected on the Delete tab.
struct ExpectedCommand {
    const char* key;
    const char* caption;
    const char* states;
};

const ExpectedCommand kExpected[] = {
    {"ID_NewDB", "Read &New Schema from Database Connection...", "NOS"},
    {"ID_DBSNew", "&Manually create a New Database Schema...", "NOS"},
    {"ID_Open", "&Open Database Schema...", "NOS"},
    {"ID_DBSEdit", "&Edit Database Schema...", "OS"},
    {"ID_Close", "&Close Database Schema", "OS"},
    {"ID_DBDelete", "&Delete Database Schema...", "NOS"},
    {"ID_CONTarget", "Tar&get Database Connection...", "OS"},
    {"ID_DBSConnect", "Connect to Target Database", "d"},
    {"ID_DBSDisconnect", "Disconnect from Target Database", "c"},
    {"ID_DBTree", "&Tree View...", "OS"},
    {"ID_DBReport", "&Database Definition Report...", "OS"},
    {"ID_TableStats", "Table &Statistics...", "i"},
    {"ID_VersionControl", "&Version Control...", "OS"},
    {"ID_DBSMerge", "Merge Database Sc&hemas...", "OS"},
    {"ID_Exit", "E&xit", "NOS"},
    {"ID_GridWeaver", "Grid &Weaver", "NOS"},
    {"ID_NewCOOLGen", "Read COOL:Gen &model...", "NOS"},
    {"ID_CaseWeaver", "Read &Case Weaver File...", "NOS"},
    {"ID_SheetWeaver", "Read &Sheet Weaver File...", "NOS"},
    {"ID_RepTable", "List Tables Report...", "OS"},
    {"ID_NewTS", "&New Scenario...", "OS"},
    {"ID_TbtEdit", "&Edit Scenario...", "S"},
    {"ID_ParentChildDiagram", "Set &Foreign Keys...", "S"},
    {"ID_SaveTSAs", "&Save As...", "S"},
    {"ID_TSORename", "&Rename Scenario...", "S"},
    {"ID_Delete", "&Delete Scenario", "S"},
    {"ID_TSOSelectTables", "Select Database &Tables...", "S"},
    {"ID_ConsistencyCheck", "Consistenc&y Check", "S"},
    {"ID_GenData", "&Generate SQL...", "S"},
    {"ID_ViewData", "Edit &Data on Target Database...", "OS"},
    {"ID_SQLBuilder", "&SQL Builder", "OS"},
    {"ID_LoadTable", "&Load Jet Table", "NOS"},
    {"ID_Options", "&Options...", "NOS"},
    {"ID_ValMaint", "&Generic Values...", "NOS"},
    {"ID_CNVMaint", "&Conversion Codes...", "NOS"},
    {"ID_HelpContents...", "Help Contents...", "NOS"},
    {"ID_HelpSearch...", "Help Search...", "NOS"},
    {"ID_HelpUsingHelp...", "Help Using Help...", "NOS"},
    {"ID_TechnicalSupport", "Technical Support...", "NOS"},
    {"ID_WebHome", "Tarvo Software on the Web...", "NOS"},
    {"ID_WebVM", "Vellumark on the Web...", "NOS"},
    {"ID_HelpAbout...", "Help About...", "NOS"},
    {"ID_btnIcon", "Icon View", "NOS"},
    {"ID_btnSmallIcon", "Small Icon View", "NOS"},
    {"ID_btnList", "List View", "NOS"},
    {"ID_btnReport", "Report View", "NOS"},
};

TEST_F(MainCommandsTest, EachCommandFollowsTheSession) {
    const frmMain window;
    for (const std::string_view state : {kNotOpen, kOpenNoScenario, kOpenWithScenario})
        for (const char connection : {'C', 'D'})
            for (const ScenarioTab tab : {ScenarioTab::Insert, ScenarioTab::Delete}) {
                TargetConnectionState = connection;
                CurrentScenarioTab = tab;
                SetSessionState(state);
                const char letter = state == kNotOpen ? 'N' : state == kOpenNoScenario ? 'O' : 'S';
                for (const ExpectedCommand& expected : kExpected) {
                    const std::string_view states = expected.states;
                    bool enabled = states.find(letter) != std::string_view::npos;
                    if (letter != 'N' && states == "c")
                        enabled = connection == 'C';
                    if (letter != 'N' && states == "d")
                        enabled = connection == 'D';
                    if (letter != 'N' && states == "i")
                        enabled = letter == 'O' || tab == ScenarioTab::Insert;
                    EXPECT_EQ(Child<QAction>(window, expected.key).isEnabled(), enabled)
                        << expected.key << " in " << state << " " << connection;
                }
            }
    TargetConnectionState = 'D';
    for (const ExpectedCommand& expected : kExpected)
        EXPECT_EQ(FromQt(Child<QAction>(window, expected.key).text()), expected.caption);
}

TEST_F(MainCommandsTest, MenusAndToolBarsHoldTheirCommandsInOrder) {
    const frmMain window;
    const auto menu = [&](const char* name) { return Bar(Child<QMenu>(window, name).actions()); };
    std::string captions;
    for (const QAction* action : window.menuBar()->actions())
        captions += FromQt(action->text()) + " ";
    EXPECT_EQ(captions, "Data&base &Scenario &Data &Tools &Help E&xit ");
    EXPECT_EQ(menu("mnuDatabase"),
              "ID_GridWeaver - ID_NewDB ID_DBSNew - ID_Open ID_DBSEdit ID_Close ID_DBDelete - ID_CONTarget "
              "ID_DBSConnect ID_DBSDisconnect - ID_DBTree ID_DBReport ID_TableStats - ID_VersionControl "
              "ID_DBSMerge - ID_Exit");
    EXPECT_EQ(menu("ID_GridWeaver"), "ID_NewCOOLGen ID_CaseWeaver ID_SheetWeaver - ID_RepTable");
    EXPECT_EQ(menu("mnuScenario"),
              "ID_NewTS ID_TbtEdit ID_ParentChildDiagram ID_SaveTSAs ID_TSORename ID_Delete - "
              "ID_TSOSelectTables");
    EXPECT_EQ(menu("mnuData"), "ID_GenData ID_ViewData ID_SQLBuilder - ID_LoadTable");
    EXPECT_EQ(menu("mnuTools"), "ID_Options - ID_ValMaint ID_CNVMaint");
    EXPECT_EQ(menu("mnuHelp"),
              "ID_HelpContents... ID_HelpUsingHelp... - ID_TechnicalSupport ID_WebHome ID_WebVM - "
              "ID_HelpAbout...");
    const auto& database = Child<QToolBar>(window, "tbrDatabase");
    const auto& scenario = Child<QToolBar>(window, "tbrScenario");
    EXPECT_EQ(Bar(database.actions()),
              "ID_NewDB ID_NewCOOLGen ID_Open ID_DBTree ID_DBReport ID_Close - ID_CONTarget ID_DBSConnect "
              "ID_DBSDisconnect");
    EXPECT_EQ(Bar(scenario.actions()),
              "ID_NewTS ID_TbtEdit ID_ParentChildDiagram ID_Delete - ID_GenData ID_ViewData ID_SQLBuilder - "
              "ID_ValMaint - ID_btnIcon ID_btnList ID_btnSmallIcon");
    for (const QAction* action : database.actions() + scenario.actions())
        EXPECT_NE(action->isSeparator(), !action->icon().isNull()) << FromQt(action->objectName());
    std::set<QKeySequence> shortcuts;
    for (const QAction* action : window.findChildren<QAction*>())
        EXPECT_TRUE(action->shortcut().isEmpty() || shortcuts.insert(action->shortcut()).second)
            << FromQt(action->objectName());
    for (const auto& [key, shortcut] : std::vector<std::pair<const char*, const char*>>{
             {"ID_Open", "Ctrl+O"}, {"ID_TSORename", "F2"}, {"ID_HelpContents...", "F1"}})
        EXPECT_EQ(FromQt(Child<QAction>(window, key).shortcut().toString()), shortcut);
    EXPECT_EQ(FromQt(Child<QAction>(window, "ID_NewDB").toolTip()),
              "Read New Schema from Database Connection (Ctrl+Shift+N)");
}

}  // namespace

}  // namespace vellumark::test
