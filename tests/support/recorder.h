#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace vellumark::test {

// Stands in for the boxes: records every text and gives the answers queued beforehand. A question, prompt or
// choice without a queued answer fails the test instead of hanging it.
class Recorder : public platform::Dialogs {
 public:
    Recorder() { platform::UseDialogs(*this); }

    void Message(platform::Icon icon, const std::string& text) override;
    void TitledMessage(platform::Icon icon, const std::string& title, const std::string& text) override;
    bool AskYesNo(platform::Icon icon, const std::string& text) override;
    std::optional<std::string> Ask(const platform::Prompt& prompt) override;
    int Choose(const platform::Choice& choice) override;
    void Status(const std::string& text) override { statuses.push_back(text); }

    // "exclamation: text" and the like, in the order shown.
    std::vector<std::string> shown;
    std::vector<std::string> statuses;
    std::deque<bool> yesNoAnswers;
    std::deque<std::optional<std::string>> promptAnswers;
    std::deque<int> choiceAnswers;

    // All that was shown since the last call, joined by "|".
    std::string Take();
};

}  // namespace vellumark::test
