#pragma once

#include <string>

#include "platform/dialogs.h"

namespace vellumark {

// Message boxes as lines on standard error. A question is answered Yes when the user said so beforehand, else
// No; a box that would offer more than that is answered as by its cancel button.
class ConsoleDialogs : public platform::Dialogs {
 public:
    explicit ConsoleDialogs(bool interactive) : interactive_(interactive) {}

    void AnswerYes(bool yes) { answerYes_ = yes; }

    void Message(platform::Icon icon, const std::string& text) override;
    bool AskYesNo(platform::Icon icon, const std::string& text) override;
    std::optional<std::string> Ask(const platform::Prompt& prompt) override;
    int Choose(const platform::Choice& choice) override;
    void Status(const std::string& text) override;

    // A line that the next one replaces; shown on a terminal only.
    void Transient(const std::string& text);

 private:
    void Print(platform::Icon icon, const std::string& text);

    bool interactive_;
    bool answerYes_ = false;
    bool transientShown_ = false;
};

}  // namespace vellumark
