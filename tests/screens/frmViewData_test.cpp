#include "tools/screens/frmViewData.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTimer>
#include <gmock/gmock.h>

#include "embedded.h"
#include "grid_cells.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "screen_test.h"
#include "tools/screens/viewerOpeners.h"

namespace vellumark::test {

namespace {

// A Target with a small table, connected.
class ViewDataTest : public ScreenTest, public ::testing::WithParamInterface<char> {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        file = MakeEmbedded(folder.Path("stock.mdb"),
                            "create table [Stock Item] ([Id] integer primary key, [Name] varchar(40) not "
                            "null unique, [Note] varchar(40), [Amount] double default 1);"
                            "insert into [Stock Item] values (1, 'pen', null, 5);"
                            "insert into [Stock Item] values (2, 'ink', '', 7);"
                            "insert into [Stock Item] values (3, 'cap', 'red', null);"
                            "create table Other (X integer);");
        MakeSchema("Stock");
        {
            const RepositoryScope repository;
            fCreateTargetPlaceholder(1, "Stock");
            RepositoryDatabase.Execute("update [Database] set [FK CON Id Target] = 1");
        }
        ASSERT_TRUE(fSaveConnection(kConnectTarget, Details()));
    }
    void TearDown() override {
        CloseTargetConnection();
        AutoConnect = false;
        ScreenTest::TearDown();
    }

    ConnectionDetails Details() const {
        ConnectionDetails details;
        details.protocol = GetParam();
        details.ignoreTablePrefix = GetParam() == 'D' ? "msys" : "";
        details.mdbFile = file;
        details.connectionString = GetParam() == 'A' ? AccessString(file) : file;
        return details;
    }
    std::unique_ptr<frmViewData> Open() {
        EXPECT_TRUE(ConnectTarget());
        auto form = std::make_unique<frmViewData>(ViewerCaller::Target);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        return form;
    }
    std::unique_ptr<frmViewData> OpenItems() {
        std::unique_ptr<frmViewData> form = Open();
        Choose(*form, "cboTable", "Stock Item");
        EXPECT_TRUE(QTest::qWaitFor([&] { return TextOf(*form, "lblRows").ends_with(" of 3"); }));
        return form;
    }
    std::string Stored() {
        return RowsOf(dao::OpenDatabase(file), "select * from [Stock Item] order by [Id]");
    }
    static RowGrid& Grid(QWidget& form) { return Child<RowGrid>(form, "grdData"); }
    static void GoTo(RowGrid& grid, int row, int column) {
        grid.setFocus();
        grid.setCurrentIndex(grid.model()->index(row, column));
    }
    static bool IsOpenCell(RowGrid& grid, int row, int column) {
        return grid.model()->index(row, column).flags() & Qt::ItemIsEditable;
    }

