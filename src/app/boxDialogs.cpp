#include "app/boxDialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

namespace vellumark {

namespace {

constexpr const char* kTitle = "Vellumark";

QMessageBox::Icon BoxIcon(platform::Icon icon) {
    switch (icon) {
        case platform::Icon::Information:
            return QMessageBox::Information;
        case platform::Icon::Exclamation:
            return QMessageBox::Warning;
        case platform::Icon::Critical:
            return QMessageBox::Critical;
        case platform::Icon::Question:
            return QMessageBox::Question;
        case platform::Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// Texts are plain: a name that looks like markup must show as it is.
void SetText(QMessageBox& box, const std::string& text) {
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
}

}  // namespace

void BoxDialogs::Message(platform::Icon icon, const std::string& text) {
    QMessageBox box(BoxIcon(icon), kTitle, "", QMessageBox::Ok, QApplication::activeWindow());
    SetText(box, text);
    box.exec();
}

bool BoxDialogs::AskYesNo(platform::Icon icon, const std::string& text) {
    QMessageBox box(BoxIcon(icon), kTitle, "", QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    SetText(box, text);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

std::optional<std::string> BoxDialogs::Ask(const platform::Prompt& prompt) {
    bool accepted = false;
    const QString answer =
        QInputDialog::getText(QApplication::activeWindow(), QString::fromStdString(prompt.title),
                              QString::fromStdString(prompt.text), QLineEdit::Normal,
                              QString::fromStdString(prompt.defaultAnswer), &accepted);
    return accepted ? std::optional(answer.toStdString()) : std::nullopt;
}

int BoxDialogs::Choose(const platform::Choice& choice) {
    QMessageBox box(QMessageBox::Question, kTitle, "", QMessageBox::NoButton, QApplication::activeWindow());
    SetText(box, choice.text);
    const auto add = [&box](const std::string& caption, QMessageBox::ButtonRole role) -> QPushButton* {
        return caption.empty() ? nullptr : box.addButton(QString::fromStdString(caption), role);
    };
    const QPushButton* first = add(choice.button1, QMessageBox::AcceptRole);
    const QPushButton* second = add(choice.button2, QMessageBox::AcceptRole);
    QPushButton* cancel = add(choice.cancel, QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.exec();
    const QAbstractButton* clicked = box.clickedButton();
    if (clicked != nullptr && clicked == first)
        return 1;
    return clicked != nullptr && clicked == second ? 2 : 0;
}

void BoxDialogs::Status(const std::string& text) {
    if (auto* window = qobject_cast<QMainWindow*>(QApplication::activeWindow()))
        window->statusBar()->showMessage(QString::fromStdString(text));
}

}  // namespace vellumark
