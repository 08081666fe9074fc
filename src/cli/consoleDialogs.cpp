#include "cli/consoleDialogs.h"

#include <iostream>

namespace vellumark {

namespace {

constexpr const char* kClearLine = "\r\033[K";

const char* KindOf(platform::Icon icon) {
    switch (icon) {
        case platform::Icon::Exclamation:
            return "exclamation: ";
        case platform::Icon::Critical:
            return "critical: ";
        case platform::Icon::Question:
            return "question: ";
        case platform::Icon::Information:
        case platform::Icon::None:
            break;
    }
    return "information: ";
}

}  // namespace

void ConsoleDialogs::Print(const char* kind, const std::string& text) {
    Transient("");
    std::cerr << kind << text << std::endl;
}

void ConsoleDialogs::Message(platform::Icon icon, const std::string& text) {
    Print(KindOf(icon), text);
}

bool ConsoleDialogs::AskYesNo(platform::Icon, const std::string& text) {
    Print("question: ", text);
    return answerYes_;
}

std::optional<std::string> ConsoleDialogs::Ask(const platform::Prompt& prompt) {
    Print("question: ", prompt.text);
    return std::nullopt;
}

int ConsoleDialogs::Choose(const platform::Choice& choice) {
    Print("question: ", choice.text);
    return 0;
}

void ConsoleDialogs::Status(const std::string& text) {
    Transient(text);
}

void ConsoleDialogs::Transient(const std::string& text) {
    if (!interactive_ || (text.empty() && !transientShown_))
        return;
    std::cerr << kClearLine << text << std::flush;
    transientShown_ = !text.empty();
}

}  // namespace vellumark