    std::string file;
};

TEST_P(ViewDataTest, ShowsATableAndLeavesItAloneUntilAllowed) {
    const auto form = OpenItems();
    EXPECT_EQ(TextOf(*form, "lblTitle"), "Table: Stock Item");
    EXPECT_EQ(TextOf(*form, "txtDBMS"), "Jet");
    EXPECT_THAT(recorder.statuses, ::testing::Contains("Retrieving data, please wait..."));
    EXPECT_EQ(TextOf(*form, "lblStatus"), "");
    RowGrid& grid = Grid(*form);
    EXPECT_EQ(CellTexts(grid, 3), "1|pen|(null)|5\n2|ink||7\n3|cap|red|(null)\n");
    EXPECT_EQ(grid.model()->rowCount(), 3);
    EXPECT_FALSE(IsOpenCell(grid, 0, 1));
    GoTo(grid, 0, 1);
    Press(grid, Qt::Key_Delete);
    EXPECT_EQ(grid.model()->rowCount(), 3);
    EXPECT_EQ(recorder.Take(), "");

    Child<QCheckBox>(*form, "chkAddNew").click();
    EXPECT_EQ(grid.model()->rowCount(), 4);
    EXPECT_FALSE(IsOpenCell(grid, 0, 1));
    EXPECT_TRUE(IsOpenCell(grid, 3, 1));
    Child<QCheckBox>(*form, "chkAddNew").click();
    EXPECT_EQ(grid.model()->rowCount(), 3);
    Click(*form, "cmdClose");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(TargetConnectionState, 'C');
}

TEST_P(ViewDataTest, RowsAreAddedAndChangedAndNullsToldFromEmptyTexts) {
    const auto form = OpenItems();
    RowGrid& grid = Grid(*form);
    Child<QCheckBox>(*form, "chkAddNew").click();
    Child<QCheckBox>(*form, "chkUpdate").click();
    TypeCell(grid, 0, 1, "quill");
    GoTo(grid, 0, 2);
    Press(grid, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(CellText(grid, 0, 2), "");
    GoTo(grid, 1, 2);
    EXPECT_EQ(Stored().substr(0, 10), "1|quill||5");
    Press(grid, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(CellText(grid, 1, 2), "(null)");
    QGuiApplication::clipboard()->setText("x");
    Press(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
    // The name can't be Null, and so the key does nothing there.
    GoTo(grid, 1, 1);
    Press(grid, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(CellText(grid, 1, 1), "ink");
    TypeCell(grid, 3, 1, "nib");
    EXPECT_EQ(CellText(grid, 3, 3), "");
    GoTo(grid, 0, 0);
    EXPECT_EQ(CellTexts(grid, 4), "1|quill||5\n2|ink|(null)|7\n3|cap|red|(null)\n4|nib|(null)|1\n");
    EXPECT_EQ(grid.model()->rowCount(), 5);
    EXPECT_EQ(RowsOf(dao::OpenDatabase(file), "select [Id], [Note] is null from [Stock Item]"),
              "1|0\n2|1\n3|0\n4|1");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_P(ViewDataTest, ADeleteAsksFirst) {
    const auto form = OpenItems();
    RowGrid& grid = Grid(*form);
    Child<QCheckBox>(*form, "chkDelete").click();
    recorder.yesNoAnswers = {false, true};
    GoTo(grid, 1, 1);
    Press(grid, Qt::Key_Delete);
    EXPECT_EQ(grid.model()->rowCount(), 3);
    Press(grid, Qt::Key_Delete);
    EXPECT_EQ(CellTexts(grid, 2), "1|pen|(null)|5\n3|cap|red|(null)\n");
    EXPECT_EQ(recorder.Take(),
              "question: Do you really want to delete this row of data?|question: Do you "
              "really want to delete this row of data?");
    EXPECT_EQ(TextOf(*form, "lblRows"), "Row 2 of 2");
    EXPECT_EQ(Stored(), "1|pen||5\n3|cap|red|");
}

TEST_P(ViewDataTest, ARefusedChangeShowsTheTruthAndARefusedNewRowStaysOpen) {
    const auto form = OpenItems();
    RowGrid& grid = Grid(*form);
    Child<QCheckBox>(*form, "chkAddNew").click();
    Child<QCheckBox>(*form, "chkUpdate").click();
    TypeCell(grid, 1, 1, "pen");
    GoTo(grid, 0, 1);
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Error 3022: UNIQUE constraint failed"));
    EXPECT_EQ(CellText(grid, 1, 1), "ink");
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid.currentIndex().row() == 1; }));
    TypeCell(grid, 1, 3, "many");
    Click(*form, "cmdClose");
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Error 3421: Data type conversion error."));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(CellText(grid, 1, 3), "7");

    TypeCell(grid, 3, 1, "cap");
    EXPECT_FALSE(grid.CommitRow());
    EXPECT_NE(recorder.Take(), "");
    EXPECT_EQ(CellText(grid, 3, 1), "cap");
    TypeCell(grid, 3, 1, "lid");
    EXPECT_TRUE(grid.CommitRow());
    EXPECT_EQ(CellText(grid, 3, 0), "4");

    // A row that is gone meanwhile leaves the grid.
    dao::OpenDatabase(file).Execute("delete from [Stock Item] where [Id] = 1");
    TypeCell(grid, 0, 2, "late");
    EXPECT_FALSE(grid.CommitRow());
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Error 3167: "));
    EXPECT_EQ(CellText(grid, 0, 1), "ink");
    EXPECT_EQ(grid.model()->rowCount(), 4);
}

TEST_P(ViewDataTest, ASQLTextIsRunInItsOwnMode) {
    const auto form = OpenItems();
    RowGrid& grid = Grid(*form);
    EXPECT_TRUE(IsShown(*form, "cboTable"));
    EXPECT_FALSE(IsShown(*form, "txtSQL"));
    EXPECT_FALSE(IsShown(*form, "cmdBuilder"));
    Child<QRadioButton>(*form, "optSQL").click();
    EXPECT_FALSE(IsShown(*form, "cboTable"));
    EXPECT_TRUE(IsShown(*form, "cmdRun"));
    auto& box = Child<QPlainTextEdit>(*form, "txtSQL");
    Click(*form, "cmdRun");
    EXPECT_EQ(TextOf(*form, "lblTitle"), "Table: Stock Item");
    box.setPlainText("select [Name] from [Stock Item] where [Id] > 1 order by [Id]");
    Click(*form, "cmdRun");
    EXPECT_EQ(TextOf(*form, "lblTitle"), "SQL Results");
    EXPECT_EQ(CellTexts(grid, 2), "ink\ncap\n");
    EXPECT_THAT(recorder.statuses, ::testing::Contains("Running SQL script, please wait..."));
    Child<QCheckBox>(*form, "chkAddNew").click();
    Child<QCheckBox>(*form, "chkUpdate").click();
    EXPECT_EQ(grid.model()->rowCount(), 2);
    EXPECT_FALSE(IsOpenCell(grid, 0, 0));
    box.setPlainText("selct");
    Click(*form, "cmdRun");
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Error 3075: "));
    EXPECT_EQ(CellTexts(grid, 2), "ink\ncap\n");
    box.setPlainText("update [Stock Item] set [Note] = \"new\"");
    Click(*form, "cmdRun");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(Stored(), "1|pen|new|5\n2|ink|new|7\n3|cap|new|");
    box.setPlainText("select * from [Stock Item]");
    Click(*form, "cmdRun");
    TypeCell(grid, 0, 2, "old");
    EXPECT_TRUE(grid.CommitRow());
    EXPECT_EQ(Stored().substr(0, 11), "1|pen|old|5");
}

// One that gives rows without end, and one that is at work without giving any.
TEST_P(ViewDataTest, AStatementThatTakesLongIsStopped) {
    const auto form = OpenItems();
    Child<QRadioButton>(*form, "optSQL").click();
    auto& box = Child<QPlainTextEdit>(*form, "txtSQL");
    const auto run = [&](const char* what, const std::function<void()>& stop) {
        box.setPlainText(QString("with recursive n(i) as (select 1 union all select i + 1 from n) "
                                 "select %1 from n")
                             .arg(what));
        QTimer::singleShot(100, form.get(), stop);
        Click(*form, "cmdRun");
        EXPECT_EQ(TextOf(*form, "lblStatus"), "Stopped");
        EXPECT_FALSE(IsEnabled(*form, "cmdStop"));
        EXPECT_TRUE(form->isVisible());
    };
    EXPECT_FALSE(IsEnabled(*form, "cmdStop"));
    run("count(*)", [&] {
        Click(*form, "cmdClose");
        EXPECT_TRUE(form->isVisible());
        Click(*form, "cmdStop");
    });
    EXPECT_EQ(TextOf(*form, "lblTitle"), "Table: Stock Item");
    run("i", [&] { Press(box, Qt::Key_Escape); });
    EXPECT_EQ(TextOf(*form, "lblTitle"), "SQL Results");
    EXPECT_EQ(CellTexts(Grid(*form), 2), "1\n2\n");
    run("count(*)", [&] { form->close(); });
    EXPECT_EQ(recorder.Take(), "");
}

TEST_P(ViewDataTest, ALongTableFillsWhileItIsShownAndKeepsItsPlace) {
    MakeEmbedded(file,
                 "create table Many (N integer primary key);"
                 "insert into Many with recursive c (n) as (select 1 union all select n + 1 from c where n "
                 "< 20000) select n from c;");
    const auto form = Open();
    Choose(*form, "cboTable", "Many");
    RowGrid& grid = Grid(*form);
    EXPECT_EQ(TextOf(*form, "lblRows"), "Row 1 of 200...");
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid.model()->rowCount() == 20000; }));
    EXPECT_EQ(TextOf(*form, "lblRows"), "Row 1 of 20,000");
    EXPECT_EQ(CellText(grid, 19999, 0), "20000");
    GoTo(grid, 15000, 0);
    dao::OpenDatabase(file).Execute("delete from [Many] where [N] > 19000");
    Press(*form, Qt::Key_F5);
    EXPECT_EQ(grid.currentIndex().row(), 15000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid.model()->rowCount() == 19000; }));
}

