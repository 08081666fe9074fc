#include "repository/screens/textFields.h"

#include <QAbstractSpinBox>
#include <QFocusEvent>
#include <QValidator>
#include <algorithm>
#include <memory>

#include "repository/modVellumark.h"

namespace vellumark {

namespace {

class NumericValidator : public QValidator {
 public:
    NumericValidator(DataType type, QObject* parent) : QValidator(parent), type_(type) {}

    State validate(QString& text, int& /*cursor*/) const override {
        const bool allNumeric = std::all_of(text.begin(), text.end(), [this](QChar key) {
            return key.unicode() < 0x80 && fNumericKey(key.toLatin1(), type_, DecimalPointCharacter);
        });
        return allNumeric ? Acceptable : Invalid;
    }

 private:
    DataType type_;
};

// The style's own focus by keyboard selects already. A click sets the cursor behind the focus, so the text is
// selected when the button goes up, unless the user has dragged over a part of it.
class FocusSelector : public QObject {
 public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* field = qobject_cast<QLineEdit*>(watched);
        if (field != nullptr && event->type() == QEvent::FocusIn)
            OnFocus(*field, dynamic_cast<QFocusEvent&>(*event).reason());
        if (field != nullptr && event->type() == QEvent::MouseButtonRelease && clicked_ == field) {
            clicked_ = nullptr;
            if (!field->hasSelectedText())
                field->selectAll();
        }
        return QObject::eventFilter(watched, event);
    }

 private:
    void OnFocus(QLineEdit& field, Qt::FocusReason reason) {
        clicked_ = reason == Qt::MouseFocusReason ? &field : nullptr;
        const bool back = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
        if (!back && clicked_ == nullptr)
            field.selectAll();
    }

    const QLineEdit* clicked_ = nullptr;
};

bool IsPartOfPicker(const QLineEdit& field) {
    return qobject_cast<QAbstractSpinBox*>(field.parentWidget()) != nullptr;
}

}  // namespace

void NumericKeys(QLineEdit& field, DataType type) {
    field.setValidator(std::make_unique<NumericValidator>(type, &field).release());
}

void SelectTextOnFocus(QWidget& screen) {
    QObject* selector = std::make_unique<FocusSelector>(&screen).release();
    for (QLineEdit* field : screen.findChildren<QLineEdit*>())
        if (!IsPartOfPicker(*field))
            field->installEventFilter(selector);
}

}  // namespace vellumark
