#pragma once

#include <QObject>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "scenario/modColumnRules.h"

class QComboBox;
class QLineEdit;
class QTabWidget;
class QWidget;

namespace Ui {
class columnOverride;
class columnProperties;
class columnOutput;
}  // namespace Ui

namespace vellumark {

// The details of a Column rule: the first three tabs of the rule screen's details. What is shown goes by the
// selection in modRuleSelection.
class ColumnRuleEditor : public QObject {
 public:
    // Inserts its tabs in front of those that are there.
    ColumnRuleEditor(QTabWidget& details, QObject* parent);
    ~ColumnRuleEditor() override;

    // Shows the selected Column rule, or empty fields when none is selected.
    void fDisplayTCRDetails_Main();
    // Validates and stores what is shown. False behind a message, with the field at fault in focus.
    bool updateTCRDetails();

    // A Dependency brings the column's values; there is nothing to store.
    bool ColumnResolvedByParent() const { return columnResolvedByParent_; }
    // 'D' generated, 'V' from a Value Source, 'N' null, as the options stand.
    char GenerateCode() const;

    void EnableTCRControls();
    void DisableTCRControls();

    // Called when another Value Source has been chosen for the column.
    void SetOnSourceChanged(std::function<void()> changed) { onSourceChanged_ = std::move(changed); }

 private:
    static constexpr int kOverridden = 1;  // the place in the list for a date or time: it is typed beside it

    void AddPages();
    void FillLists();
    void Connect();

    void ShowNothing();
    void ShowRule(const ColumnProperties& properties);
    void ShowProperties(const ColumnProperties& properties);
    void ShowByDataType();
    void fDisplayTCRDetails_Numeric();
    void fDisplayTCRDetails_NotNumeric();
    void fDisplayTCRDetails_DateTime();
    void fDisplayTCRDetails_NotDateTime();
    void ShowLength();
    void ShowBoolean();
    void ShowUse();
    void ShowGenerate();
    void ShowCodes();
    void ShowRange();
    void ShowResolvedByParent();
    void ShowConstantText(bool asText);
    void ShowMomentChoice();

    void AllowTextRules(bool allowed);
    void AllowSource();
    void AllowOrder();
    void AllowQuote();
    void MatchLabels();

    ColumnRuleDetails Entered() const;
    ColumnUse EnteredUse() const;
    std::string EnteredConstant() const;
    void GoTo(ColumnRuleField field);

    void ChooseEditPattern();
    void fDisplay_frmValueSource();

    QTabWidget& details_;
    std::unique_ptr<Ui::columnOverride> override_;
    std::unique_ptr<Ui::columnProperties> properties_;
    std::unique_ptr<Ui::columnOutput> output_;
    std::array<QWidget*, 3> pages_{};
    std::vector<QWidget*> fields_;  // what EnableTCRControls opens
    std::function<void()> onSourceChanged_;

    std::optional<ColumnRuleDetails> rule_;  // as stored, but for the pattern on screen
    bool columnResolvedByParent_ = false;
};

}  // namespace vellumark
