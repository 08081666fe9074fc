#include "platform/screens/inputLock.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>

namespace vellumark {

namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::InputMethod:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

bool MeansStop(const QEvent& event) {
    return event.type() == QEvent::Close ||
           (event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape);
}

}  // namespace

InputLock::InputLock(QAbstractButton* stop) : stop_(stop), modal_(QApplication::activeModalWidget()) {
    qApp->installEventFilter(this);
}

InputLock::~InputLock() {
    Breathe();  // drops what came last
}

void InputLock::Breathe() {
    QCoreApplication::processEvents();
}

// Windows hand on what they get, so that the button is reached.
bool InputLock::IsForStop(const QObject& receiver) const {
    return stop_ != nullptr && (&receiver == stop_ || receiver.isWindowType());
}

bool InputLock::eventFilter(QObject* receiver, QEvent* event) {
    const bool boxIsUp = QApplication::activeModalWidget() != modal_;
    if (boxIsUp || !IsInput(event->type()) || IsForStop(*receiver))
        return QObject::eventFilter(receiver, event);
    if (stop_ != nullptr && MeansStop(*event))
        stop_->click();
    event->ignore();
    return true;
}

}  // namespace vellumark
