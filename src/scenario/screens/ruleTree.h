#pragma once

#include <QTreeWidget>
#include <functional>
#include <optional>
#include <vector>

#include "scenario/modRuleLists.h"
#include "scenario/screens/ruleDrag.h"

namespace vellumark {

// One of the two lists of the rule screen: the root, a node for each rule, and below it the rule's columns,
// which are read when the node is opened. It knows nodes and drags; what a drop does is the screen's.
class RuleTree : public QTreeWidget {
    Q_OBJECT

 public:
    explicit RuleTree(QWidget* parent = nullptr);

    using ColumnReader = std::function<std::vector<ColumnRuleNode>(int ruleId)>;
    // Without a reader rules have no columns.
    void SetUp(RuleSide side, ColumnReader columns);

    // Brings the list in line with the rules. Nodes that stay keep their columns and the current one stays
    // current; when it is gone the root is. Nothing is signalled.
    void ShowRules(const QString& rootText, const std::vector<TableRuleNode>& rules);
    // The same for the columns of a rule, when they are shown.
    void ReloadColumns(int ruleId);
    void SetRuleText(int ruleId, const QString& text);

    RulePlace Current() const;
    // Makes the node the current one, opening what is above it; nothing is signalled.
    void GoTo(RulePlace place);
    RulePlace FirstRule() const;
    // The table of a rule that is shown, or 0.
    int TableOf(int ruleId) const;
    // The neighbour of the same level, `step` nodes on, that the filter lets show; or the root.
    RulePlace Neighbour(RulePlace place, int step) const;
    // The next node of the same level, shown or not; or the root.
    RulePlace Next(RulePlace place) const;

    static RulePlace PlaceOf(const QTreeWidgetItem* item);

    // Shows the tables whose node has that text in it, and the current one.
    void FilterTables(const QString& text);
    // The list whose node is edited has the ground of a field; the other one lies back, grey even where its
    // current node is.
    void ShowFocused(bool focused);
    bool IsFocused() const { return focused_; }
    // What an empty list says.
    void SetHint(const QString& hint) { hint_ = hint; }

 signals:
    // The user went to another node, or came into the list.
    void Chosen();
    // Comes after the drag's own event loop has ended.
    void Dropped(const vellumark::RuleDrag& drag, const vellumark::RulePlace& target);

 protected:
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

 private:
    QTreeWidgetItem* Root() const { return topLevelItem(0); }
    QTreeWidgetItem* RuleItem(int ruleId) const;
    QTreeWidgetItem* Item(RulePlace place) const;
    void ArrangeRules(const std::vector<int>& ruleIds);
    void ReadColumns(QTreeWidgetItem* rule);
    void FillColumns(QTreeWidgetItem& rule);
    void ApplyFilter();
    bool Accepts(const RuleDrag& drag, RulePlace target) const;
    void ShowDropMark(const RuleDrag& drag, QTreeWidgetItem* target);
    void HideDropMark();
    void PaintHint();

    RuleSide side_ = RuleSide::TSO;
    ColumnReader columns_;
    bool focused_ = true;
    QString filter_;
    QString hint_;
    bool marksList_ = false;           // a drop would add to, or take from, the list as a whole
    QTreeWidgetItem* mark_ = nullptr;  // a drop would put the node above this one
};

}  // namespace vellumark
