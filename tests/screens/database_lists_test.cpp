#include <filesystem>
#include <gmock/gmock.h>

#include "embedded.h"
#include "grid_cells.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "schema/modConnectionString.h"
#include "schema/screens/frmCONList.h"
#include "schema/screens/frmDSNList.h"
#include "schema/screens/frmDataLink.h"
#include "schema/screens/frmDatabaseOpen.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class DatabaseListsTest : public ScreenTest {
 protected:
    static void Show(QWidget& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    static RowGrid& Grid(QWidget& form, const char* name) { return Child<RowGrid>(form, name); }
    // The first column.
    static std::string Names(QWidget& form, const char* grid) {
        std::string names;
        for (int row = 0; row < Grid(form, grid).model()->rowCount(); ++row)
            names += CellText(Grid(form, grid), row, 0) + "|";
        return names;
    }
    // A schema with its folder, last opened on that day of 2004; the last one made is open.
    void AddSchema(const std::string& name, int day) {
        MakeSchema(name);
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Database] set [DateTime Last Accessed] = ? where [Name] = ?",
                                   {"2004-02-0" + std::to_string(day) + " 10:00:00", name});
    }
    static void AddNamedConnection(int id, const std::string& server) {
        ConnectionDetails details;
        details.dbmsType = kDbmsSqlServer;
        details.server = server;
        details.database = "db" + std::to_string(id);
        details.password = "secret";
        details.description = ValueDescription(details);
        AddConnection(id, details);
    }
};

TEST_F(DatabaseListsTest, ASchemaIsFoundAndOpened) {
    AddSchema("Shop", 1);
    AddSchema("Archive", 3);
    AddSchema("Stock", 2);
    frmDatabaseOpen form(SchemaListMode::Open);
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Open Database Schema");
    EXPECT_EQ(Names(form, "grdSchemas"), "Archive|Stock|Shop|");
    EXPECT_EQ(CellText(Grid(form, "grdSchemas"), 0, 4), "2004-02-03 10:00:00");

    AddSchema("Newer", 4);
    Click(form, "cmdRefresh");
    EXPECT_EQ(Names(form, "grdSchemas"), "Newer|Archive|Stock|Shop|");
    Type(form, "txtFind", "SHO");
    EXPECT_EQ(Names(form, "grdSchemas"), "Shop|");
    Type(form, "txtFind", "nothing");
    EXPECT_FALSE(IsEnabled(form, "cmdOK"));
    Type(form, "txtFind", "st");
    EXPECT_EQ(Names(form, "grdSchemas"), "Stock|");
    Press(Child(form, "txtFind"), Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(CurrentDBSName, "Stock");
    EXPECT_EQ(SessionState, kOpenNoScenario);
    EXPECT_EQ(Rows("select [Name] from [Database] order by [DateTime Last Accessed] desc limit 1"), "Stock");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(DatabaseListsTest, WhatCannotBeOpenedLeavesTheList) {
    AddSchema("Gone", 2);
    AddSchema("Folderless", 1);
    frmDatabaseOpen form(SchemaListMode::Open);
    Show(form);
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("delete from [Database] where [Name] = 'Gone'");
    }
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "exclamation: Cannot open the Database identifier 1");
    EXPECT_EQ(Names(form, "grdSchemas"), "Folderless|");
    std::filesystem::remove_all(JoinPath(DatabasesFolder, "Folderless.dbs"));
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "critical: Cannot find Database directory '" +
                                   JoinPath(DatabasesFolder, "Folderless.dbs") + "'");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(SessionState, kNotOpen);
    Press(form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(DatabaseListsTest, SchemasAreDeletedUntilTheListIsClosed) {
    AddSchema("Shop", 1);
    AddSchema("Stock", 2);
    AddSchema("Archive", 3);
    frmDatabaseOpen form(SchemaListMode::Delete);
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Delete Database Schema");
    EXPECT_EQ(TextOf(form, "cmdOK") + "|" + TextOf(form, "cmdCancel"), "Delete|Close");
    recorder.yesNoAnswers = {false, true, true};
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "question: Do you really want to delete the selected Database: Archive?");
    EXPECT_EQ(Names(form, "grdSchemas"), "Archive|Stock|Shop|");
    EXPECT_EQ(CurrentDBSId, 0);
    EXPECT_EQ(SessionState, kNotOpen);
    Click(form, "cmdOK");
    Click(form, "cmdOK");
    EXPECT_EQ(Names(form, "grdSchemas"), "Shop|");
    EXPECT_FALSE(std::filesystem::exists(JoinPath(DatabasesFolder, "Archive.dbs")));
    EXPECT_TRUE(std::filesystem::exists(JoinPath(DatabasesFolder, "Shop.dbs")));
    EXPECT_TRUE(form.isVisible());
    Click(form, "cmdCancel");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(DatabaseListsTest, VersionControlTakesASchemaAndOpensNone) {
    AddSchema("Shop", 1);
    AddSchema("Stock", 2);
    frmDatabaseOpen form(SchemaListMode::VersionControl);
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Select Target Database Schema");
    EXPECT_EQ(TextOf(form, "cmdOK") + "|" + TextOf(form, "cmdCancel"), "Select|Cancel");
    Press(Grid(form, "grdSchemas"), Qt::Key_Down);
    Press(Grid(form, "grdSchemas"), Qt::Key_Return);
    ASSERT_TRUE(form.Selected());
    EXPECT_EQ(form.Selected()->id, 1);
    EXPECT_EQ(form.Selected()->name, "Shop");
    EXPECT_EQ(CurrentDBSName, "Stock");
}

TEST_F(DatabaseListsTest, AConnectionIsChosenAndUnusedOnesGo) {
    AddSchema("Shop", 1);
    AddNamedConnection(1, "alpha");
    AddNamedConnection(2, "beta");
    AddNamedConnection(3, "gamma");
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Database] set [FK CON Id Target] = 2");
    }
    frmCONList form(ConnectionListMode::Select, nullptr);
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Select a Database Connection");
    RowGrid& grid = Grid(form, "grdConnections");
    EXPECT_EQ(CellText(grid, 1, 0) + "|" + CellText(grid, 1, 1),
              "DBMS: 'MS/SQL Server' Database: 'db2'|Target of Shop");
    EXPECT_EQ(CellTexts(grid, 3).find("secret"), std::string::npos);
    Press(grid, Qt::Key_Delete);
    EXPECT_EQ(Count("Database Connection"), 3);

    recorder.yesNoAnswers = {false, true};
    WhenShown("frmCONList", [&](QWidget& list) {
        EXPECT_EQ(list.windowTitle(), "Delete an unused Database Connection");
        EXPECT_EQ(TextOf(list, "cmdCancel"), "Close");
        EXPECT_FALSE(IsShown(list, "cmdOK"));
        RowGrid& unused = Grid(list, "grdConnections");
        unused.SelectId(2);
        Click(list, "cmdDelete");
        EXPECT_EQ(recorder.Take(),
                  "exclamation: Unable to delete this connection\nIt is being used by database Shop");
        unused.SelectId(1);
        Press(unused, Qt::Key_Delete);
        EXPECT_EQ(recorder.Take(), "question: Do you really want to delete this Connection?");
        EXPECT_EQ(unused.model()->rowCount(), 3);
        Click(list, "cmdDelete");
        EXPECT_EQ(unused.model()->rowCount(), 2);
        Press(unused, Qt::Key_Escape);
    });
    Click(form, "cmdDeleteUnused");
    recorder.Take();
    EXPECT_EQ(grid.model()->rowCount(), 2);
    Type(form, "txtFind", "GAMMA");
    EXPECT_EQ(grid.model()->rowCount(), 1);
    const QPoint row = grid.visualRect(grid.currentIndex()).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, row);
    ASSERT_TRUE(form.Selected());
    EXPECT_EQ(form.Selected()->server + form.Selected()->password, "gammasecret");
}

