#include "scenario/screens/diagramScene.h"

#include <QApplication>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSimpleTextItem>
#include <QPalette>
#include <QPen>

#include "platform/screens/qtText.h"
#include "scenario/screens/diagramBox.h"

namespace vellumark {

namespace {

const QRectF kChildPlace(50, 50, 200, 100);
constexpr int kBoxWidth = 200;
constexpr int kBoxHeight = 100;
constexpr int kGap = 50;
constexpr int kParentTop = 250;
constexpr int kFirstParentLeft = 50;
constexpr int kTextMargin = 8;

QString RangeText(int start, int end) {
    return end == 0 || end == start ? QString("(%1)").arg(start) : QString("(%1-%2)").arg(start).arg(end);
}

QString ChildText(const ChildRule& child) {
    return ToQt(child.table) + "\n" + RangeText(child.start, child.end) +
           QString("\nQty: %1").arg(child.quantity);
}

QString ParentText(const ParentBox& parent) {
    return ToQt(parent.table) + "\n" + ToQt(parent.column) + "\n" + RangeText(parent.start, parent.end) +
           QString("\nQty: %1").arg(parent.quantity);
}

// The rule's Id, or made from the keys while there is no rule.
QString TTRIdText(const ParentBox& parent) {
    return parent.ruleId > 0 ? QString::number(parent.ruleId) : ToQt(parent.table + "." + parent.column);
}

}  // namespace

void DiagramScene::Draw(const ChildRule& child, const std::vector<ParentBox>& parents) {
    clear();
    DiagramBox& childBox = AddBox(kChildPlace, true, false, ChildText(child));
    childBox.setData(kTTRId, QString::number(child.id));
    qreal left = kFirstParentLeft;
    for (const ParentBox& parent : parents) {
        const bool dashed = parent.ruleId == 0;
        DiagramBox& box =
            AddBox({left, kParentTop, kBoxWidth, kBoxHeight}, parent.generates, dashed, ParentText(parent));
        box.setData(kTTRId, TTRIdText(parent));
        box.setData(kFKCOLName, ToQt(parent.column));
        AddLink(childBox, box, dashed, ToQt("Link between " + child.table + " and " + parent.table));
        left += kBoxWidth + kGap;
    }
    SetMovable(movable_);
    setSceneRect(itemsBoundingRect().adjusted(-kGap, -kGap, kGap, kGap));
}

void DiagramScene::SetMovable(bool movable) {
    movable_ = movable;
    for (QGraphicsItem* item : items())
        if (item->data(kTTRId).isValid() && !item->data(kLink).isValid())
            item->setFlag(QGraphicsItem::ItemIsMovable, movable);
}

void DiagramScene::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (!movable_)
        for (const QGraphicsItem* item : items(event->scenePos()))
            if (item->data(kFKCOLName).isValid() && !item->data(kLink).isValid()) {
                emit ForeignKeyChosen(item->data(kFKCOLName).toString());
                event->accept();
                return;
            }
    QGraphicsScene::mousePressEvent(event);
}

DiagramBox& DiagramScene::AddBox(const QRectF& place, bool generates, bool dashed, const QString& text) {
    auto box = std::make_unique<DiagramBox>(place);
    box->setBrush(generates ? QColor(255, 0, 0) : QColor(0, 255, 255));
    box->setPen(QPen(Qt::black, generates ? 3 : 1, dashed ? Qt::DashLine : Qt::SolidLine));
    box->setFlag(QGraphicsItem::ItemSendsGeometryChanges);
    // Both fills are bright, so black reads on them in every palette.
    auto* lines = std::make_unique<QGraphicsSimpleTextItem>(text, box.get()).release();
    lines->setBrush(Qt::black);
    QFont font = QApplication::font();
    font.setBold(true);
    lines->setFont(font);
    lines->setPos(place.left() + kTextMargin, place.top() + kTextMargin);
    DiagramBox& added = *box;
    addItem(box.release());
    return added;
}

void DiagramScene::AddLink(DiagramBox& child, DiagramBox& parent, bool dashed, const QString& name) {
    const QColor colour = QApplication::palette().color(QPalette::Text);
    QGraphicsLineItem* link = addLine({}, QPen(colour, 1.5, dashed ? Qt::DashLine : Qt::SolidLine));
    link->setData(kLink, name);
    link->setZValue(-1);
    DiagramBox::Join(child, parent, *link);
}

}  // namespace vellumark
