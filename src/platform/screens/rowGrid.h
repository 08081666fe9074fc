#pragma once

#include <QTableView>
#include <functional>

#include "platform/screens/rowGridModel.h"

namespace vellumark {

// A grid over a GridSource: one row is edited at a time and written as the cursor leaves it, Escape drops it,
// Delete deletes the row, and text pasted from a spreadsheet fills cells from the current one on.
class RowGrid : public QTableView {
    Q_OBJECT

 public:
    explicit RowGrid(QWidget* parent = nullptr);

    // Shows these rows, which must outlive the grid or the next call; the first row becomes the current one.
    void Show(GridSource& rows);
    // Reads the rows anew and stays on the row with the current id, if it is still there.
    void Reload();
    // Shows rows that have come to the end since, and takes over what may be done with them.
    void ShowGrown();

    // Writes the row being edited; false when it was refused. A screen calls this before it closes.
    bool CommitRow();
    void CancelRow();
    bool HasEditedRow() const { return rows_ != nullptr && rows_->EditedRow() >= 0; }
    // Deletes the current row as the Delete key does.
    void DeleteCurrentRow();
    void Paste();
    // Adds the lines on the clipboard as new rows.
    void PasteAtEnd();
    // Makes the current cell Null, or an empty text.
    void SetCurrentCell(CellState state);

    // The current row; nothing on the empty one at the end.
    const GridRow* CurrentRow() const;
    int CurrentId() const;  // 0 when there is no current row
    bool SelectId(int id);

 signals:
    // Another row is the current one, or the current one has been written, dropped or deleted.
    void CurrentRowChanged();

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

 private:
    void SetChoices();
    void FitColumns();
    void CloseEditor();
    bool TakeNullKey(const QKeyEvent& event);
    void GoBackTo(int row, int column);
    bool PasteLine(int row, int column, const QStringList& cells);

    void ShowMarks();

    const GridSource* source_ = nullptr;
    RowGridModel* rows_ = nullptr;
    bool fitted_ = false;
    bool goingBack_ = false;
};

}  // namespace vellumark