TEST_F(DatabaseListsTest, TheDataSourcesStartOnTheOneInUse) {
    frmDSNList form("SHOP", nullptr);
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Select DSN");
    EXPECT_EQ(CellTexts(Grid(form, "grdSources"), 2), "ghosts|Ghost Driver\nshop|SQLite3\n");
    EXPECT_FALSE(IsShown(form, "lblHint"));
    Press(Grid(form, "grdSources"), Qt::Key_Return);
    EXPECT_EQ(form.Selected(), "shop");
}

TEST_F(DatabaseListsTest, ALinkIsPutTogetherFromItsPartsAndTried) {
    const std::string file = MakeEmbedded(folder.Path("link.mdb"), "create table T (x);");
    frmDataLink form("", nullptr);
    Show(form);
    Choose(form, "cboDriver", "SQLite3");
    RowGrid& parts = Grid(form, "grdParts");
    EXPECT_EQ(Names(form, "grdParts"), "Server|Port|Database|UID||");
    TypeCell(parts, 2, 1, file);
    TypeCell(parts, 4, 0, "pwd");
    Press(parts, Qt::Key_Up);
    QTest::qWait(10);
    EXPECT_EQ(recorder.Take(), "exclamation: Driver and password have fields of their own.");
    TypeCell(parts, 4, 0, "Timeout");
    TypeCell(parts, 4, 1, "500");
    Click(form, "cmdTest");
    EXPECT_THAT(recorder.Take(), ::testing::StartsWith("information: Connected to SQLite "));
    parts.SelectId(3);
    parts.setCurrentIndex(parts.model()->index(0, 0));
    Click(form, "cmdDeletePart");
    Click(form, "cmdOK");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.ConnectionString(), "Database=" + file + ";Driver={SQLite3};Timeout=500");
}

}  // namespace

}  // namespace vellumark::test
