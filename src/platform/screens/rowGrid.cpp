#include "platform/screens/rowGrid.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>

#include "platform/screens/choiceDelegate.h"

namespace vellumark {

namespace {

constexpr int kRowPadding = 8;
constexpr int kColumnPadding = 16;
constexpr int kWidestColumn = 280;

}  // namespace

RowGrid::RowGrid(QWidget* parent) : QTableView(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    setWordWrap(false);
}

void RowGrid::Show(GridSource& rows) {
    RowGridModel* const former = rows_;
    rows_ = std::make_unique<RowGridModel>(rows, this).release();
    setModel(rows_);
    delete former;
    connect(rows_, &QAbstractItemModel::rowsRemoved, this, &RowGrid::CurrentRowChanged);
    source_ = &rows;
    fitted_ = false;
    ShowMarks();
    SetChoices();
    FitColumns();
    if (rows_->rowCount() > 0)
        setCurrentIndex(rows_->index(0, 0));
    emit CurrentRowChanged();
}

void RowGrid::Reload() {
    const int id = CurrentId();
    const int column = std::max(0, currentIndex().column());
    rows_->Reload();
    FitColumns();
    const int row = std::max(0, rows_->FindId(id));
    if (row < rows_->rowCount())
        setCurrentIndex(rows_->index(row, column));
    emit CurrentRowChanged();
}

void RowGrid::ShowGrown() {
    rows_->ShowGrown();
    ShowMarks();
    FitColumns();
    if (!currentIndex().isValid() && rows_->rowCount() > 0)
        setCurrentIndex(rows_->index(0, 0));
}

bool RowGrid::CommitRow() {
    if (rows_ == nullptr)
        return true;
    CloseEditor();
    const bool edited = rows_->EditedRow() >= 0;
    const bool committed = rows_->CommitRow();
    if (edited && committed)
        emit CurrentRowChanged();
    return committed;
}

void RowGrid::CancelRow() {
    if (rows_ == nullptr || rows_->EditedRow() < 0)
        return;
    rows_->CancelRow();
    emit CurrentRowChanged();
}

void RowGrid::DeleteCurrentRow() {
    if (currentIndex().isValid())
        rows_->DeleteRow(currentIndex().row());
}

const GridRow* RowGrid::CurrentRow() const {
    return rows_ == nullptr ? nullptr : rows_->RowAt(currentIndex().row());
}

int RowGrid::CurrentId() const {
    const GridRow* row = CurrentRow();
    return row == nullptr ? 0 : row->id;
}

bool RowGrid::SelectId(int id) {
    const int row = rows_->FindId(id);
    if (row < 0)
        return false;
    setCurrentIndex(rows_->index(row, std::max(0, currentIndex().column())));
    return true;
}

void RowGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste))
        Paste();
    else if (event->matches(QKeySequence::Copy) && currentIndex().isValid())
        QApplication::clipboard()->setText(currentIndex().data(Qt::EditRole).toString());
    else if (TakeNullKey(*event))
        event->accept();
    else if (event->key() == Qt::Key_Escape && rows_ != nullptr && rows_->EditedRow() >= 0)
        CancelRow();
    else if (event->key() == Qt::Key_Delete && state() != EditingState)
        DeleteCurrentRow();
    else
        QTableView::keyPressEvent(event);
}

void RowGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (goingBack_ || current.row() == previous.row())
        return;
    const int edited = rows_ == nullptr ? -1 : rows_->EditedRow();
    if (edited >= 0 && edited != current.row() && !rows_->CommitRow()) {
        GoBackTo(edited, std::max(0, previous.column()));
        return;
    }
    emit CurrentRowChanged();
}

// Leaving the grid for another control of its screen leaves the row too. A box that a hook shows doesn't, and
// a button decides for itself: one may be there to drop the row.
void RowGrid::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    const QWidget* next = QApplication::focusWidget();
    if (next == nullptr || next->window() != window() || isAncestorOf(next) ||
        qobject_cast<const QAbstractButton*>(next) != nullptr)
        return;
    const int edited = rows_ == nullptr ? -1 : rows_->EditedRow();
    if (edited >= 0 && !CommitRow())
        GoBackTo(edited, std::max(0, currentIndex().column()));
}

