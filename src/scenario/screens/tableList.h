#pragma once

#include <QListWidget>
#include <string>
#include <vector>

#include "scenario/modScenarioTables.h"

namespace vellumark {

// One of two lists between which tables are dragged. It knows nodes and drags; what a drop does is the
// screen's.
class TableList : public QListWidget {
    Q_OBJECT

 public:
    explicit TableList(QWidget* parent = nullptr);

    // The word by which a list and its drags are told apart.
    void SetWord(const QByteArray& word) { word_ = word; }

    // Adds the tables at the end and selects them alone.
    void Add(const std::vector<ScenarioTable>& tables);
    // Removes the tables of those Ids and returns them.
    std::vector<ScenarioTable> Take(const std::vector<int>& ids);
    // Those selected and not filtered away, from the top down.
    std::vector<int> SelectedIds() const;

    void ShowEntityFirst(bool entityFirst);
    // Shows the tables whose texts hold that part.
    void Filter(const QString& part);

 signals:
    // Tables of the other list came down on this one.
    void Dropped(const std::vector<int>& ids);
    // The selected tables are wanted in the other list.
    void MoveWanted();

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    // The Ids that a drag from the other list carries; none for any other drag.
    std::vector<int> IdsIn(const QMimeData& carried) const;
    void AcceptFromOther(QDragMoveEvent& event);
    void MarkTarget(bool target);

    QByteArray word_;
    QString part_;
    bool entityFirst_ = false;
    bool target_ = false;
};

}  // namespace vellumark
