#pragma once

#include <QGraphicsScene>
#include <map>
#include <vector>

#include "scenario/modDependencyDiagram.h"

namespace vellumark {

class DiagramBox;

// What items of the diagram carry as data.
enum DiagramProperty { kTTRId, kFKCOLName, kLink };

// A child rule above the parents of its foreign keys, with a link to each. Boxes of rules that generate rows
// are red with a thick frame, the others cyan; what is not set yet is dashed.
class DiagramScene : public QGraphicsScene {
    Q_OBJECT

 public:
    using QGraphicsScene::QGraphicsScene;

    void Draw(const ChildRule& child, const std::vector<ParentBox>& parents);
    // Boxes can be dragged, else a click on one chooses its foreign key.
    void SetMovable(bool movable);

 signals:
    void ForeignKeyChosen(const QString& column);

 protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

 private:
    DiagramBox& AddBox(const QRectF& place, bool generates, bool dashed, const QString& text);
    void AddLink(DiagramBox& child, DiagramBox& parent, bool dashed, const QString& name);

    bool movable_ = false;
};

}  // namespace vellumark
