#include "scenario/screens/diagramBox.h"

namespace vellumark {

void DiagramBox::Join(DiagramBox& child, DiagramBox& parent, QGraphicsLineItem& link) {
    const Ends ends{&child, &parent, &link};
    child.joins_.push_back(ends);
    parent.joins_.push_back(ends);
    Place(ends);
}

QVariant DiagramBox::itemChange(GraphicsItemChange change, const QVariant& value) {
    if (change == ItemPositionHasChanged)
        for (const Ends& ends : joins_)
            Place(ends);
    return QGraphicsRectItem::itemChange(change, value);
}

void DiagramBox::Place(const Ends& ends) {
    const QRectF child = ends.child->mapRectToScene(ends.child->rect());
    const QRectF parent = ends.parent->mapRectToScene(ends.parent->rect());
    ends.link->setLine(QLineF(child.center().x(), child.bottom(), parent.center().x(), parent.top()));
}

}  // namespace vellumark
