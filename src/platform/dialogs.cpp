#include "platform/dialogs.h"

#include <stdexcept>

namespace vellumark::platform {

namespace {
Dialogs* current = nullptr;
}

std::string_view IconWord(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return "information";
        case Icon::Exclamation:
            return "exclamation";
        case Icon::Critical:
            return "critical";
        case Icon::Question:
            return "question";
        case Icon::None:
            break;
    }
    return {};
}

void Dialogs::TitledMessage(Icon icon, const std::string&, const std::string& text) {
    Message(icon, text);
}

void UseDialogs(Dialogs& dialogs) {
    current = &dialogs;
}

Dialogs& CurrentDialogs() {
    if (current == nullptr)
        throw std::logic_error("no dialogs are set");
    return *current;
}

void ShowInformation(const std::string& text) {
    CurrentDialogs().Message(Icon::Information, text);
}

void ShowExclamation(const std::string& text) {
    CurrentDialogs().Message(Icon::Exclamation, text);
}

void ShowCritical(const std::string& text) {
    CurrentDialogs().Message(Icon::Critical, text);
}

bool Refuse(const std::string& reason) {
    ShowExclamation(reason);
    return false;
}

bool AskYesNo(const std::string& text) {
    return CurrentDialogs().AskYesNo(Icon::Question, text);
}

void ShowStatus(const std::string& text) {
    CurrentDialogs().Status(text);
}

void ShowUnexpectedError(std::string_view doing, const Error& error) {
    ShowExclamation("Unexpected error occurred " + std::string(doing) + ".\n\n" + error.Line());
}

}  // namespace vellumark::platform
