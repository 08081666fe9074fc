#pragma once

#include <QGraphicsLineItem>
#include <QGraphicsRectItem>
#include <vector>

namespace vellumark {

// A box of the diagram that takes its links along when it is moved.
class DiagramBox : public QGraphicsRectItem {
 public:
    using QGraphicsRectItem::QGraphicsRectItem;

    // The link runs from the bottom of `child` to the top of `parent`; the scene owns it.
    static void Join(DiagramBox& child, DiagramBox& parent, QGraphicsLineItem& link);

 protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

 private:
    struct Ends {
        DiagramBox* child;
        DiagramBox* parent;
        QGraphicsLineItem* link;
    };

    static void Place(const Ends& ends);

    std::vector<Ends> joins_;
};

}  // namespace vellumark
