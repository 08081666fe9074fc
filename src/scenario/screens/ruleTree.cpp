#include "scenario/screens/ruleTree.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>
#include <map>
#include <memory>

#include "platform/screens/icons.h"
#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

constexpr double kFaint = 0.18;

QColor Mixed(const QColor& ground, const QColor& ink, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(ground.red(), ink.red()), mix(ground.green(), ink.green()), mix(ground.blue(), ink.blue())};
}

// In a list without the focus a selected node keeps the colours of an ordinary one on a faint ground.
class NodeDelegate : public QStyledItemDelegate {
 public:
    explicit NodeDelegate(RuleTree& tree) : QStyledItemDelegate(&tree), tree_(tree) {}

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (tree_.IsFocused() || !option->state.testFlag(QStyle::State_Selected))
            return;
        option->state.setFlag(QStyle::State_Selected, false);
        option->backgroundBrush = option->palette.highlight();
    }

 private:
    RuleTree& tree_;
};

enum ItemRole { RuleRole = Qt::UserRole, TableRole, ColumnRole, ColumnsReadRole };

QTreeWidgetItem* NewItem(RulePlace place, const QString& text, const QIcon& icon) {
    auto item = std::make_unique<QTreeWidgetItem>();
    item->setData(0, RuleRole, place.ruleId);
    item->setData(0, ColumnRole, place.columnId);
    item->setText(0, text);
    item->setIcon(0, icon);
    return item.release();
}

QIcon ColumnIcon(const ColumnRuleNode& column) {
    return LineIcon(column.foreignKey ? "link" : column.identifier ? "key" : "column");
}

void ShowSource(QTreeWidgetItem& column, const std::string& source) {
    if (source.empty()) {
        qDeleteAll(column.takeChildren());
        return;
    }
    column.setExpanded(true);
    if (column.childCount() == 0)
        column.addChild(NewItem(RuleTree::PlaceOf(&column), "", LineIcon("value-source")));
    column.child(0)->setText(0, ToQt(source));
    column.child(0)->setToolTip(0, ToQt(source));
}

// Where a node comes from and goes to, its columns go along, but closed.
void OpenRule(QTreeWidgetItem& rule) {
    rule.setExpanded(true);
    for (int i = 0; i < rule.childCount(); ++i)
        rule.child(i)->setExpanded(true);
}

bool ShowsThese(const QTreeWidgetItem& parent, ItemRole role, const std::vector<int>& ids) {
    if (parent.childCount() != static_cast<int>(ids.size()))
        return false;
    for (int i = 0; i < parent.childCount(); ++i)
        if (parent.child(i)->data(0, role).toInt() != ids[static_cast<std::size_t>(i)])
            return false;
    return true;
}

template <class Node>
std::vector<int> IdsOf(const std::vector<Node>& nodes) {
    std::vector<int> ids;
    for (const Node& node : nodes)
        ids.push_back(node.ruleId);
    return ids;
}

}  // namespace

RuleTree::RuleTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(1);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setItemDelegate(std::make_unique<NodeDelegate>(*this).release());
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(this, &QTreeWidget::currentItemChanged, this, &RuleTree::Chosen);
    connect(this, &QTreeWidget::itemExpanded, this, &RuleTree::ReadColumns);
}

void RuleTree::SetUp(RuleSide side, ColumnReader columns) {
    side_ = side;
    columns_ = std::move(columns);
    const QSignalBlocker quiet(this);
    clear();
    addTopLevelItem(NewItem({}, "", LineIcon(side == RuleSide::TSO ? "database" : "scenario")));
    Root()->setExpanded(true);
    setCurrentItem(Root());
}

void RuleTree::ShowRules(const QString& rootText, const std::vector<TableRuleNode>& rules) {
    const QSignalBlocker quiet(this);
    HideDropMark();
    Root()->setText(0, rootText);
    if (!ShowsThese(*Root(), RuleRole, IdsOf(rules)))
        ArrangeRules(IdsOf(rules));
    for (std::size_t i = 0; i < rules.size(); ++i) {
        QTreeWidgetItem& item = *Root()->child(static_cast<int>(i));
        item.setText(0, ToQt(rules[i].text));
        item.setData(0, TableRole, rules[i].tableId);
    }
    ApplyFilter();
}

void RuleTree::ArrangeRules(const std::vector<int>& ruleIds) {
    const RulePlace current = Current();
    const int scrolled = verticalScrollBar()->value();
    std::map<int, QTreeWidgetItem*> known;
    std::vector<QTreeWidgetItem*> open;
    for (int i = 0; i < Root()->childCount(); ++i) {
        QTreeWidgetItem* item = Root()->child(i);
        known.emplace(PlaceOf(item).ruleId, item);
        if (item->isExpanded())
            open.push_back(item);
    }
    Root()->takeChildren();
    const QIcon icon = LineIcon("table");
    QList<QTreeWidgetItem*> items;
    for (const int ruleId : ruleIds) {
        auto node = known.extract(ruleId);
        items.append(node ? node.mapped() : NewItem({ruleId, 0}, "", icon));
        if (columns_)
            items.back()->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    }
    Root()->addChildren(items);
    for (QTreeWidgetItem* item : open)
        if (items.contains(item))
            OpenRule(*item);
    for (const auto& [ruleId, item] : known)
        delete item;
    GoTo(current);
    verticalScrollBar()->setValue(scrolled);
}

