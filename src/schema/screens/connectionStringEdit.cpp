#include "schema/screens/connectionStringEdit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>

#include "platform/connection_string.h"
#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

constexpr int kLines = 3;

}  // namespace

ConnectionStringEdit::ConnectionStringEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAnywhere);
    connect(this, &QPlainTextEdit::textChanged, this, &ConnectionStringEdit::TakeText);
}

void ConnectionStringEdit::SetString(std::string_view text, std::string_view shown) {
    if (text_ == text && shown_ == shown)
        return;
    text_ = text;
    shown_ = shown;
    ShowString();
}

void ConnectionStringEdit::SetLocked(bool locked) {
    if (isReadOnly() == locked)
        return;
    setReadOnly(locked);
    setTextInteractionFlags(locked ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                   : Qt::TextEditorInteraction);
    viewport()->setBackgroundRole(locked ? QPalette::Window : QPalette::Base);
    ShowString();
}

QSize ConnectionStringEdit::sizeHint() const {
    const int frame = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin());
    return {QPlainTextEdit::sizeHint().width(), kLines * fontMetrics().lineSpacing() + frame};
}

void ConnectionStringEdit::ShowString() {
    const bool typing = hasFocus() && !isReadOnly();
    showing_ = true;
    setPlainText(ToQt(typing ? text_ : shown_));
    showing_ = false;
}

void ConnectionStringEdit::TakeText() {
    if (showing_)
        return;
    text_ = FromQt(toPlainText());
    shown_ = platform::MaskPasswords(text_);
    emit Edited();
}

void ConnectionStringEdit::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    if (isReadOnly() || event->reason() == Qt::PopupFocusReason)
        return;
    ShowString();
    selectAll();
}

void ConnectionStringEdit::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        ShowString();
}

// A string has one line: Return is the screen's.
void ConnectionStringEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void ConnectionStringEdit::insertFromMimeData(const QMimeData* source) {
    insertPlainText(source->text().remove('\r').remove('\n'));
}

}  // namespace vellumark
