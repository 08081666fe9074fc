#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "rule_screen.h"
#include "scenario/modDependencies.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "scenario/screens/modRefreshForms.h"

namespace vellumark::test {

namespace {

using FrmTTRTest = RuleScreenTest;

TEST_F(FrmTTRTest, InsertScenarioOpensAtItsFirstRule) {
    OpenInsert({Product, Customer});
    EXPECT_EQ(FromQt(screen->windowTitle()), "Edit Insert Data Scenario: Scenario to create data");
    EXPECT_EQ(Text("lblTSO"), "Schema Tables:");
    EXPECT_EQ(Text("lblTTR"), "Create data on following Tables:");
    EXPECT_EQ(Below(Defaults()), "Customer, Supplier, Product, CustomerOrder, OrderLine, Payment");
    EXPECT_EQ(Below(Rules()), "Product (1-10), Customer (1-10)");
    EXPECT_EQ(Below(Rules(), {1}),
              "CustomerId, FirstName, LastName, Email, Born, IsMember, CreditLimit, RegisteredAt");
    EXPECT_EQ(Rules().Current(), (RulePlace{1, 0}));
    EXPECT_EQ(Title("fraTable"), "Table Generation Details");
    EXPECT_EQ(Title("fraColumn"), "Column Generation Details");
    EXPECT_EQ(RangeFields(), "1-10: 10");
    const auto& tabs = Child<QTabWidget>(*screen, "vstDetails");
    const char* const captions[] = {"O&verride", "&Properties", "O&utput to Text File", "&Where Clause"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(FromQt(tabs.tabText(i)), captions[i]);
        EXPECT_EQ(tabs.isTabEnabled(i), i < 3) << i;
    }
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_TRUE(Rules().hasFocus());
}

TEST_F(FrmTTRTest, DeleteScenarioOpensAtItsWhereClause) {
    OpenDelete({Payment, Customer});
    EXPECT_EQ(FromQt(screen->windowTitle()), "Edit Delete Data Scenario: Scenario to delete data");
    EXPECT_EQ(Text("lblTTR"), "Delete data from following Tables:");
    EXPECT_EQ(Below(Rules()), "Payment, Customer");
    EXPECT_EQ(Below(Rules(), {0}) + Below(Defaults(), {0}), "");
    const auto& tabs = Child<QTabWidget>(*screen, "vstDetails");
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(tabs.isTabEnabled(i), i == 3) << i;
    for (const char* hidden : {"cmdDiagram", "txtTabStart", "txtTabEnd", "txtQuantity", "lblQuantity"})
        EXPECT_FALSE(IsShown(*screen, hidden)) << hidden;
    Child<QPlainTextEdit>(*screen, "rtfWhere").setPlainText("where 1 = 1");
    ClickNode(Rules(), {1});
    EXPECT_EQ(Text("rtfWhere"), "");
    ClickNode(Defaults(), {0});
    EXPECT_EQ(Title("fraTable") + "|" + Title("fraColumn"), "DEFAULT Table Details|DEFAULT Where Clause");
    Child<QPlainTextEdit>(*screen, "rtfWhere").setPlainText("where 2 = 2");
    Click(*screen, "cmdApply");
    ClickNode(Rules(), {});
    EXPECT_EQ(Title("fraTable") + "|" + Title("fraColumn"), "Table Details|Where Clause");
    for (const char* closed : {"rtfWhere", "cmdBuildWhere", "cmdApply", "cmdLoadFile"})
        EXPECT_FALSE(IsEnabled(*screen, closed)) << closed;
    EXPECT_EQ(Rows("select [FK TSO Id], [Id], [Where Clause] from [TSO Delete Table Rule] where [Where "
                   "Clause] <> '' "
                   "order by 1"),
              "0|1|where 2 = 2\n1|1|where 1 = 1");
}

TEST_F(FrmTTRTest, WhatIsEnabledFollowsTheSelection) {
    OpenInsert({Product});
    const struct {
        const char* tree;
        std::vector<int> path;
        const char* enabled;
    } cases[] = {
        {"TListTTR", {}, "cmdDiagram"},
        {"TListTTR", {0}, "cmdDiagram cmdLoadFile txtTabStart txtTabEnd cmdApply cmdRemove"},
        {"TListTTR", {0, 0}, "cmdDiagram cmdLoadFile txtTabStart txtTabEnd cmdApply optData cmdMoveDown"},
        {"TListTSO", {}, ""},
        {"TListTSO", {1}, "cmdLoadFile txtTabStart txtTabEnd cmdApply cmdAdd cmdMoveUp cmdMoveDown"},
        {"TListTSO", {5, 5}, "cmdLoadFile txtTabStart txtTabEnd cmdApply optData cmdMoveUp"},
    };
    for (const auto& c : cases) {
        ClickNode(Child<RuleTree>(*screen, c.tree), c.path);
        std::string enabled;
        for (const char* control : {"cmdDiagram", "cmdLoadFile", "txtTabStart", "txtTabEnd", "cmdApply",
                                    "optData", "cmdAdd", "cmdRemove", "cmdMoveUp", "cmdMoveDown"})
            if (IsEnabled(*screen, control))
                enabled.append(enabled.empty() ? "" : " ").append(control);
        EXPECT_EQ(enabled, c.enabled) << c.tree << " " << c.path.size();
        const bool defaults = c.tree == std::string("TListTSO");
        EXPECT_EQ(Title("fraColumn").starts_with("DEFAULT "), defaults);
        EXPECT_EQ(
            Defaults().palette().color(QPalette::Base) == QGuiApplication::palette().color(QPalette::Base),
            defaults);
        EXPECT_EQ(Child<QLabel>(*screen, "lblTSO").font().bold(), defaults);
        EXPECT_NE(Rules().palette().color(QPalette::Base), Defaults().palette().color(QPalette::Base));
    }
    // With the keyboard, too, what has the focus is what is shown.
    Rules().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(RuleScenarioId, CurrentTSOId);
    Defaults().setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(RuleScenarioId, 0);
}

TEST_F(FrmTTRTest, LeavingANodeAppliesIt) {
    OpenInsert({Product, Customer});
    Type(*screen, "txtTabStart", "5x0");
    Type(*screen, "txtTabEnd", "");
    ClickNode(Rules(), {1});
    EXPECT_EQ(StoredRange(2, 1), "50|0|1");
    EXPECT_EQ(Below(Rules()), "Product (50), Customer (1-10)");
    EXPECT_EQ(RangeFields(), "1-10: 10");

    Type(*screen, "txtTabEnd", "30");
    ClickNode(Rules(), {1, 2});  // a column of the rule shows the same range
    EXPECT_EQ(RangeFields(), "1-30: 30");
    ClickNode(Defaults(), {1});
    Type(*screen, "txtTabEnd", "7");
    ClickNode(Defaults(), {0});
    EXPECT_EQ(StoredRange(0, Supplier), "1|7|7");
    EXPECT_EQ(Below(Defaults()), "Customer, Supplier, Product, CustomerOrder, OrderLine, Payment");
    EXPECT_EQ(StoredRange(2, 2), "1|30|30");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmTTRTest, WrongRangesAreToldAndNothingIsStored) {
    OpenInsert({Product, Customer});
    const struct {
        const char *start, *end, *message, *field;
    } cases[] = {
        {"9", "3", "Start number must be less than or equal to end number", "txtTabStart"},
        {"0", "3", "Please enter a start number greater than zero", "txtTabStart"},
        {"", "", "Please enter a start number greater than zero", "txtTabStart"},
        {"1", "2147483648", "Please enter a number of at most 2147483647", "txtTabEnd"},
    };
    for (const auto& c : cases) {
        Type(*screen, "txtTabStart", c.start);
        Type(*screen, "txtTabEnd", c.end);
        Child<QWidget>(*screen, "cmdApply").setFocus();
        Click(*screen, "cmdApply");
        const auto& field = Child<QLineEdit>(*screen, c.field);
        EXPECT_EQ(recorder.Take(), std::string("exclamation: ") + c.message);
        EXPECT_TRUE(field.hasFocus()) << c.message;
        EXPECT_EQ(field.selectedText(), field.text());
    }
    // Only leaving the node lets go of it.
    ClickNode(Rules(), {1});
    EXPECT_EQ(recorder.Take(),
              "exclamation: Please enter a number of at most 2147483647|"
              "exclamation: The last modification has not been saved");
    EXPECT_EQ(Rules().Current(), (RulePlace{2, 0}));
    EXPECT_EQ(RangeFields(), "1-10: 10");
    EXPECT_EQ(StoredRange(2, 1), "1|10|10");
    EXPECT_EQ(Below(Rules()), "Product (1-10), Customer (1-10)");
}

TEST_F(FrmTTRTest, ValueSourceNodeFollowsTheColumnRule) {
    OpenInsert({Customer});
    {
        const RepositoryScope repository;
        for (const int scenario : {0, 2}) {
            RepositoryDatabase.Execute(
                "update [TSO Insert Column Rule] set [Code Generate Data Type] = 'V' where [FK TSO Id] = ? "
                "and "
                "[FK TTR Id] = 1 and [Id] = 2",
                {scenario});
            RepositoryDatabase.Execute(
                "insert into [Value Source] ([FK DBS Id], [FK TSO Id], [FK TTR Id], [FK TCR Id], [FK TAB "
                "Id], [FK "
                "COL Id], [Type], [Name and Path]) values (1, ?, 1, 2, 1, 2, 'D', '/tmp/names.txt')",
                {scenario});
        }
    }
    for (RuleTree* tree : {&Rules(), &Defaults()}) {
        EXPECT_EQ(Below(*tree, {0, 1}), "File: names.txt");
        ClickNode(*tree, {0, 1, 0});  // the node of the source stands for its column
        EXPECT_EQ(tree->Current(), (RulePlace{1, 2}));
        EXPECT_EQ(CurrentTCRId, 2);
        Click(*screen, "optData");
        ClickNode(*tree, {0, 3});
        EXPECT_EQ(Below(*tree, {0, 1}), "");
        EXPECT_EQ(tree->Current(), (RulePlace{1, 4}));
        ClickNode(*tree, {0, 1});
        Click(*screen, "optFile");
        Click(*screen, "cmdApply");
        EXPECT_EQ(Below(*tree, {0, 1}), "File: names.txt");
        Click(*screen, "optData");
        ClickNode(*tree, {0, 1, 0});  // the node clicked goes while its column is left: it is the same column
        EXPECT_EQ(tree->Current(), (RulePlace{1, 2}));
        ClickNode(*tree, {});
    }
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmTTRTest, ColumnFedByItsParentIsNeverStored) {
    OpenInsert({Customer, Product});
    DependencyDetails details;
    ASSERT_TRUE(fReadDependency(2, "SupplierId", details));
    details.quantityPerParent = 3;
    ASSERT_TRUE(fApplyDependency(details));
    ClickNode(Rules(), {1, 1});
    EXPECT_EQ(Text("txtConstVal"), "This foreign key has been SET to be resolved by it's parent.");
    Type(*screen, "txtTabEnd", "500");
    ClickNode(Rules(), {1, 2});
    EXPECT_EQ(StoredRange(2, 2), "1|500|30");  // ten parents of three children
    EXPECT_EQ(RangeFields(), "1-500: 30");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[Constant Value] like 'This foreign%'"), 0);
}

TEST_F(FrmTTRTest, ClosingAppliesAndNeverHolds) {
    OpenInsert({Customer});
    Type(*screen, "txtTabEnd", "20");
    Press(*screen, Qt::Key_Escape);
    EXPECT_FALSE(screen->isVisible());
    EXPECT_EQ(StoredRange(2, 1), "1|20|20");
    Show();
    Type(*screen, "txtTabStart", "99");
    screen->close();
    EXPECT_FALSE(screen->isVisible());
    EXPECT_EQ(recorder.Take(),
              "exclamation: Start number must be less than or equal to end number|"
              "exclamation: The last change was not saved.");
    EXPECT_EQ(StoredRange(2, 1), "1|20|20");
}

TEST_F(FrmTTRTest, OneInstanceFollowsTheCurrentScenario) {
    OpenInsert({Customer});
    screen.reset();
    ShowRuleScreen(nullptr);
    const auto shown = [] {
        QWidgetList screens;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "frmTTR" && window->isVisible())
                screens.append(window);
        return screens;
    };
    auto& form = dynamic_cast<frmTTR&>(*shown().at(0));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    Type(form, "txtTabEnd", "40");
    CurrentTTRId = 99;  // other screens go their own ways
    ASSERT_TRUE(OpenScenario("Scenario to delete data"));
    ShowRuleScreen(nullptr);
    EXPECT_EQ(shown(), QWidgetList{&form});
    EXPECT_EQ(FromQt(form.windowTitle()), "Edit Delete Data Scenario: Scenario to delete data");
    EXPECT_FALSE(IsShown(form, "txtTabEnd"));
    EXPECT_EQ(CurrentTSOType, 'D');
    EXPECT_EQ(StoredRange(2, 1), "1|40|40");

