#pragma once

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "repository/modOptionsMaintenance.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace Ui {
class frmOptions;
}

namespace vellumark {

// The fields of frmOptions and the options that they hold.
class OptionsFields {
 public:
    // Sets up the fields of a form whose widgets are there.
    explicit OptionsFields(Ui::frmOptions& form);

    void Show(const OptionsRecord& options);
    OptionsRecord Take() const;

    // Edit patterns in stored form: date, time and timestamp of input, then of output.
    const std::string& Pattern(std::size_t index) const { return patterns_[index]; }
    void SetPattern(std::size_t index, const std::string& pattern);

    // An owner can be typed only to override the tables' own.
    void EnableOwner();

 private:
    struct QuoteFields {
        QCheckBox* inInput;
        QComboBox* inOutput;
        QLineEdit* outputCharacter;
    };

    void ListTexts();
    void SetUpPickers();
    void ShowChoices(const OptionsRecord& options);
    void ShowPickers(const OptionsRecord& options);
    void TakeChoices(OptionsRecord& options) const;
    void TakePickers(OptionsRecord& options) const;

    Ui::frmOptions& form_;
    std::vector<std::pair<QLineEdit*, std::string OptionsRecord::*>> texts_;
    std::array<QuoteFields, 6> quotes_;
    std::array<QLineEdit*, 6> patternFields_;
    std::array<std::string, 6> patterns_;
};

}  // namespace vellumark
