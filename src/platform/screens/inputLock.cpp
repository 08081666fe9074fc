#include "platform/screens/inputLock.h"

#include <QApplication>
#include <QEvent>

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

}  // namespace

InputLock::InputLock() : modal_(QApplication::activeModalWidget()) {
    qApp->installEventFilter(this);
}

InputLock::~InputLock() {
    Breathe();  // drops what came last
}

void InputLock::Breathe() {
    QCoreApplication::processEvents();
}

bool InputLock::eventFilter(QObject* receiver, QEvent* event) {
    const bool boxIsUp = QApplication::activeModalWidget() != modal_;
    if (boxIsUp || !IsInput(event->type()))
        return QObject::eventFilter(receiver, event);
    event->ignore();
    return true;
}

}  // namespace vellumark