TEST_P(ViewDataTest, WithoutATargetItSaysSoUnlessItMayConnectItself) {
    frmViewData form(ViewerCaller::Target);
    EXPECT_EQ(recorder.Take(), "exclamation: Please connect to the target database.");
    EXPECT_EQ(TextOf(form, "lblStatus"),
              "Please set target database connection to view, and update data using the grid");
    EXPECT_FALSE(IsEnabled(form, "cboTable"));
    AutoConnect = true;
    frmViewData connected(ViewerCaller::Target);
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(Child<QComboBox>(connected, "cboTable").count(), 2);
}

// Those callers' databases are let go with the screen, and the Target stays what it was.
TEST_P(ViewDataTest, OtherCallersSeeTheirOwnDatabase) {
    const std::string others = MakeEmbedded(folder.Path("other.mdb"),
                                            "create table Town (Name varchar(9));"
                                            "insert into Town values ('Ulm');");
    ConnectionDetails value;
    value.protocol = GetParam();
    value.mdbFile = others;
    value.connectionString = GetParam() == 'A' ? AccessString(others) : others;
    value.table = "town";
    value.column = "Name";
    ValueConnectionId = 0;
    ASSERT_TRUE(fSaveConnection(kConnectValue, value));
    ASSERT_TRUE(ConnectTarget());
    const auto look = [](QWidget& form) {
        EXPECT_EQ(TextOf(form, "cboTable"), "Town");
        EXPECT_EQ(TextOf(form, "lblTitle"), "Table: Town");
        EXPECT_EQ(CellTexts(Grid(form), 1), "Ulm\n");
        Press(form, Qt::Key_Escape);
    };
    WhenShown("frmViewData", look);
    ViewData(ViewerCaller::Value, nullptr);
    ConnectionForm = value;
    WhenShown("frmViewData", look);
    ViewData(ViewerCaller::Form, nullptr);
    EXPECT_EQ(TargetConnectionState, 'C');
    EXPECT_EQ(recorder.Take(), "");
    ConnectionForm.mdbFile = folder.Path("none.mdb");
    ConnectionForm.connectionString =
        GetParam() == 'A' ? AccessString(ConnectionForm.mdbFile) : ConnectionForm.mdbFile;
    ViewData(ViewerCaller::Form, nullptr);
    EXPECT_NE(recorder.Take().find("none.mdb"), std::string::npos);
    EXPECT_EQ(TargetConnectionState, 'C');
    const auto form = OpenItems();
    EXPECT_EQ(CellText(Grid(*form), 0, 1), "pen");
}

INSTANTIATE_TEST_SUITE_P(Protocols, ViewDataTest, ::testing::Values('A', 'D'),
                         [](const auto& protocol) { return protocol.param == 'A' ? "ADO" : "DAO"; });

}  // namespace

}  // namespace vellumark::test
