// The details of the rule screen: shown, checked and applied; and the screens that open on them.

#include <utility>

#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/screens/columnRuleEditor.h"
#include "scenario/screens/frmTTR.h"
#include "scenario/screens/modRefreshForms.h"
#include "scenario/screens/ruleScreenOpeners.h"
#include "scenario/screens/ruleTree.h"
#include "ui_frmTTR.h"

namespace vellumark {

namespace {

void GoTo(QLineEdit& field) {
    field.setFocus();
    field.selectAll();
}

}  // namespace

bool frmTTR::Apply() {
    AppliedOK_ = DiagramOpen_ || selected_.ruleId == 0;
    if (AppliedOK_)
        return true;
    if (!IsInsert())
        return AppliedOK_ = updateDTRDetails();
    if (!updateTTRDetails())
        return false;
    if (selected_.IsColumn() && !editor_->ColumnResolvedByParent()) {
        if (!editor_->updateTCRDetails())
            return false;
        Tree(side_).ReloadColumns(selected_.ruleId);
    }
    return AppliedOK_ = true;
}

bool frmTTR::ValidateTTRData(int& start, int& end) {
    for (const auto& [field, number] :
         {std::pair{ui_->txtTabStart, &start}, std::pair{ui_->txtTabEnd, &end}}) {
        const std::optional<int> entered = fRangeNumber(FromQt(field->text()));
        if (!entered) {
            GoTo(*field);
            return false;
        }
        *number = *entered;
    }
    if (fValidTableRange(start, end))
        return true;
    GoTo(*ui_->txtTabStart);
    return false;
}

void frmTTR::displayTTRDetails() {
    stored_ = vellumark::displayTTRDetails();
    EnableTTRControls(stored_.has_value());
    const auto number = [&](int value) { return stored_ ? QString::number(value) : QString(); };
    const TTRDetails shown = stored_.value_or(TTRDetails{});
    ui_->txtOwner->setText(ToQt(shown.owner));
    ui_->txtTabStart->setText(number(shown.startRange));
    ui_->txtTabEnd->setText(number(shown.endRange));
    ui_->txtQuantity->setText(number(shown.quantity));
}

bool frmTTR::updateTTRDetails() {
    TTRDetails details = stored_.value_or(TTRDetails{});
    if (!ValidateTTRData(details.startRange, details.endRange) || !vellumark::updateTTRDetails(details))
        return false;
    stored_ = details;
    ui_->txtQuantity->setText(QString::number(details.quantity));
    if (side_ == RuleSide::TTR)
        UpdateTTRName(details);
    return true;
}

void frmTTR::UpdateTTRName(const TTRDetails& details) {
    Tree(RuleSide::TTR)
        .SetRuleText(selected_.ruleId,
                     ToQt(TableRuleLabel(details.tableName, details.startRange, details.endRange)));
}

void frmTTR::EnableTTRControls(bool enabled) {
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->lblTabStart, ui_->txtTabStart, ui_->lblTabEnd, ui_->txtTabEnd})
        control->setEnabled(enabled);
}

void frmTTR::displayDTRDetails() {
    const std::optional<DTRDetails> details = vellumark::displayDTRDetails();
    EnableDTRControls(details.has_value());
    const DTRDetails shown = details.value_or(DTRDetails{});
    ui_->txtOwner->setText(ToQt(shown.owner));
    ui_->rtfWhere->setPlainText(ToQt(shown.whereClause));
}

bool frmTTR::updateDTRDetails() {
    return vellumark::updateDTRDetails(FromQt(ui_->rtfWhere->toPlainText()));
}

void frmTTR::EnableDTRControls(bool enabled) {
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->rtfWhere, ui_->cmdBuildWhere, ui_->cmdApply})
        control->setEnabled(enabled);
}

void frmTTR::OpenFrom(const std::function<void()>& open) {
    bool applied = false;
    Run([&] { applied = Apply(); });
    if (!applied)
        return;
    open();
    TakeSelection();
}

void frmTTR::OpenLoadFile() {
    // The load file is of the rule shown, be it a default.
    CurrentTSOId = RuleScenarioId;
    OpenCreateLoadFile(*this);
    CurrentTSOId = shown_.id;
}

// Rules may come by it, and Quantities change.
void frmTTR::OpenDiagram() {
    DiagramOpen_ = true;
    ShowParentChildDiagram(this);
    DiagramOpen_ = false;
    ShowData();
    Run([this] { Display(); });
}

void frmTTR::BuildWhere() {
    const std::optional<std::string> clause = BuildWhereClause(*this, FromQt(ui_->rtfWhere->toPlainText()));
    if (clause)
        ui_->rtfWhere->setPlainText(ToQt(*clause));
}

}  // namespace vellumark