void RowGrid::SetCurrentCell(CellState state) {
    if (rows_ == nullptr || !currentIndex().isValid())
        return;
    CloseEditor();
    rows_->SetCellState(currentIndex(), state);
}

bool RowGrid::TakeNullKey(const QKeyEvent& event) {
    if (event.modifiers() != Qt::ControlModifier || (event.key() != Qt::Key_0 && event.key() != Qt::Key_E))
        return false;
    SetCurrentCell(event.key() == Qt::Key_0 ? CellState::Null : CellState::Text);
    return true;
}

// For cells that can be Null.
void RowGrid::contextMenuEvent(QContextMenuEvent* event) {
    const QModelIndex cell = indexAt(event->pos());
    if (!cell.isValid() || !rows_->Column(cell.column()).nullable)
        return;
    setCurrentIndex(cell);
    const bool open = rows_->flags(cell) & Qt::ItemIsEditable;
    QMenu menu(this);
    const auto entry = [&](const QString& caption, const QKeySequence& key, CellState state) {
        QAction* action = menu.addAction(caption, key, this, [this, state] { SetCurrentCell(state); });
        action->setEnabled(open);
    };
    entry("Set to &Null", QKeySequence(Qt::CTRL | Qt::Key_0), CellState::Null);
    entry("Set to &Empty Text", QKeySequence(Qt::CTRL | Qt::Key_E), CellState::Text);
    menu.exec(event->globalPos());
}

void RowGrid::SetChoices() {
    for (int column = 0; column < rows_->columnCount(); ++column) {
        const bool choice = rows_->Column(column).kind == CellKind::Choice;
        delete itemDelegateForColumn(column);
        setItemDelegateForColumn(
            column, choice ? std::make_unique<ChoiceDelegate>(rows_->Column(column).choices, this).release()
                           : nullptr);
    }
}

// The row being edited and the one for a new row are marked beside the rows.
void RowGrid::ShowMarks() {
    verticalHeader()->setVisible(source_->CanInsert() || source_->CanDelete());
}

// Once, at the first rows there are; what the user changes afterwards stays.
void RowGrid::FitColumns() {
    if (fitted_ || rows_->RowAt(0) == nullptr)
        return;
    fitted_ = true;
    for (int column = 0; column < rows_->columnCount(); ++column) {
        const int needed = std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
        setColumnWidth(column, std::min(needed + kColumnPadding, kWidestColumn));
    }
}

// What is being typed in a cell reaches the model.
void RowGrid::CloseEditor() {
    if (state() != EditingState)
        return;
    for (QObject* child : viewport()->children()) {
        auto* editor = qobject_cast<QWidget*>(child);
        if (editor == nullptr || !editor->isVisible())
            continue;
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

// The view is in the middle of moving on; it is put back when it has done so.
void RowGrid::GoBackTo(int row, int column) {
    QTimer::singleShot(0, this, [this, row, column] {
        goingBack_ = true;
        setFocus();
        setCurrentIndex(rows_->index(row, column));
        goingBack_ = false;
    });
}

// Line by line from the current cell on, each line a row; it stops at the first row that is refused.
void RowGrid::Paste() {
    if (rows_ == nullptr || !currentIndex().isValid())
        return;
    const int column = currentIndex().column();
    int row = currentIndex().row();
    QString text = QApplication::clipboard()->text();
    text.remove('\r');
    if (text.endsWith('\n'))
        text.chop(1);
    for (const QString& line : text.split('\n')) {
        if (row >= rows_->rowCount() || !PasteLine(row, column, line.split('\t')))
            break;
        ++row;
    }
}

void RowGrid::PasteAtEnd() {
    if (rows_ == nullptr || rows_->rowCount() == 0)
        return;
    setFocus();
    setCurrentIndex(rows_->index(rows_->rowCount() - 1, 0));
    Paste();
}

bool RowGrid::PasteLine(int row, int column, const QStringList& cells) {
    for (int i = 0; i < cells.size() && column + i < rows_->columnCount(); ++i)
        rows_->setData(rows_->index(row, column + i), cells[i], Qt::EditRole);
    setCurrentIndex(rows_->index(row, column));
    return CommitRow();
}

}  // namespace vellumark
