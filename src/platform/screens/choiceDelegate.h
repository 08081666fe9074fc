#pragma once

#include <QStyledItemDelegate>
#include <string>
#include <vector>

namespace vellumark {

// Edits a cell by a list of the texts it may hold.
class ChoiceDelegate : public QStyledItemDelegate {
    Q_OBJECT

 public:
    ChoiceDelegate(std::vector<std::string> choices, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

 private:
    std::vector<std::string> choices_;
};

}  // namespace vellumark
