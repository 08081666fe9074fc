#include "scenario/screens/tableList.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>
#include <algorithm>
#include <memory>
#include <set>

#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

constexpr const char* kMimeType = "application/x-vellumark-tables";
constexpr int kMarkWidth = 2;

class TableItem : public QListWidgetItem {
 public:
    explicit TableItem(ScenarioTable ofTable) : table(std::move(ofTable)) {}

    bool operator<(const QListWidgetItem& other) const override {
        return text().compare(other.text(), Qt::CaseInsensitive) < 0;
    }

    const ScenarioTable table;
};

const ScenarioTable& TableAt(const QListWidget& list, int row) {
    return dynamic_cast<const TableItem&>(*list.item(row)).table;
}

// Another program's drag must not pass for one of this.
QByteArray ProcessWord() {
    return QByteArray::number(QCoreApplication::applicationPid());
}

}  // namespace

TableList::TableList(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(ExtendedSelection);
    setUniformItemSizes(true);
    setDragDropMode(DragDrop);
    connect(this, &QListWidget::itemDoubleClicked, this, &TableList::MoveWanted);
}

void TableList::Add(const std::vector<ScenarioTable>& tables) {
    if (tables.empty())
        return;
    {
        const QSignalBlocker quiet(this);
        clearSelection();
        for (const ScenarioTable& table : tables) {
            auto added = std::make_unique<TableItem>(table);
            added->setText(ToQt(ScenarioTableText(table, entityFirst_)));
            addItem(added.release());
        }
        const QItemSelection range(model()->index(count() - static_cast<int>(tables.size()), 0),
                                   model()->index(count() - 1, 0));
        selectionModel()->select(range, QItemSelectionModel::Select);
        Filter(part_);
    }
    scrollToBottom();
    emit itemSelectionChanged();
}

std::vector<ScenarioTable> TableList::Take(const std::vector<int>& ids) {
    const QSignalBlocker quiet(this);
    const std::set<int> wanted(ids.begin(), ids.end());
    std::vector<ScenarioTable> taken;
    for (int row = 0; row < count();) {
        const ScenarioTable& table = TableAt(*this, row);
        if (!wanted.contains(table.id)) {
            ++row;
            continue;
        }
        taken.push_back(table);
        std::unique_ptr<QListWidgetItem>(takeItem(row)).reset();
    }
    return taken;
}

std::vector<int> TableList::SelectedIds() const {
    std::vector<int> ids;
    for (int row = 0; row < count(); ++row)
        if (item(row)->isSelected() && !item(row)->isHidden())
            ids.push_back(TableAt(*this, row).id);
    return ids;
}

void TableList::ShowEntityFirst(bool entityFirst) {
    entityFirst_ = entityFirst;
    for (int row = 0; row < count(); ++row)
        item(row)->setText(ToQt(ScenarioTableText(TableAt(*this, row), entityFirst)));
    Filter(part_);
}

void TableList::Filter(const QString& part) {
    part_ = part.trimmed();
    for (int row = 0; row < count(); ++row)
        item(row)->setHidden(!item(row)->text().contains(part_, Qt::CaseInsensitive));
}

void TableList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit MoveWanted();
    else
        QListWidget::keyPressEvent(event);
}

void TableList::startDrag(Qt::DropActions /*actions*/) {
    const std::vector<int> ids = SelectedIds();
    if (ids.empty())
        return;
    QByteArrayList words = {ProcessWord(), word_};
    for (const int id : ids)
        words.append(QByteArray::number(id));
    auto carried = std::make_unique<QMimeData>();
    carried->setData(kMimeType, words.join(' '));
    QDrag* drag = std::make_unique<QDrag>(this).release();
    drag->setMimeData(carried.release());
    const QRect node = visualItemRect(currentItem()) & viewport()->rect();
    drag->setPixmap(viewport()->grab(node));
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - node.topLeft());
    drag->exec(Qt::MoveAction);
}

std::vector<int> TableList::IdsIn(const QMimeData& carried) const {
    const QByteArrayList words = carried.data(kMimeType).split(' ');
    std::vector<int> ids;
    if (words.size() > 2 && words[0] == ProcessWord() && words[1] != word_)
        std::transform(words.begin() + 2, words.end(), std::back_inserter(ids),
                       [](const QByteArray& word) { return word.toInt(); });
    return ids;
}

void TableList::AcceptFromOther(QDragMoveEvent& event) {
    const bool fromOther = !IdsIn(*event.mimeData()).empty();
    event.setDropAction(Qt::MoveAction);
    event.setAccepted(fromOther);
    MarkTarget(fromOther);
}

void TableList::MarkTarget(bool target) {
    target_ = target;
    viewport()->update();
}

void TableList::dragEnterEvent(QDragEnterEvent* event) {
    AcceptFromOther(*event);
}

void TableList::dragMoveEvent(QDragMoveEvent* event) {
    AcceptFromOther(*event);
}

void TableList::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    MarkTarget(false);
}

void TableList::dropEvent(QDropEvent* event) {
    MarkTarget(false);
    const std::vector<int> ids = IdsIn(*event->mimeData());
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(!ids.empty());
    if (!ids.empty())
        emit Dropped(ids);
}

void TableList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (!target_)
        return;
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Highlight), kMarkWidth));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

}  // namespace vellumark
