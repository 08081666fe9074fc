#include <QPlainTextEdit>

#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "rule_screen.h"
#include "scenario/modRuleSelection.h"

namespace vellumark::test {

namespace {

using FrmTTRRulesTest = RuleScreenTest;

TEST_F(FrmTTRRulesTest, RulesAreAddedByDraggingKeyAndButton) {
    OpenInsert();
    EXPECT_EQ(Rules().Current(), RulePlace{});
    ClickNode(Defaults(), {2});
    Type(*screen, "txtTabEnd", "25");  // not applied yet
    Drop(Defaults(), {2}, Rules(), std::nullopt);
    EXPECT_EQ(Below(Rules()), "Product (1-25)");
    EXPECT_EQ(Rules().Current(), (RulePlace{1, 0}));
    EXPECT_EQ(RuleScenarioId, CurrentTSOId);
    EXPECT_TRUE(Rules().hasFocus());
    EXPECT_EQ(StoredRange(0, Product), "1|25|25");  // left by the new rule's choice

    ClickNode(Defaults(), {2});
    Press(Defaults(), Qt::Key_Insert);
    Press(Defaults(), Qt::Key_Insert);  // the list still has the keyboard
    Click(*screen, "cmdMoveUp");        // moves the rule just added, which is highlighted
    Press(Defaults(), Qt::Key_Down);
    EXPECT_EQ(RuleScenarioId, 0);
    Click(*screen, "cmdAdd");
    EXPECT_EQ(Below(Rules()), "Product (1-25), Product (1-25), Product (1-25), CustomerOrder (1-100)");
    EXPECT_EQ(
        Rows(
            "select [Id], [Sort Order], [Flag Use Generated Data] from [TSO Insert Table Rule] where [FK TSO "
            "Id] = 2"),
        "1|1|-1\n2|3|-1\n3|2|-1\n4|4|-1");
    EXPECT_EQ(Below(Rules(), {3}), "OrderId, CustomerId, OrderedAt, Status, Weight");

    // A column is no table, and a range that can't be is told before it makes a rule.
    Drop(Defaults(), {0, 0}, Rules(), std::nullopt);
    ClickNode(Defaults(), {0});
    Type(*screen, "txtTabStart", "0");
    Drop(Defaults(), {0}, Rules(), std::nullopt);
    EXPECT_EQ(recorder.Take(), "exclamation: Please enter a start number greater than zero");
    EXPECT_EQ(Rules().topLevelItem(0)->childCount(), 4);
}

TEST_F(FrmTTRRulesTest, DeleteRulesTakeTheWhereClauseOnScreen) {
    OpenDelete();
    ClickNode(Defaults(), {3});
    Child<QPlainTextEdit>(*screen, "rtfWhere").setPlainText("where [Status] = 'closed'");
    Drop(Defaults(), {3}, Rules(), std::vector<int>{});
    EXPECT_EQ(Text("rtfWhere"), "where [Status] = 'closed'");
    ClickNode(Defaults(), {0});
    Press(Defaults(), Qt::Key_Insert);
    EXPECT_EQ(Below(Rules()), "CustomerOrder, Customer");
    Rules().setFocus();
    Press(Rules(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Below(Rules()), "Customer, CustomerOrder");
    ClickNode(Rules(), {1});
    Press(Rules(), Qt::Key_Delete);
    EXPECT_EQ(Rows("select [Id], [Where Clause] from [TSO Delete Table Rule] where [FK TSO Id] = 1"), "2|");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmTTRRulesTest, RulesAreRemovedByDraggingKeyAndButtonWithoutAQuestion) {
    OpenInsert({Customer, Product, Supplier, Payment});
    Drop(Rules(), {1}, Defaults(), std::vector<int>{4});
    EXPECT_EQ(Below(Rules()), "Customer (1-10), Supplier (1-10), Payment (1-10)");
    EXPECT_EQ(Rules().Current(), RulePlace{});
    EXPECT_EQ(CurrentTTRId, 0);
    EXPECT_EQ(RangeFields(), "-: ");
    ClickNode(Rules(), {0});
    Press(Rules(), Qt::Key_Delete);
    ClickNode(Rules(), {0});
    ClickNode(Defaults(), {0});
    Click(*screen, "cmdRemove");
    EXPECT_EQ(Below(Rules()), "Payment (1-10)");
    Drop(Rules(), {0, 1}, Defaults(), std::nullopt);  // a column can't be taken out
    EXPECT_EQ(Rows("select [Id] from [TSO Insert Table Rule] where [FK TSO Id] = 2"), "4");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TSO Id] = 2"), 6);
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmTTRRulesTest, DropsWithinAListReorderIt) {
    OpenInsert({Customer, Supplier, Payment});
    const char* const ontoTable =
        "information: Drop the selected table onto a target table to move it above the target.";
    const char* const sameTable = "information: You can only move a column within the same table";
    const char* const ontoColumn =
        "information: Drop the selected column onto a target column to move it above the target.";
    const struct {
        std::vector<int> source, target;
        const char *rules, *columns, *message;
    } cases[] = {
        {{2}, {0}, "Payment, Customer, Supplier", "SupplierId, Name, Country, OpensAt", ""},
        {{0}, {2}, "Customer, Payment, Supplier", "SupplierId, Name, Country, OpensAt", ""},
        {{0}, {}, "Customer, Payment, Supplier", "SupplierId, Name, Country, OpensAt", ""},
        {{0}, {2, 1}, "Customer, Payment, Supplier", "SupplierId, Name, Country, OpensAt", ontoTable},
        {{2, 3}, {2, 0}, "Customer, Payment, Supplier", "OpensAt, SupplierId, Name, Country", ""},
        {{2, 3}, {1, 0}, "Customer, Payment, Supplier", "OpensAt, SupplierId, Name, Country", sameTable},
        {{2, 3}, {}, "Customer, Payment, Supplier", "OpensAt, SupplierId, Name, Country", sameTable},
        {{2, 3}, {2}, "Customer, Payment, Supplier", "OpensAt, SupplierId, Name, Country", ontoColumn},
    };
    const auto tables = [this] { return FromQt(ToQt(Below(Rules())).remove(" (1-10)")); };
    for (const auto& c : cases) {
        Drop(Rules(), c.source, Rules(), c.target);
        EXPECT_EQ(tables(), c.rules);
        EXPECT_EQ(Below(Rules(), {2}), c.columns);
        EXPECT_EQ(recorder.Take(), c.message);
    }
    EXPECT_EQ(Rows("select [Id] from [TSO Insert Table Rule] where [FK TSO Id] = 2 order by [Sort Order]"),
              "1\n3\n2");
    // The defaults have an order of their own.
    Drop(Defaults(), {5}, Defaults(), std::vector<int>{0});
    EXPECT_EQ(Below(Defaults()), "Payment, Customer, Supplier, Product, CustomerOrder, OrderLine");
    EXPECT_EQ(tables(), "Customer, Payment, Supplier");
}

TEST_F(FrmTTRRulesTest, KeysMoveWhatIsSelectedPastItsNeighbourInSight) {
    OpenInsert({Customer, CustomerOrder, Supplier, Payment});
    ClickNode(Rules(), {3});
    Press(Rules(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Below(Rules()), "Customer (1-10), CustomerOrder (1-10), Payment (1-10), Supplier (1-10)");
    EXPECT_EQ(Rules().Current(), (RulePlace{4, 0}));
    ClickNode(Rules(), {0});
    Type(*screen, "txtFilterTTR", "PAY");
    EXPECT_EQ(Below(Rules()), "Customer (1-10), Payment (1-10)");  // the selected one stays in sight
    Rules().setFocus();
    Press(Rules(), Qt::Key_Down, Qt::ControlModifier);
    Type(*screen, "txtFilterTTR", "");
    EXPECT_EQ(Below(Rules()), "CustomerOrder (1-10), Payment (1-10), Customer (1-10), Supplier (1-10)");
    Click(*screen, "cmdMoveDown");
    EXPECT_FALSE(IsEnabled(*screen, "cmdMoveDown"));
    EXPECT_EQ(Rows("select [Id] from [TSO Insert Table Rule] where [FK TSO Id] = 2 order by [Sort Order]"),
              "2\n4\n3\n1");
    ClickNode(Defaults(), {1, 0});
    Press(Defaults(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Below(Defaults(), {1}), "Name, SupplierId, Country, OpensAt");
    EXPECT_EQ(Defaults().Current(), (RulePlace{Supplier, 1}));
}

TEST_F(FrmTTRRulesTest, KeyboardAloneFindsAndAddsATable) {
    OpenInsert({Supplier});
    Type(*screen, "txtFilterTTR", "nothing like it");
    EXPECT_EQ(Below(Rules()), "Supplier (1-10)");
    Child<QWidget>(*screen, "txtFilterTSO").setFocus();
    QTest::keyClicks(QApplication::focusWidget(), "order");
    EXPECT_EQ(Below(Defaults()), "CustomerOrder, OrderLine");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Insert})
        Press(*QApplication::focusWidget(), key);
    EXPECT_EQ(Below(Rules()), "Supplier (1-10), OrderLine (1-100)");  // the new rule is in sight

    // From the range on through the column's fields to the buttons.
    ClickNode(Rules(), {0, 1});
    Child<QWidget>(*screen, "txtTabEnd").setFocus();
    std::string way;
    for (int i = 0; i < 16; ++i) {
        Press(*QApplication::focusWidget(), Qt::Key_Tab);
        way += FromQt(QApplication::focusWidget()->objectName()) + " ";
    }
    EXPECT_TRUE(way.starts_with("txtQuantity qt_tabwidget_tabbar optData optIncluded ")) << way;
    EXPECT_NE(way.find(" cmdDiagram cmdLoadFile cmdGenerate cmdApply cmdCancel "), std::string::npos) << way;
}

}  // namespace

}  // namespace vellumark::test
