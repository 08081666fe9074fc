#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

#include "platform/screens/gridRows.h"

namespace vellumark {

// The rows of a grid and the one row that is being edited: it is written as a whole or dropped as a whole.
class RowGridModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    // `rows` must outlive the model.
    explicit RowGridModel(GridRows& rows, QObject* parent = nullptr);

    // Reads the rows anew; a row being edited is dropped.
    void Reload();

    // Writes the row being edited, if there is one; false when it stays open.
    bool CommitRow();
    void CancelRow();
    int EditedRow() const { return editedRow_; }  // -1 when none

    bool DeleteRow(int row);

    // The row shown there; nothing for the empty one at the end.
    const GridRow* RowAt(int row) const;
    int FindId(int id) const;  // -1 when it isn't there
    bool IsNewRow(int row) const { return row == static_cast<int>(shown_.size()); }
    const GridColumn& Column(int column) const { return columns_[static_cast<std::size_t>(column)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

 private:
    bool StartEditing(int row);
    void AppendNewRow();
    void OfferNewRow();
    void ShowRow(int row);

    GridRows& rows_;
    std::vector<GridColumn> columns_;
    std::vector<GridRow> shown_;
    GridRow before_;  // the edited row as it is stored
    int editedRow_ = -1;
    bool adding_ = false;
};

}  // namespace vellumark
