#include "rule_screen.h"

#include <QDropEvent>
#include <QGroupBox>
#include <stdexcept>

#include "platform/screens/qtText.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"

namespace vellumark::test {

void RuleScreenTest::TearDown() {
    screen.reset();
    ScreenTest::TearDown();
}

void RuleScreenTest::OpenInsert(const std::vector<Table>& rules) {
    ReadShop();
    ASSERT_TRUE(OpenScenario("Scenario to create data"));
    for (const Table table : rules)
        AddTableRule(table, 1, 10, true);
    screen = std::make_unique<frmTTR>(nullptr);
    Show();
}

void RuleScreenTest::OpenDelete(const std::vector<Table>& rules) {
    ReadShop();
    ASSERT_TRUE(OpenScenario("Scenario to delete data"));
    for (const Table table : rules)
        AddDeleteTableRule(table, "");
    screen = std::make_unique<frmTTR>(nullptr);
    Show();
}

void RuleScreenTest::Show() {
    screen->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(screen.get()));
}

QTreeWidgetItem& RuleScreenTest::Node(RuleTree& tree, const std::vector<int>& path) {
    QTreeWidgetItem* item = tree.topLevelItem(0);
    for (const int at : path) {
        tree.expandItem(item);
        item = item->child(at);
        if (item == nullptr)
            throw std::runtime_error("no such node");
    }
    tree.scrollToItem(item);
    return *item;
}

void RuleScreenTest::ClickNode(RuleTree& tree, const std::vector<int>& path) {
    const QRect row = tree.visualItemRect(&Node(tree, path));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, row.center());
}

std::string RuleScreenTest::Below(RuleTree& tree, const std::vector<int>& path) {
    QTreeWidgetItem& node = Node(tree, path);
    tree.expandItem(&node);
    std::string text;
    for (int i = 0; i < node.childCount(); ++i)
        if (!node.child(i)->isHidden())
            text.append(text.empty() ? "" : ", ").append(FromQt(node.child(i)->text(0)));
    return text;
}

// This platform ends a drag as soon as it begins, so the events of one are sent by hand.
void RuleScreenTest::Drop(RuleTree& from, const std::vector<int>& node, RuleTree& onto,
                          const std::optional<std::vector<int>>& target) {
    ClickNode(from, node);
    const auto data = EncodeRuleDrag({&from == &Defaults() ? RuleSide::TSO : RuleSide::TTR, from.Current()});
    const QPoint position = target ? onto.visualItemRect(&Node(onto, *target)).center()
                                   : onto.viewport()->rect().bottomLeft() + QPoint(20, -5);
    const auto actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(position, actions, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(onto.viewport(), &enter);
    QDragMoveEvent move(position, actions, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(onto.viewport(), &move);
    QDropEvent drop(position, actions, data.get(), Qt::LeftButton, {});
    if (move.isAccepted())
        QApplication::sendEvent(onto.viewport(), &drop);
    QCoreApplication::processEvents();
}

std::string RuleScreenTest::Title(const char* group) {
    return FromQt(Child<QGroupBox>(*screen, group).title());
}

std::string RuleScreenTest::RangeFields() {
    return Text("txtTabStart") + "-" + Text("txtTabEnd") + ": " + Text("txtQuantity");
}

std::string RuleScreenTest::StoredRange(int scenarioId, int ruleId) {
    return Rows(
        "select [Start Range], [End Range], [Quantity] from [TSO Insert Table Rule] where [FK TSO Id] = " +
        std::to_string(scenarioId) + " and [Id] = " + std::to_string(ruleId));
}

}  // namespace vellumark::test