    ASSERT_TRUE(OpenScenario("Scenario to create data"));
    form.ShowData();
    EXPECT_EQ(TextOf(form, "txtTabEnd"), "40");
    // Rules that came and went elsewhere.
    AddTableRule(Payment, 1, 5, true);
    RemoveTableRule(1);
    form.ShowData();
    EXPECT_EQ(Below(Child<RuleTree>(form, "TListTTR")), "Payment (1-5)");
    EXPECT_EQ(TextOf(form, "txtTabEnd"), "");
    // A range set elsewhere is not overwritten by the one that was shown.
    ClickNode(Child<RuleTree>(form, "TListTTR"), {0});
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(
            "update [TSO Insert Table Rule] set [End Range] = 9, [Quantity] = 9 where [FK TSO Id] = 2");
    }
    form.ShowData();
    EXPECT_EQ(TextOf(form, "txtTabEnd"), "9");
    ASSERT_TRUE(DeleteScenario());
    form.ShowData();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmTTRTest, OtherScreensOpenOnAppliedDetails) {
    OpenInsert({Customer, Product});
    ClickNode(Rules(), {1});
    const auto generateIsUp = [] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "frmGenerateData" && window->isVisible())
                return window->close();
        return false;
    };
    int end = 50;
    for (const char* button : {"cmdGenerate", "cmdLoadFile", "cmdDiagram"}) {
        Type(*screen, "txtTabEnd", std::to_string(++end));
        if (button == std::string("cmdDiagram"))
            WhenShown("frmParentChildDiagram", [&](QWidget& diagram) {
                EXPECT_EQ(TextOf(diagram, "cboTTR"), "Product (1-53)");
                Type(diagram, "txtQtyGenerate", "2");
                Click(diagram, "cmdApply");
                CurrentTTRId = 1;
                diagram.close();
            });
        if (button == std::string("cmdLoadFile"))
            WhenShown("frmCreateLoadFile", [](QWidget& file) {
                EXPECT_EQ(TextOf(file, "lblTable"), "Product");
                Click(file, "cmdClose");
            });
        Click(*screen, button);
        EXPECT_EQ(generateIsUp(), button == std::string("cmdGenerate"));
        EXPECT_EQ(CurrentTTRId, 2);
    }
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(RangeFields(), "1-53: 106");  // as the diagram left it
    EXPECT_EQ(CurrentTSOId, 2);

    Type(*screen, "txtTabStart", "0");
    for (const char* button : {"cmdGenerate", "cmdLoadFile", "cmdDiagram"}) {
        Click(*screen, button);
        EXPECT_EQ(recorder.Take(), "exclamation: Please enter a start number greater than zero");
    }
    EXPECT_FALSE(generateIsUp());
}

}  // namespace

}  // namespace vellumark::test
