#include "scenario/screens/frmParentChildDiagram.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGraphicsItem>
#include <QGraphicsView>
#include <QLineEdit>
#include <set>

#include "embedded.h"
#include "repository/modVellumark.h"
#include "scenario/modDependencyDiagram.h"
#include "scenario/modNewSchema.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modConnectionString.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

// The shop with a rule for order lines, which have two foreign keys.
class DiagramTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ReadShop();
        lines_ = AddTableRule(TableId("OrderLine"), 1, 20, true);
        CurrentTTRId = 0;
    }
    void TearDown() override {
        CurrentTTRId = 0;
        ScreenTest::TearDown();
    }

    int TableId(const std::string& name) {
        RepositoryScope repository;
        return dao::ToLong(RepositoryDatabase.Lookup("select [Id] from [Table] where [Name] = ?", {name}));
    }
    std::string RuleRows() {
        return Rows(
            "select [Id], [FK TAB Id], [Start Range], [End Range], [Quantity], [Flag Use Generated Data] "
            "from [TSO Insert Table Rule] where [FK TSO Id] > 0 order by 1");
    }
    // "text|solid" or "text|dashed" for each box, in the order they are drawn.
    static std::vector<std::string> Boxes(const QWidget& form) {
        std::vector<std::string> boxes;
        for (const QGraphicsItem* item :
             Child<QGraphicsView>(form, "MDraw").scene()->items(Qt::AscendingOrder)) {
            const auto* box = dynamic_cast<const QGraphicsRectItem*>(item);
            if (box == nullptr)
                continue;
            const auto* text = dynamic_cast<const QGraphicsSimpleTextItem*>(box->childItems().front());
            const bool red = box->brush().color() == QColor(255, 0, 0);
            boxes.push_back(text->text().replace('\n', ' ').toStdString() + (red ? "|red" : "|cyan") +
                            (box->pen().style() == Qt::DashLine ? "|dashed" : ""));
        }
        return boxes;
    }

    int lines_ = 0;
};

TEST_F(DiagramTest, ApplyMakesAForeignKeyWithItsParentRule) {
    frmParentChildDiagram form;
    form.show();
    EXPECT_EQ(TextOf(form, "cboTTR"), "OrderLine (1-20)");
    EXPECT_EQ(TextOf(form, "cboFK"), "OrderId");
    EXPECT_EQ(TextOf(form, "txtParent3") + "." + TextOf(form, "txtParentCol"), "CustomerOrder.OrderId");
    EXPECT_EQ(TextOf(form, "txtParStart") + "-" + TextOf(form, "txtParEnd"), "1-20");
    EXPECT_FALSE(IsEnabled(form, "cmdClearOne"));
    EXPECT_EQ(Boxes(form), (std::vector<std::string>{"OrderLine (1-20) Qty: 20|red",
                                                     "CustomerOrder OrderId (1-100) Qty: 100|cyan|dashed",
                                                     "Product ProductId (1-100) Qty: 100|cyan|dashed"}));
    Type(form, "txtQtyGenerate", "3");
    Type(form, "txtParEnd", "10");
    Child<QCheckBox>(form, "chkGenerate").click();
    Click(form, "cmdApply");
    EXPECT_EQ(TextOf(form, "txtChildQty"), "30");
    EXPECT_EQ(TextOf(form, "txtParQty"), "10");
    EXPECT_EQ(Child<QComboBox>(form, "cboTTR").count(), 2);
    const std::string rules = RuleRows();
    EXPECT_EQ(Count("resolver TTR dependency"), 1);
    EXPECT_EQ(Boxes(form)[1], "CustomerOrder OrderId (1-10) Qty: 10|red");

    Click(form, "cmdApply");
    EXPECT_EQ(RuleRows(), rules);
    Type(form, "txtQtyGenerate", "2");
    Child<QCheckBox>(form, "chkGenerate").click();
    Click(form, "cmdApply");
    EXPECT_EQ(TextOf(form, "txtChildQty"), "20");
    EXPECT_EQ(Child<QComboBox>(form, "cboTTR").count(), 1);
    EXPECT_EQ(Boxes(form)[1], "CustomerOrder OrderId (1-10) Qty: 10|cyan");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(DiagramTest, NumbersThatAreOffAreToldAndNotSaved) {
    const struct {
        const char *field, *text, *message;
    } cases[] = {
        {"txtChildStart", "21", "Child start range must be less than or equal to Child end range"},
        {"txtChildStart", "0", "Please enter a Child start range greater than zero"},
        {"txtParStart", "21", "Parent start range must be less than or equal to Parent end range"},
        {"txtQtyGenerate", "0", "Please enter a generation quantity greater than zero"},
        {"txtIncrement", "", "Please enter an increment quantity greater than zero"},
    };
    const std::string before = RuleRows();
    for (const auto& c : cases) {
        frmParentChildDiagram form;
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        Type(form, c.field, c.text);
        Click(form, "cmdApply");
        EXPECT_EQ(recorder.Take(), std::string("exclamation: ") + c.message);
        EXPECT_TRUE(Child<QLineEdit>(form, c.field).hasFocus()) << c.field;
        Choose(form, "cboFK", "ProductId");
        EXPECT_EQ(recorder.Take(),
                  std::string("exclamation: ") + c.message + "|exclamation: The last change was not saved.");
        EXPECT_EQ(TextOf(form, "txtParent3"), "Product");
        EXPECT_EQ(TextOf(form, "txtChildStart"), "1");
        Click(form, "cmdCancel");
        EXPECT_FALSE(form.isVisible());
    }
    EXPECT_EQ(RuleRows(), before);
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(DiagramTest, AChangeIsAppliedOnTheWayToAnotherForeignKey) {
    frmParentChildDiagram form;
    form.show();
    Type(form, "txtParEnd", "");
    Choose(form, "cboFK", "ProductId");
    EXPECT_EQ(Count("resolver TTR dependency"), 1);
    EXPECT_EQ(Rows("select [Start Range], [End Range], [Quantity] from [TSO Insert Table Rule] where [FK TSO "
                   "Id] > 0 "
                   "and [Flag Use Generated Data] = 0"),
              "1|1|1");
    Choose(form, "cboFK", "OrderId");
    EXPECT_EQ(Count("resolver TTR dependency"), 1);
    EXPECT_EQ(TextOf(form, "txtParEnd"), "1");
}

TEST_F(DiagramTest, ResettingAsksAndTakesStandAloneParents) {
    frmParentChildDiagram form;
    form.show();
    for (const char* key : {"ProductId", "OrderId"}) {
        Choose(form, "cboFK", key);
        Click(form, "cmdApply");
    }
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] > 0"), 3);
    recorder.yesNoAnswers = {false, true, true};
    Click(form, "cmdClearOne");
    EXPECT_EQ(Count("resolver TTR dependency"), 2);
    Click(form, "cmdClearOne");
    EXPECT_EQ(Count("resolver TTR dependency"), 1);
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] > 0"), 2);
    EXPECT_FALSE(IsEnabled(form, "cmdClearOne"));
    Click(form, "cmdClearAll");
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] > 0"), 1);
    EXPECT_EQ(Boxes(form)[2], "Product ProductId (1-100) Qty: 100|cyan|dashed");
}

