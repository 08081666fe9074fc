#include "platform/screens/screen.h"

#include <QApplication>
#include <QSettings>

namespace vellumark {

namespace {

QString SizeKey(const QWidget& screen) {
    return "size/" + screen.objectName();
}

}  // namespace

Screen::Screen(QWidget* parent) : QDialog(parent) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void Screen::showEvent(QShowEvent* event) {
    if (!sized_) {
        const QSize size = QSettings().value(SizeKey(*this)).toSize();
        if (size.isValid())
            resize(size.expandedTo(minimumSizeHint()));
        sized_ = true;
    }
    QDialog::showEvent(event);
}

void Screen::hideEvent(QHideEvent* event) {
    QSettings().setValue(SizeKey(*this), size());
    QDialog::hideEvent(event);
}

WaitPointer::WaitPointer() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitPointer::~WaitPointer() {
    QApplication::restoreOverrideCursor();
}

}  // namespace vellumark
