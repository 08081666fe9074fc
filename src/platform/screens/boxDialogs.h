#pragma once

#include <functional>
#include <string>

#include "platform/dialogs.h"

namespace vellumark {

// Messages and questions as boxes on the screen.
class BoxDialogs : public platform::Dialogs {
 public:
    void Message(platform::Icon icon, const std::string& text) override;
    void TitledMessage(platform::Icon icon, const std::string& title, const std::string& text) override;
    bool AskYesNo(platform::Icon icon, const std::string& text) override;
    std::optional<std::string> Ask(const platform::Prompt& prompt) override;
    int Choose(const platform::Choice& choice) override;
    void Status(const std::string& text) override;

    // Where the progress texts of long operations are shown; nowhere before this is called.
    void ShowStatusIn(std::function<void(const std::string&)> show) { showStatus_ = std::move(show); }

 private:
    std::function<void(const std::string&)> showStatus_;
};

}  // namespace vellumark
