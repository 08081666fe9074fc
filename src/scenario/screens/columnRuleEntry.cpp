#include <QLineEdit>
#include <QTabWidget>
#include <utility>

#include "platform/dialogs.h"
#include "platform/screens/qtText.h"
#include "repository/modEditPatterns.h"
#include "repository/modVellumark.h"
#include "repository/screens/frmUpdateEditPatterns.h"
#include "scenario/modRuleSelection.h"
#include "scenario/screens/codeLists.h"
#include "scenario/screens/columnRuleEditor.h"
#include "scenario/screens/frmValueSource.h"
#include "scenario/screens/momentField.h"
#include "ui_columnOutput.h"
#include "ui_columnOverride.h"

// What the user makes of a Column rule's details, as far as the Repository.
namespace vellumark {

namespace {

// The button that asks for the pattern of such a column.
std::string_view PatternCaller(DataType type) {
    if (type == DataType::Date)
        return "cmdOTFDate";
    return type == DataType::Time ? "cmdOTFTime" : "cmdOTFTstamp";
}

// The current Scenario is another one for as long as it stands.
class ScenarioInHand {
 public:
    explicit ScenarioInHand(int scenarioId) : before_(std::exchange(CurrentTSOId, scenarioId)) {}
    ~ScenarioInHand() { CurrentTSOId = before_; }
    ScenarioInHand(const ScenarioInHand&) = delete;
    ScenarioInHand& operator=(const ScenarioInHand&) = delete;

 private:
    int before_;
};

}  // namespace

char ColumnRuleEditor::GenerateCode() const {
    if (override_->optFile->isChecked())
        return 'V';
    return override_->optNull->isChecked() ? 'N' : 'D';
}

ColumnUse ColumnRuleEditor::EnteredUse() const {
    if (override_->optExcluded->isChecked())
        return ColumnUse::Excluded;
    if (override_->optUnique->isChecked())
        return ColumnUse::Unique;
    return override_->optCompUnique->isChecked() ? ColumnUse::CompoundUnique : ColumnUse::Included;
}

std::string ColumnRuleEditor::EnteredConstant() const {
    const DataType type = rule_->dataType;
    if (type == DataType::Boolean)
        return CodeIn(*override_->cboConstVal);
    if (!IsMoment(type))
        return FromQt(override_->txtConstVal->text());
    if (override_->cboConstVal->currentIndex() != kOverridden)
        return {};
    return MomentIn(*override_->dtpConstVal);
}

ColumnRuleDetails ColumnRuleEditor::Entered() const {
    ColumnRuleDetails entered = *rule_;
    entered.constant = EnteredConstant();
    entered.use = EnteredUse();
    entered.generate = std::string(1, GenerateCode());
    entered.fill = CodeIn(*override_->cboFill);
    entered.concat = CodeIn(*override_->cboConcat);
    entered.tooLarge = CodeIn(*override_->cboGenValue);
    if (override_->cboDateTimeInc->currentIndex() >= 0)
        entered.dateTimeIncrement = CodeIn(*override_->cboDateTimeInc);
    entered.quotes = CodeIn(*output_->cboCDQuotes);
    entered.quoteCharacter = FromQt(output_->txtCDQuotes->text());
    entered.startRange = FromQt(override_->txtColStart->text());
    entered.endRange = FromQt(override_->txtColEnd->text());
    entered.order = CodeIn(*override_->cboOrder);
    return entered;
}

bool ColumnRuleEditor::updateTCRDetails() {
    if (!rule_)
        return true;
    try {
        const ColumnRuleDetails entered = Entered();
        const ColumnRuleField fault = FaultyField(entered);
        if (fault != ColumnRuleField::None) {
            GoTo(fault);
            return false;
        }
        StoreColumnRule(entered);
        rule_ = entered;
        override_->txtConstVal->setText(ToQt(entered.constant));
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("storing the Column rule", error);
        return false;
    }
}

void ColumnRuleEditor::GoTo(ColumnRuleField field) {
    details_.setCurrentWidget(pages_[0]);
    if (field == ColumnRuleField::Source)
        return override_->optFile->setFocus();
    QLineEdit* text = override_->txtConstVal;
    if (field == ColumnRuleField::StartRange)
        text = override_->txtColStart;
    else if (field == ColumnRuleField::EndRange)
        text = override_->txtColEnd;
    text->setFocus();
    text->selectAll();
}

void ColumnRuleEditor::ChooseEditPattern() {
    const std::optional<std::string> pattern =
        EditPatternDialog(details_.window(), PatternCaller(rule_->dataType), rule_->outputPattern);
    if (!pattern)
        return;
    rule_->outputPattern = *pattern;
    output_->txtDateEditPat->setText(ToQt(EditPatternToText(*pattern)));
}

void ColumnRuleEditor::fDisplay_frmValueSource() {
    const ScenarioInHand scenario(RuleScenarioId);
    if (!rule_ || frmValueSource(*rule_, details_.window()).exec() != QDialog::Accepted)
        return;
    if (onSourceChanged_)
        onSourceChanged_();
}

}  // namespace vellumark
