#include "recorder.h"

#include <gtest/gtest.h>

namespace vellumark::test {

namespace {

std::string Prefix(platform::Icon icon) {
    return icon == platform::Icon::None ? "message: " : std::string(platform::IconWord(icon)) + ": ";
}

template <typename T>
T TakeAnswer(std::deque<T>& answers, T fallback, const std::string& question) {
    if (answers.empty()) {
        ADD_FAILURE() << "no answer queued for: " << question;
        return fallback;
    }
    T answer = answers.front();
    answers.pop_front();
    return answer;
}

}  // namespace

void Recorder::Message(platform::Icon icon, const std::string& text) {
    shown.push_back(Prefix(icon) + text);
}

void Recorder::TitledMessage(platform::Icon icon, const std::string& title, const std::string& text) {
    shown.push_back(Prefix(icon) + title + ": " + text);
}

bool Recorder::AskYesNo(platform::Icon icon, const std::string& text) {
    shown.push_back(Prefix(icon) + text);
    return TakeAnswer(yesNoAnswers, false, text);
}

std::optional<std::string> Recorder::Ask(const platform::Prompt& prompt) {
    shown.push_back("prompt: " + prompt.title + ": " + prompt.text + "[" + prompt.defaultAnswer + "]");
    return TakeAnswer<std::optional<std::string>>(promptAnswers, std::nullopt, prompt.text);
}

int Recorder::Choose(const platform::Choice& choice) {
    shown.push_back("choice: " + choice.text);
    return TakeAnswer(choiceAnswers, 0, choice.text);
}

std::string Recorder::Take() {
    std::string joined;
    for (const std::string& text : shown)
        joined += (joined.empty() ? "" : "|") + text;
    shown.clear();
    return joined;
}

}  // namespace vellumark::test
