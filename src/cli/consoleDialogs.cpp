#include "cli/consoleDialogs.h"

#include <iostream>

namespace vellumark {

namespace {

constexpr const char* kClearLine = "\r\033[K";

}  // namespace

void ConsoleDialogs::Print(platform::Icon icon, const std::string& text) {
    Transient("");
    std::cerr << platform::IconWord(icon) << ": " << text << std::endl;
}

void ConsoleDialogs::Message(platform::Icon icon, const std::string& text) {
    Print(icon == platform::Icon::None ? platform::Icon::Information : icon, text);
}

bool ConsoleDialogs::AskYesNo(platform::Icon, const std::string& text) {
    Print(platform::Icon::Question, text);
    return answerYes_;
}

std::optional<std::string> ConsoleDialogs::Ask(const platform::Prompt& prompt) {
    Print(platform::Icon::Question, prompt.text);
    return std::nullopt;
}

int ConsoleDialogs::Choose(const platform::Choice& choice) {
    Print(platform::Icon::Question, choice.text);
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
