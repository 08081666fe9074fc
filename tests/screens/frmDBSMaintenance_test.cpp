#include "schema/screens/frmDBSMaintenance.h"

#include <QPrinter>
#include <QTreeWidget>

#include "grid_cells.h"
#include "repository/modVellumark.h"
#include "schema/screens/frmDatabaseTree.h"
#include "screen_test.h"
#include "temp_folder.h"

namespace vellumark::test {

namespace {

class SchemaScreensTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ReadShop();
    }

    static RowGrid& Grid(QWidget& form, const char* name) { return Child<RowGrid>(form, name); }
};

TEST_F(SchemaScreensTest, ATableWithColumnsAndAForeignKeyIsTyped) {
    frmDBSMaintenance form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    RowGrid& tables = Grid(form, "grdTables");
    RowGrid& columns = Grid(form, "grdColumns");
    EXPECT_EQ(TextOf(form, "lblColumns"), "Colum&ns for Table: Customer");
    EXPECT_EQ(columns.model()->rowCount(), 9);

    TypeCell(tables, 6, 0, "Review");
    columns.setFocus();
    EXPECT_EQ(Count("Table", "[Name] = 'Review'"), 1);
    EXPECT_EQ(TextOf(form, "lblColumns"), "Colum&ns for Table: Review");
    TypeCell(columns, 0, 0, "CustomerId");
    EXPECT_EQ(CellText(columns, 0, 1), "Character");
    TypeCell(columns, 0, 1, "Long Integer");
    EXPECT_EQ(CellText(columns, 0, 5), "4");
    EXPECT_FALSE(columns.model()->flags(columns.model()->index(0, 2)) & Qt::ItemIsEditable);
    Click(form, "cmdSetFK");
    EXPECT_EQ(recorder.Take(), "exclamation: Numeric Precision must be greater than zero");
    TypeCell(columns, 0, 3, "10");

    WhenShown("frmTABandCOLSelect", [](QWidget& choice) {
        EXPECT_EQ(TextOf(choice, "lblColumns"), "C&olumns for Table: Customer");
        EXPECT_EQ(Grid(choice, "grdColumns").model()->rowCount(), 1);
        Click(choice, "cmdSelect");
    });
    EXPECT_TRUE(columns.CommitRow());
    Click(form, "cmdSetFK");
    EXPECT_EQ(CellText(columns, 0, 8), "Foreign Key");
    EXPECT_EQ(CellText(columns, 0, 9), "Customer.CustomerId");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TAB Id] = 7"), 2);
    Click(form, "cmdClearFK");
    EXPECT_EQ(CellText(columns, 0, 8), "Data");
    EXPECT_FALSE(IsEnabled(form, "cmdClearFK"));

    Type(form, "txtDescription", "By hand");
    Click(form, "cmdClose");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Rows("select [Description] from [Database]"), "By hand");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(SchemaScreensTest, ARefusedColumnKeepsItsTable) {
    frmDBSMaintenance form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    RowGrid& tables = Grid(form, "grdTables");
    RowGrid& columns = Grid(form, "grdColumns");
    TypeCell(columns, 0, 5, "0");
    tables.setFocus();
    tables.setCurrentIndex(tables.model()->index(2, 0));
    QTest::qWait(20);
    EXPECT_EQ(recorder.Take(), "exclamation: Size must be greater than zero");
    EXPECT_EQ(tables.currentIndex().row(), 0);
    EXPECT_EQ(CellText(columns, 0, 5), "0");
    Press(form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    recorder.Take();
    Press(columns, Qt::Key_Escape);
    EXPECT_EQ(CellText(columns, 0, 5), "4");
    Press(columns, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(SchemaScreensTest, DeletingAsksAndTakesTheRow) {
    frmDBSMaintenance form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    recorder.yesNoAnswers = {false, true, true};
    Click(form, "cmdDeleteColumn");
    EXPECT_EQ(Count("Column", "[FK TAB Id] = 1"), 8);
    Click(form, "cmdDeleteColumn");
    EXPECT_EQ(Count("Column", "[FK TAB Id] = 1"), 7);
    Grid(form, "grdTables").setFocus();
    Press(Grid(form, "grdTables"), Qt::Key_Delete);
    EXPECT_EQ(Count("Table"), 5);
    EXPECT_EQ(TextOf(form, "lblColumns"), "Colum&ns for Table: CustomerOrder");
}

TEST_F(SchemaScreensTest, TheTreeShowsFindsAndPrints) {
    frmDatabaseTree form;
    form.show();
    auto& tree = Child<QTreeWidget>(form, "treeSchema");
    ASSERT_EQ(tree.topLevelItemCount(), 6);
    QTreeWidgetItem* const line = tree.topLevelItem(2);
    EXPECT_EQ(line->text(0), "OrderLine");
    EXPECT_EQ(line->child(0)->text(8) + "|" + line->child(0)->text(9) + "|" + line->child(0)->text(6),
              "CustomerOrder|OrderId|Yes");
    tree.setCurrentItem(tree.topLevelItem(0)->child(1));
    EXPECT_EQ(TextOf(form, "lblDetails"), "Data Type: Character    Length: 40    Size: 40");

    Type(form, "txtFind", "price");
    EXPECT_TRUE(tree.topLevelItem(0)->isHidden());
    EXPECT_TRUE(line->isExpanded());
    EXPECT_TRUE(line->child(0)->isHidden());
    EXPECT_FALSE(line->child(4)->isHidden());
    Type(form, "txtFind", "");
    EXPECT_FALSE(tree.topLevelItem(0)->isHidden());

    const auto printed = [&] {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(folder.Path("tree.pdf")));
        form.PrintTo(printer);
        return ReadFile(folder.Path("tree.pdf"));
    };
    Click(form, "cmdCollapse");
    const std::string closed = printed();
    EXPECT_TRUE(closed.starts_with("%PDF-"));
    Click(form, "cmdExpand");
    EXPECT_GT(printed().size(), closed.size() + 1000);
}

}  // namespace

}  // namespace vellumark::test