TEST_F(DiagramTest, ClicksChooseAndMovedBoxesTakeTheirLinks) {
    AddTableRule(TableId("Customer"), 5, 0, true);
    CurrentTTRId = lines_;
    frmParentChildDiagram form;
    form.show();
    auto& view = Child<QGraphicsView>(form, "MDraw");
    const auto at = [&](qreal x, qreal y) { return view.mapFromScene(x, y); };
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(400, 300));
    EXPECT_EQ(TextOf(form, "cboFK"), "ProductId");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(100, 100));
    EXPECT_EQ(TextOf(form, "cboFK"), "ProductId");

    Child<QAbstractButton>(form, "optSelect").click();
    QGraphicsItem* const box = view.scene()->itemAt(400, 300, {});
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, at(400, 300));
    QTest::mouseMove(view.viewport(), at(420, 340));
    QTest::mouseMove(view.viewport(), at(500, 400));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at(500, 400));
    ASSERT_NE(box, nullptr);
    std::vector<QPointF> ends;
    for (const QGraphicsItem* item : view.scene()->items())
        if (item->data(kLink).toString() == "Link between OrderLine and Product")
            ends.push_back(dynamic_cast<const QGraphicsLineItem*>(item)->line().p2());
    ASSERT_EQ(ends.size(), 1U);
    EXPECT_NEAR(ends[0].x(), 500, 3);
    EXPECT_NEAR(ends[0].y(), 350, 3);

    Choose(form, "cboTTR", "Customer (5)");
    EXPECT_EQ(TextOf(form, "cboFK"), "");
    EXPECT_EQ(TextOf(form, "txtParent3"), "");
    EXPECT_FALSE(IsEnabled(form, "cmdApply"));
    EXPECT_EQ(Boxes(form), (std::vector<std::string>{"Customer (5) Qty: 1|red"}));
}

TEST_F(DiagramTest, ShowsFiveForeignKeysOneOfThemToItsOwnTable) {
    ConnectionDetails details;
    details.schemaName = "Five";
    details.mdbFile =
        MakeEmbedded(folder.Path("five.mdb"),
                     "create table a (id integer primary key);"
                     "create table node (id integer primary key, up integer references node (id),"
                     " a1 integer references a (id), a2 integer references a (id),"
                     " a3 integer references a (id), a4 integer references a (id));");
    fConnectionString(details);
    ASSERT_TRUE(fNewSchema({.kind = NewSchemaKind::Connection, .name = "Five", .connection = details}));
    AddTableRule(2, 1, 8, true);
    frmParentChildDiagram form;
    form.show();
    EXPECT_EQ(Boxes(form).size(), 6U);
    const QGraphicsScene& scene = *Child<QGraphicsView>(form, "MDraw").scene();
    std::set<qreal> lefts;
    for (const QGraphicsItem* item : scene.items())
        if (const auto* box = dynamic_cast<const QGraphicsRectItem*>(item);
            box && box->data(kFKCOLName).isValid())
            lefts.insert(box->rect().left());
    EXPECT_EQ(lefts, (std::set<qreal>{50, 300, 550, 800, 1050}));
    Choose(form, "cboFK", "up");
    EXPECT_EQ(TextOf(form, "txtParent3"), "node");
    Type(form, "txtParEnd", "2");
    Type(form, "txtQtyGenerate", "4");
    Click(form, "cmdApply");
    EXPECT_EQ(TextOf(form, "txtChildQty"), "8");
    EXPECT_EQ(Boxes(form)[1], "node up (1-2) Qty: 2|cyan");
    EXPECT_EQ(Count("TSO Insert Table Rule", "[FK TSO Id] > 0 and [FK DBS Id] = 2 and [FK TAB Id] = 2"), 2);
}

TEST_F(DiagramTest, WithoutRulesItSaysSo) {
    CreateScenario("Empty");
    const frmParentChildDiagram form;
    EXPECT_EQ(
        recorder.Take(),
        "exclamation: No tables were selected in this scenario for data generation, so there are no foreign "
        "keys to resolve!\nEdit the scenario and drag and drop the desired tables to the right hand tree to "
        "select them.");
}

}  // namespace

}  // namespace vellumark::test
