// How the lists of the rule screen start a drag, mark where it would drop, and tell of the drop.

#include <QDrag>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QPainter>
#include <memory>

#include "scenario/screens/ruleTree.h"

namespace vellumark {

namespace {

constexpr int kMarkWidth = 2;
constexpr int kHintMargin = 24;

Qt::DropAction ActionOf(const RuleDrag& drag, RuleSide target) {
    return drag.source == RuleSide::TSO && target == RuleSide::TTR ? Qt::CopyAction : Qt::MoveAction;
}

}  // namespace

void RuleTree::startDrag(Qt::DropActions /*actions*/) {
    const RulePlace place = Current();
    if (place.ruleId == 0)
        return;
    QDrag* drag = std::make_unique<QDrag>(this).release();
    drag->setMimeData(EncodeRuleDrag({side_, place}).release());
    const QRect node = visualItemRect(currentItem()) & viewport()->rect();
    drag->setPixmap(viewport()->grab(node));
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - node.topLeft());
    drag->exec(Qt::CopyAction | Qt::MoveAction);
}

bool RuleTree::Accepts(const RuleDrag& drag, RulePlace target) const {
    if (drag.source != side_)
        return drag.place.IsTable();
    // A drop at the wrong place of the same list is taken too: the screen says what would be right.
    return target != drag.place && (drag.place.IsColumn() || target.ruleId != 0);
}

void RuleTree::ShowDropMark(const RuleDrag& drag, QTreeWidgetItem* target) {
    const RulePlace place = PlaceOf(target);
    const bool above =
        drag.source == side_ &&
        (drag.place.IsTable() ? place.IsTable() : place.IsColumn() && place.ruleId == drag.place.ruleId);
    mark_ = above ? target : nullptr;
    marksList_ = drag.source != side_;
    viewport()->update();
}

void RuleTree::HideDropMark() {
    mark_ = nullptr;
    marksList_ = false;
    viewport()->update();
}

void RuleTree::dragEnterEvent(QDragEnterEvent* event) {
    const std::optional<RuleDrag> drag = DecodeRuleDrag(*event->mimeData());
    event->setAccepted(drag.has_value());
    if (drag)
        setState(DraggingState);
}

void RuleTree::dragMoveEvent(QDragMoveEvent* event) {
    QTreeWidget::dragMoveEvent(event);  // scrolls at the edges
    event->ignore();
    HideDropMark();
    const std::optional<RuleDrag> drag = DecodeRuleDrag(*event->mimeData());
    QTreeWidgetItem* target = itemAt(event->position().toPoint());
    if (!drag || !Accepts(*drag, PlaceOf(target)))
        return;
    event->setDropAction(ActionOf(*drag, side_));
    event->accept();
    ShowDropMark(*drag, target);
}

void RuleTree::dragLeaveEvent(QDragLeaveEvent* event) {
    QTreeWidget::dragLeaveEvent(event);
    HideDropMark();
}

void RuleTree::dropEvent(QDropEvent* event) {
    stopAutoScroll();
    setState(NoState);
    HideDropMark();
    const std::optional<RuleDrag> drag = DecodeRuleDrag(*event->mimeData());
    const RulePlace target = PlaceOf(itemAt(event->position().toPoint()));
    if (!drag || !Accepts(*drag, target)) {
        event->ignore();
        return;
    }
    event->setDropAction(ActionOf(*drag, side_));
    event->accept();
    emit Dropped(*drag, target);
}

void RuleTree::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (Root() != nullptr && Root()->childCount() == 0)
        PaintHint();
    if (mark_ == nullptr && !marksList_)
        return;
    QPainter painter(viewport());
    painter.setPen(QPen(QGuiApplication::palette().color(QPalette::Highlight), kMarkWidth));
    if (marksList_) {
        painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
        return;
    }
    const QRect node = visualItemRect(mark_);
    painter.drawLine(node.left(), node.top(), viewport()->width(), node.top());
}

void RuleTree::PaintHint() {
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(kHintMargin, kHintMargin, -kHintMargin, -kHintMargin),
                     Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

}  // namespace vellumark