void RuleTree::ReadColumns(QTreeWidgetItem* rule) {
    if (columns_ && PlaceOf(rule).IsTable() && !rule->data(0, ColumnsReadRole).toBool())
        FillColumns(*rule);
}

void RuleTree::FillColumns(QTreeWidgetItem& rule) {
    const QSignalBlocker quiet(this);
    const RulePlace current = Current();
    const int ruleId = PlaceOf(&rule).ruleId;
    const std::vector<ColumnRuleNode> columns = columns_(ruleId);
    rule.setData(0, ColumnsReadRole, true);
    if (!ShowsThese(rule, ColumnRole, IdsOf(columns))) {
        qDeleteAll(rule.takeChildren());
        for (const ColumnRuleNode& column : columns)
            rule.addChild(NewItem({ruleId, column.ruleId}, ToQt(column.text), ColumnIcon(column)));
    }
    for (std::size_t i = 0; i < columns.size(); ++i)
        ShowSource(*rule.child(static_cast<int>(i)), columns[i].source);
    if (Current() != current)
        GoTo(current);
}

void RuleTree::ReloadColumns(int ruleId) {
    QTreeWidgetItem* rule = RuleItem(ruleId);
    if (rule != nullptr && rule->data(0, ColumnsReadRole).toBool())
        FillColumns(*rule);
}

void RuleTree::SetRuleText(int ruleId, const QString& text) {
    if (QTreeWidgetItem* rule = RuleItem(ruleId))
        rule->setText(0, text);
}

RulePlace RuleTree::PlaceOf(const QTreeWidgetItem* item) {
    if (item == nullptr)
        return {};
    return {item->data(0, RuleRole).toInt(), item->data(0, ColumnRole).toInt()};
}

RulePlace RuleTree::Current() const {
    return PlaceOf(currentItem());
}

void RuleTree::GoTo(RulePlace place) {
    const QSignalBlocker quiet(this);
    if (QTreeWidgetItem* rule = place.IsColumn() ? RuleItem(place.ruleId) : nullptr)
        ReadColumns(rule);
    if (QTreeWidgetItem* rule = RuleItem(place.ruleId))
        rule->setHidden(false);
    QTreeWidgetItem* item = Item(place);
    setCurrentItem(item == nullptr ? Root() : item);
    if (item != nullptr)
        scrollToItem(item);
}

RulePlace RuleTree::FirstRule() const {
    return PlaceOf(Root()->child(0));
}

int RuleTree::TableOf(int ruleId) const {
    const QTreeWidgetItem* rule = RuleItem(ruleId);
    return rule == nullptr ? 0 : rule->data(0, TableRole).toInt();
}

RulePlace RuleTree::Neighbour(RulePlace place, int step) const {
    QTreeWidgetItem* item = Item(place);
    if (item == nullptr || item == Root())
        return {};
    const QTreeWidgetItem* parent = item->parent();
    for (int i = parent->indexOfChild(item) + step; i >= 0 && i < parent->childCount(); i += step)
        if (!parent->child(i)->isHidden())
            return PlaceOf(parent->child(i));
    return {};
}

RulePlace RuleTree::Next(RulePlace place) const {
    QTreeWidgetItem* item = Item(place);
    return item == nullptr || item == Root()
               ? RulePlace{}
               : PlaceOf(item->parent()->child(item->parent()->indexOfChild(item) + 1));
}

void RuleTree::FilterTables(const QString& text) {
    filter_ = text;
    ApplyFilter();
    if (currentItem() != nullptr)
        scrollToItem(currentItem());
}

void RuleTree::ShowFocused(bool focused) {
    focused_ = focused;
    QPalette palette = QGuiApplication::palette();
    if (!focused) {
        const QColor ground = palette.color(QPalette::Window);
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Highlight, Mixed(ground, palette.color(QPalette::WindowText), kFaint));
    }
    setPalette(palette);
}

void RuleTree::ApplyFilter() {
    const int current = Current().ruleId;
    for (int i = 0; i < Root()->childCount(); ++i) {
        QTreeWidgetItem& item = *Root()->child(i);
        const bool shown =
            item.text(0).contains(filter_, Qt::CaseInsensitive) || PlaceOf(&item).ruleId == current;
        if (item.isHidden() == shown)
            item.setHidden(!shown);
    }
}

void RuleTree::focusInEvent(QFocusEvent* event) {
    QTreeWidget::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        emit Chosen();
}

void RuleTree::mousePressEvent(QMouseEvent* event) {
    const QTreeWidgetItem* before = currentItem();
    QTreeWidget::mousePressEvent(event);
    // The current node is chosen anew when the other list had the focus.
    if (currentItem() == before && itemAt(event->position().toPoint()) == before)
        emit Chosen();
}

QTreeWidgetItem* RuleTree::RuleItem(int ruleId) const {
    for (int i = 0; i < Root()->childCount(); ++i)
        if (PlaceOf(Root()->child(i)).ruleId == ruleId)
            return Root()->child(i);
    return nullptr;
}

QTreeWidgetItem* RuleTree::Item(RulePlace place) const {
    if (place.ruleId == 0)
        return Root();
    QTreeWidgetItem* rule = RuleItem(place.ruleId);
    if (rule == nullptr || !place.IsColumn())
        return rule;
    for (int i = 0; i < rule->childCount(); ++i)
        if (PlaceOf(rule->child(i)) == place)
            return rule->child(i);
    return nullptr;
}

}  // namespace vellumark
