#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/screens/screen.h"

namespace Ui {
class frmUpdateEditPatterns;
}

namespace vellumark {

// Builds the Edit pattern of EditPatternText token by token for the button in EditPatternCaller.
class frmUpdateEditPatterns : public Screen {
 public:
    explicit frmUpdateEditPatterns(QWidget* parent);
    ~frmUpdateEditPatterns() override;

    void accept() override;
    void reject() override;

 private:
    void EnableButtons();
    void ConnectTokens();
    void ShowPattern();
    void Add(std::string_view token);
    // Adds what the user picks among the choices of that button.
    void AddSelected(std::string_view button);
    // A month or a day: a choice where names are on offer, else the digits.
    void AddSelectedOr(std::string_view button, std::string_view token);
    void DeleteLast();
    void ViewExample();

    std::unique_ptr<Ui::frmUpdateEditPatterns> ui_;
    std::string caller_;
    std::string pattern_;
};

// Lets the user change a pattern in stored form for the button `caller`; nothing when cancelled.
std::optional<std::string> EditPatternDialog(QWidget* parent, std::string_view caller,
                                             std::string_view pattern);

}  // namespace vellumark
