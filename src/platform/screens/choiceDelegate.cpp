#include "platform/screens/choiceDelegate.h"

#include <QComboBox>

#include "platform/screens/qtText.h"

namespace vellumark {

ChoiceDelegate::ChoiceDelegate(std::vector<std::string> choices, QObject* parent)
    : QStyledItemDelegate(parent), choices_(std::move(choices)) {}

QWidget* ChoiceDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                      const QModelIndex& /*index*/) const {
    auto* list = std::make_unique<QComboBox>(parent).release();
    for (const std::string& choice : choices_)
        list->addItem(ToQt(choice));
    connect(list, &QComboBox::activated, this, [this, list] {
        auto* self = const_cast<ChoiceDelegate*>(this);
        emit self->commitData(list);
    });
    return list;
}

void ChoiceDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* list = static_cast<QComboBox*>(editor);
    list->setCurrentIndex(list->findText(index.data(Qt::EditRole).toString()));
}

void ChoiceDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                  const QModelIndex& index) const {
    model->setData(index, static_cast<QComboBox*>(editor)->currentText());
}

}  // namespace vellumark
