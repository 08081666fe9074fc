#include <QAbstractButton>
#include <QTreeView>
#include <algorithm>

#include "app/frmMain.h"
#include "embedded.h"
#include "grid_cells.h"
#include "repository/modVellumark.h"
#include "screen_test.h"
#include "test_files.h"

namespace vellumark::test {

namespace {

// Whole roads through the program by clicks and keys, from an empty start.
class WholeRoadTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        RepositoryScope repository;
        RepositoryDatabase.Execute("update [Options] set [Flag Open SQL File With Editor] = 0");
        main.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
    }

    // A screen that stands beside the main window.
    static QWidget& Window(const char* name) {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(windows, [name](const QWidget* window) {
            return window->isVisible() && window->objectName() == name;
        });
        if (found == windows.end())
            throw std::runtime_error(std::string("no window ") + name);
        (*found)->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(*found));
        return **found;
    }

    // Takes the tables in these rows of the left list into the Scenario by keys alone.
    static void AddTables(QWidget& rules, const std::vector<int>& rows) {
        auto& tables = Child<QTreeView>(rules, "TListTSO");
        for (const int row : rows) {
            tables.setFocus();
            Press(tables, Qt::Key_Home);
            for (int i = 0; i < row; ++i)
                Press(tables, Qt::Key_Down);
            Press(tables, Qt::Key_Insert);
        }
    }

    std::string Generate(QWidget& rules, const std::string& format) {
        const std::string path = folder.Path("out.txt");
        Click(rules, "cmdGenerate");
        QWidget& generate = Window("frmGenerateData");
        Child<QAbstractButton>(generate, "optTextFile").click();
        Choose(generate, "cboDatabase", format);
        Type(generate, "txtTextFile", path);
        Click(generate, "cmdGenerateData");
        return ReadFile(path);
    }

    frmMain main;
};

TEST_F(WholeRoadTest, FromADatabaseToStatements) {
    const std::string file = MakeEmbedded(folder.Path("shop.mdb"), ReadFile(Sample("shop.sql")));
    WhenShown("frmDatabaseConnection", [&](QWidget& connection) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&connection));
        Type(connection, "txtName", "Shop");
        Type(connection, "txtMDB", file);
        Press(connection, Qt::Key_Return);
    });
    RunCommand(main, "ID_NewDB");
    EXPECT_EQ(TextOf(main, "lblDBNameVal"), "Shop");
    RunCommand(main, "ID_TbtEdit");
    QWidget& rules = Window("frmTTR");
    AddTables(rules, {1, 4});
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] > 0"), 2);
    const std::string sql = Generate(rules, "Oracle");
    std::size_t inserts = 0;
    for (std::size_t at = 0; (at = sql.find("insert into", at)) != std::string::npos; ++at)
        ++inserts;
    EXPECT_EQ(inserts, 200U) << sql.substr(0, 400);
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(WholeRoadTest, FromTablesTypedByHandToDelimitedText) {
    recorder.promptAnswers = {"By hand", "Rows"};
    WhenShown("frmDBSMaintenance", [this](QWidget& editor) {
        editor.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&editor] { return QApplication::activeWindow() == &editor; }));
        auto& tables = Child<RowGrid>(editor, "grdTables");
        auto& columns = Child<RowGrid>(editor, "grdColumns");
        int row = 0;
        for (const char* table : {"Parent", "Toy"}) {
            TypeCell(tables, row++, 0, table);
            columns.setFocus();
            TypeCell(columns, 0, 0, "Id");
            TypeCell(columns, 0, 1, "Long Integer");
            TypeCell(columns, 0, 3, "10");
            EXPECT_TRUE(columns.CommitRow());
        }
        WhenShown("frmTABandCOLSelect", [](QWidget& choice) {
            Child<RowGrid>(choice, "grdTables").SelectId(1);
            Click(choice, "cmdSelect");
        });
        Click(editor, "cmdSetFK");
        Click(editor, "cmdClose");
    });
    RunCommand(main, "ID_DBSNew");
    EXPECT_EQ(Rows("select [Name], [Role] from [Column] order by [FK TAB Id]"), "Id|Data\nId|Foreign Key");
    RunCommand(main, "ID_NewTS");
    QWidget& rules = Window("frmTTR");
    AddTables(rules, {2});
    WhenShown("frmParentChildDiagram", [](QWidget& diagram) {
        Type(diagram, "txtChildEnd", "30");
        Type(diagram, "txtParEnd", "10");
        Type(diagram, "txtQtyGenerate", "3");
        Type(diagram, "txtIncrement", "3");
        Click(diagram, "cmdApply");
        EXPECT_EQ(TextOf(diagram, "txtChildQty"), "30");
        Press(diagram, Qt::Key_Escape);
    });
    Click(rules, "cmdDiagram");
    const std::string text = Generate(rules, "Text File - Delimited");
    // Thirty toys behind the two lines of the head, three to each parent.
    EXPECT_EQ(std::ranges::count(text, '\n'), 32) << text;
    EXPECT_NE(text.find("\r\n1\r\n1\r\n1\r\n2\r\n2\r\n2\r\n3\r\n"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\r\n10\r\n10\r\n10\r\n")) << text;
}

}  // namespace

}  // namespace vellumark::test
