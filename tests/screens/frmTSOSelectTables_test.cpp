#include "scenario/screens/frmTSOSelectTables.h"

#include <QTimer>
#include <QWindow>

#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "scenario/modScenarioTables.h"
#include "scenario/screens/tableList.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class FrmTSOSelectTablesTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        MakeSchema("Shop");
        for (const char* name : {"Supplier", "Customer", "Payment", "Order"})
            AddTable(name, {});
        Execute("update [Table] set [COOLGen Entity Name] = 'Buyer' where [Id] = 2");
        CurrentTSOId = 1;
        fOfferTables({4});
        form = std::make_unique<frmTSOSelectTables>(nullptr);
        form->show();
        dbs = &Child<TableList>(*form, "TListDBS");
        tso = &Child<TableList>(*form, "TListTSO");
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    void TearDown() override {
        form.reset();
        ScreenTest::TearDown();
    }

    void Execute(const std::string& sql) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql);
    }

    // What both lists show.
    std::string Shown() { return Texts(*dbs) + " > " + Texts(*tso); }
    std::string Stored() { return Rows("select [FK TAB Id] from [resolver Test Scenario Table]"); }

    static QPoint Place(const TableList& list, int row) {
        return list.visualItemRect(list.item(row)).center();
    }
    static void ClickRow(TableList& list, int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, Place(list, row));
    }

    std::unique_ptr<frmTSOSelectTables> form;
    TableList* dbs = nullptr;
    TableList* tso = nullptr;

 private:
    static std::string Texts(const TableList& list) {
        QStringList texts;
        for (int row = 0; row < list.count(); ++row)
            if (!list.item(row)->isHidden())
                texts.append(list.item(row)->text());
        return FromQt(texts.join('|'));
    }
};

TEST_F(FrmTSOSelectTablesTest, TablesMoveByKeyButtonAndDoubleClick) {
    EXPECT_EQ(Shown(), "Supplier|Customer (buyer)|Payment > Order");
    EXPECT_FALSE(IsEnabled(*form, "cmdToTSO"));
    ClickRow(*dbs, 2);
    ClickRow(*dbs, 0, Qt::ControlModifier);
    Click(*form, "cmdToTSO");
    EXPECT_EQ(Shown(), "Customer (buyer) > Order|Supplier|Payment");
    EXPECT_EQ(Stored(), "4\n1\n3");

    Press(*tso, Qt::Key_Home);
    Press(*tso, Qt::Key_Down, Qt::ShiftModifier);
    Press(*tso, Qt::Key_Return);
    EXPECT_EQ(Shown(), "Customer (buyer)|Order|Supplier > Payment");
    EXPECT_TRUE(form->isVisible());
    ClickRow(*dbs, 0);
    QTest::mouseDClick(dbs->viewport(), Qt::LeftButton, {}, Place(*dbs, 0));
    EXPECT_EQ(Shown(), "Order|Supplier > Payment|Customer (buyer)");
    EXPECT_EQ(Stored(), "3\n2");

    dbs->setFocus();
    Press(*dbs, Qt::Key_A, Qt::ControlModifier);
    Execute(
        "create trigger refuse before insert on [resolver Test Scenario Table] when new.[FK TAB Id] = 1 "
        "begin "
        "select raise(abort, 'refused'); end");
    Press(*dbs, Qt::Key_Return);
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Unexpected error occurred moving the tables."));
    EXPECT_EQ(Shown(), "Order|Supplier > Payment|Customer (buyer)");
}

TEST_F(FrmTSOSelectTablesTest, FilterHidesAndWhatIsHiddenStays) {
    Type(*form, "txtFilterDBS", "PAY");
    EXPECT_EQ(Shown(), "Payment > Order");
    dbs->setFocus();
    Press(*dbs, Qt::Key_A, Qt::ControlModifier);
    Press(*dbs, Qt::Key_Return);
    EXPECT_EQ(Shown(), " > Order|Payment");
    EXPECT_FALSE(IsEnabled(*form, "cmdToTSO"));
    Type(*form, "txtFilterDBS", "");
    EXPECT_EQ(Shown(), "Supplier|Customer (buyer) > Order|Payment");
}

TEST_F(FrmTSOSelectTablesTest, SortAndToggleChangeTheListsAlone) {
    Execute("update [Table] set [Name] = 'order' where [Id] = 4");
    ClickRow(*dbs, 2);
    Click(*form, "cmdToTSO");
    Click(*form, "cmdSortTSODesc");
    Click(*form, "cmdSortDBSAsc");
    EXPECT_EQ(Shown(), "Customer (buyer)|Supplier > Payment|Order");
    Click(*form, "cmdToggleName");
    EXPECT_EQ(Shown(), "(buyer) Customer|Supplier > Payment|Order");
    ClickRow(*dbs, 0);
    Press(*dbs, Qt::Key_Enter);
    Click(*form, "cmdSortTSOAsc");
    EXPECT_EQ(Shown(), "Supplier > (buyer) Customer|Order|Payment");
    Click(*form, "cmdToggleName");
    Click(*form, "cmdSortTSODesc");
    EXPECT_EQ(Shown(), "Supplier > Payment|Order|Customer (buyer)");
    EXPECT_EQ(Stored(), "4\n3\n2");
    Click(*form, "cmdClose");
    EXPECT_FALSE(form->isVisible());
}

// Drags by the mouse, from the press to the release, on a platform that carries drags through.
class TableDragTest : public FrmTSOSelectTablesTest {
 protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != "minimal")
            GTEST_SKIP() << "no drags on this platform";
        FrmTSOSelectTablesTest::SetUp();
    }
    void TearDown() override {
        if (form)
            FrmTSOSelectTablesTest::TearDown();
    }

    void Drag(TableList& from, int row, TableList& to) {
        constexpr int settle = 100;
        constexpr int stretch = 8;  // two of these begin a drag
        QWindow* window = form->windowHandle();
        const QPoint start = from.viewport()->mapTo(form.get(), Place(from, row));
        const QPoint end = to.viewport()->mapTo(form.get(), to.viewport()->rect().center());
        QTimer::singleShot(settle, [=] {
            QTest::mouseMove(window, (start + end) / 2);
            QTest::mouseMove(window, end);
            QTest::mouseRelease(window, Qt::LeftButton, {}, end);
        });
        QTest::mousePress(window, Qt::LeftButton, {}, start);
        for (const int times : {1, 2, 3})
            QTest::mouseMove(window, start + QPoint(0, times * stretch));
        QTest::qWait(2 * settle);
    }
};

TEST_F(TableDragTest, TheSelectionGoesToTheOtherListOnly) {
    ClickRow(*dbs, 0);
    ClickRow(*dbs, 2, Qt::ControlModifier);
    Drag(*dbs, 2, *tso);
    EXPECT_EQ(Shown(), "Customer (buyer) > Order|Supplier|Payment");
    Drag(*tso, 0, *tso);
    EXPECT_EQ(Shown(), "Customer (buyer) > Order|Supplier|Payment");
    EXPECT_EQ(Stored(), "4\n1\n3");
    ClickRow(*tso, 1);
    Drag(*tso, 1, *dbs);
    EXPECT_EQ(Shown(), "Customer (buyer)|Supplier > Order|Payment");
    EXPECT_EQ(Stored(), "4\n3");
}

}  // namespace

}  // namespace vellumark::test
