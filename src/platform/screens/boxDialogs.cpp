#include "platform/screens/boxDialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

#include "platform/screens/frmQuestion.h"
#include "platform/screens/qtText.h"
#include "platform/screens/screenHelp.h"

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
    box.setText(ToQt(text));
    AddHelpKey(box, [&box] {
        if (HelpOnMessage)
            HelpOnMessage(box.text());
    });
}

// The usual pointer while a box waits for the user, even where the operation under it shows the hourglass.
class BoxPointer {
 public:
    BoxPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~BoxPointer() { QApplication::restoreOverrideCursor(); }
    BoxPointer(const BoxPointer&) = delete;
    BoxPointer& operator=(const BoxPointer&) = delete;
};

}  // namespace

void BoxDialogs::Message(platform::Icon icon, const std::string& text) {
    TitledMessage(icon, kTitle, text);
}

void BoxDialogs::TitledMessage(platform::Icon icon, const std::string& title, const std::string& text) {
    const BoxPointer pointer;
    QMessageBox box(BoxIcon(icon), QString::fromStdString(title), "", QMessageBox::Ok,
                    QApplication::activeWindow());
    SetText(box, text);
    box.exec();
}

bool BoxDialogs::AskYesNo(platform::Icon icon, const std::string& text) {
    const BoxPointer pointer;
    QMessageBox box(BoxIcon(icon), kTitle, "", QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    SetText(box, text);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

std::optional<std::string> BoxDialogs::Ask(const platform::Prompt& prompt) {
    const BoxPointer pointer;
    bool accepted = false;
    const QString answer =
        QInputDialog::getText(QApplication::activeWindow(), ToQt(prompt.title), ToQt(prompt.text),
                              QLineEdit::Normal, ToQt(prompt.defaultAnswer), &accepted);
    return accepted ? std::optional(FromQt(answer)) : std::nullopt;
}

int BoxDialogs::Choose(const platform::Choice& choice) {
    const BoxPointer pointer;
    frmQuestion question(choice, QApplication::activeWindow());
    question.exec();
    return question.QuestionAnswer();
}

void BoxDialogs::Status(const std::string& text) {
    if (showStatus_)
        showStatus_(text);
}

}  // namespace vellumark
