#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "platform/screens/gridRows.h"

namespace vellumark {

// The rows of a grid and the one row that is being edited: it is written as a whole or dropped as a whole.
class RowGridModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    // `rows` must outlive the model.
    explicit RowGridModel(GridSource& rows, QObject* parent = nullptr);

    // Reads the rows anew; a row being edited is dropped.
    void Reload();
    // Shows rows that have come to the end since, and the empty row there as CanInsert tells.
    void ShowGrown();

    // Writes the row being edited, if there is one; false when it was refused.
    bool CommitRow();
    void CancelRow();
    int EditedRow() const { return editedRow_; }  // -1 when none

    bool DeleteRow(int row);

    // The row shown there, valid until the next call; nothing for the empty one at the end.
    const GridRow* RowAt(int row) const;
    int FindId(int id) const { return rows_.FindId(id); }  // -1 when it isn't there
    bool IsNewRow(int row) const { return row == shown_ && !adding_; }
    const GridColumn& Column(int column) const { return columns_[static_cast<std::size_t>(column)]; }
    // Makes an open cell Null or, for CellState::Text, an empty text.
    bool SetCellState(const QModelIndex& index, CellState state);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

 private:
    QVariant CellData(const GridRow& row, int column, int role) const;
    bool ChangeCell(const QModelIndex& index, const std::string& text, CellState state);
    bool StartEditing(int row);
    void AppendNewRow();
    void OfferNewRow();
    void TakeRefusal(RowWrite outcome, int row);
    void RemoveRow(int row);
    void ShowRow(int row);

    GridSource& rows_;
    std::vector<GridColumn> columns_;
    int shown_ = 0;          // rows of the source that the view knows of
    bool offering_ = false;  // the empty row at the end is there
    GridRow edited_;
    int editedRow_ = -1;
    bool adding_ = false;
};

}  // namespace vellumark
