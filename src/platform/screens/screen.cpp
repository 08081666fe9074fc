#include "platform/screens/screen.h"

#include <QApplication>
#include <QLabel>
#include <QSettings>

#include "platform/screens/screenHelp.h"

namespace vellumark {

namespace {

QString SizeKey(const QWidget& screen) {
    return "size/" + screen.objectName();
}

QString WithoutMnemonic(QString caption) {
    caption.remove('&');
    return caption.endsWith(':') ? caption.chopped(1) : caption;
}

// Screen readers ask lists, trees and tables for a name of their own and not for their label.
void NameByLabels(const QWidget& screen) {
    for (const QLabel* label : screen.findChildren<QLabel*>()) {
        QWidget* named = label->buddy();
        if (named != nullptr && named->accessibleName().isEmpty())
            named->setAccessibleName(WithoutMnemonic(label->text()));
    }
}

}  // namespace

Screen::Screen(QWidget* parent) : QDialog(parent) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    AddHelpKey(*this, [this] {
        if (HelpOnScreen)
            HelpOnScreen(objectName());
    });
}

void Screen::showEvent(QShowEvent* event) {
    if (!prepared_) {
        const QSize size = QSettings().value(SizeKey(*this)).toSize();
        if (size.isValid())
            resize(size.expandedTo(minimumSizeHint()));
        NameByLabels(*this);
        prepared_ = true;
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
