#include "platform/screens/rowGrid.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "screen_test.h"

namespace vellumark::test {

namespace {

// Names with an amount and a kind; an empty name is refused, and only a "wide" row has an amount.
class NameRows : public GridRows {
 public:
    std::vector<GridColumn> Columns() const override {
        return {{"Name"},
                {"Amount", CellKind::Number},
                {"Kind", CellKind::Choice, false, {"wide", "narrow"}},
                {"Sold", CellKind::Check}};
    }
    std::vector<GridRow> Load() override { return stored; }
    bool CanInsert() const override { return true; }
    bool CanDelete() const override { return true; }
    void BeforeInsert(GridRow& row) override { row.cells[2] = "wide"; }
    bool CellOpen(const GridRow& row, int column) const override {
        return column != 1 || row.cells[2] == "wide";
    }
    void CellChanged(GridRow& row, int column) override {
        if (column == 2 && row.cells[2] == "narrow")
            row.cells[1].clear();
    }
    bool Validate(const GridRow& row) override {
        if (row.cells[0].empty())
            platform::ShowExclamation("Please enter a Name");
        return !row.cells[0].empty();
    }
    bool Insert(GridRow& row) override {
        row.id = static_cast<int>(stored.size()) + 1;
        stored.push_back(row);
        return true;
    }
    bool Update(const GridRow& row) override {
        *std::ranges::find(stored, row.id, &GridRow::id) = row;
        return true;
    }
    bool Delete(const GridRow& row) override {
        if (row.cells[0] == "used")
            return false;
        std::erase_if(stored, [&](const GridRow& other) { return other.id == row.id; });
        return true;
    }

    std::string Text() const {
        std::string text;
        for (const GridRow& row : stored)
            text += row.cells[0] + "," + row.cells[1] + "," + row.cells[2] + "," + row.cells[3] + ";";
        return text;
    }

    std::vector<GridRow> stored{{1, {"used", "5", "wide", ""}}, {2, {"spare", "", "narrow", "1"}}};
};

class RowGridTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(&grid);
        layout->addWidget(&other);
        grid.Show(rows);
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        grid.setFocus();
    }

    void GoTo(int row, int column) { grid.setCurrentIndex(grid.model()->index(row, column)); }
    void TypeInto(int row, int column, const char* text) {
        GoTo(row, column);
        QTest::keyClick(&grid, Qt::Key_F2);
        auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QTest::qWait(0);
    }

    NameRows rows;
    QDialog form;
    RowGrid grid;
    QLineEdit other;
};

TEST_F(RowGridTest, ARowIsWrittenAsTheCursorLeavesIt) {
    TypeInto(0, 1, "7");
    EXPECT_EQ(rows.Text(), "used,5,wide,;spare,,narrow,1;");
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(rows.Text(), "used,7,wide,;spare,,narrow,1;");

    TypeInto(0, 1, "8");
    other.setFocus();
    EXPECT_EQ(rows.Text(), "used,8,wide,;spare,,narrow,1;");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(RowGridTest, ANewRowIsFilledTypedAndWritten) {
    TypeInto(2, 0, "new");
    EXPECT_EQ(grid.model()->rowCount(), 3);
    EXPECT_EQ(grid.model()->index(2, 2).data().toString(), "wide");
    EXPECT_TRUE(grid.CommitRow());
    EXPECT_EQ(grid.model()->rowCount(), 4);
    EXPECT_EQ(rows.Text(), "used,5,wide,;spare,,narrow,1;new,,wide,;");
    EXPECT_EQ(grid.CurrentId(), 3);
}

TEST_F(RowGridTest, ARefusedRowStaysOpenAndEscapeDropsIt) {
    TypeInto(2, 1, "9");
    QTest::keyClick(&grid, Qt::Key_Up);
    QTest::qWait(10);
    EXPECT_EQ(recorder.Take(), "exclamation: Please enter a Name");
    EXPECT_EQ(grid.currentIndex().row(), 2);
    QTest::keyClick(&grid, Qt::Key_Escape);
    EXPECT_EQ(grid.model()->index(2, 1).data().toString(), "");
    EXPECT_TRUE(form.isVisible());

    TypeInto(0, 0, "gone");
    QTest::keyClick(&grid, Qt::Key_Escape);
    EXPECT_EQ(grid.model()->index(0, 0).data().toString(), "used");
    EXPECT_EQ(rows.Text(), "used,5,wide,;spare,,narrow,1;");
}

TEST_F(RowGridTest, DeleteAsksItsOwner) {
    GoTo(0, 0);
    QTest::keyClick(&grid, Qt::Key_Delete);
    EXPECT_EQ(grid.model()->rowCount(), 3);
    GoTo(1, 0);
    QTest::keyClick(&grid, Qt::Key_Delete);
    EXPECT_EQ(rows.Text(), "used,5,wide,;");
    EXPECT_EQ(grid.model()->rowCount(), 2);
}

TEST_F(RowGridTest, CellsFollowAndCloseByTheirRow) {
    GoTo(0, 2);
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* list = qobject_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_NE(list, nullptr);
    list->setCurrentText("narrow");
    EXPECT_TRUE(grid.CommitRow());
    EXPECT_EQ(rows.Text(), "used,,narrow,;spare,,narrow,1;");
    EXPECT_FALSE(grid.model()->flags(grid.model()->index(0, 1)) & Qt::ItemIsEditable);

    GoTo(1, 3);
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_TRUE(grid.CommitRow());
    EXPECT_EQ(rows.Text(), "used,,narrow,;spare,,narrow,;");
}

TEST_F(RowGridTest, PastesRowsUntilOneIsRefused) {
    GoTo(2, 0);
    QApplication::clipboard()->setText("a\t1\r\nb\t2\r\n\t3\r\nd\t4\r\n");
    QTest::keyClick(&grid, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(rows.Text(), "used,5,wide,;spare,,narrow,1;a,1,wide,;b,2,wide,;");
    EXPECT_EQ(recorder.Take(), "exclamation: Please enter a Name");
}

}  // namespace

}  // namespace vellumark::test
