#pragma once

#include <QAbstractListModel>
#include <QItemSelection>
#include <QSize>
#include <memory>

#include "platform/row_store.h"

namespace vellumark {

// The lines of a result: rows that lie on disk, and what is said behind them.
class ResultLines : public QAbstractListModel {
 public:
    using QAbstractListModel::QAbstractListModel;

    void Clear();
    // Shows the rows that there are by now; only more of the same rows may come.
    void ShowRows(std::shared_ptr<const platform::RowStore> rows);
    int ShownRows() const { return shown_; }
    // Behind the rows, of which no more may come then; line breaks make several lines.
    void Say(const QString& text);
    // One size for all lines.
    void SetLineSize(const QSize& size);

    // Whole, however long it is.
    QString Line(int place) const;
    // One below the other.
    QString Lines(QItemSelection selection) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

 private:
    std::shared_ptr<const platform::RowStore> rows_;
    int shown_ = 0;
    QStringList said_;
    QSize lineSize_;
};

}  // namespace vellumark
