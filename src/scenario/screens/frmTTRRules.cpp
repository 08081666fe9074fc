// Rules come, go and move on the rule screen: by dragging, by keys and by buttons.

#include "platform/dialogs.h"
#include "platform/screens/qtText.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modRuleOrder.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/screens/columnRuleEditor.h"
#include "scenario/screens/frmTTR.h"
#include "scenario/screens/ruleTree.h"
#include "ui_frmTTR.h"

namespace vellumark {

void frmTTR::Drop(RuleSide target, const RuleDrag& drag, RulePlace place) {
    SelectNode(drag.source, drag.place);
    if (drag.source == target)
        MoveOnto(target, drag.place, place);
    else if (target == RuleSide::TTR)
        AddRule(drag.place.ruleId);
    else
        RemoveRule(drag.place.ruleId);
    Tree(side_).setFocus();
}

void frmTTR::AddCurrent(RuleSide /*side*/) {
    SelectNode(RuleSide::TSO);
    AddRule(selected_.ruleId);
}

void frmTTR::RemoveCurrent(RuleSide /*side*/) {
    SelectNode(RuleSide::TTR);
    RemoveRule(selected_.ruleId);
}

// The new rule takes what the fields of the default show, applied or not.
void frmTTR::AddRule(int defaultRuleId) {
    const int tableId = Tree(RuleSide::TSO).TableOf(defaultRuleId);
    int start = 0, end = 0;
    if (IsInsert() && !ValidateTTRData(start, end))
        return;
    const int ruleId = IsInsert() ? AddTableRule(tableId, start, end, true)
                                  : AddDeleteTableRule(tableId, FromQt(ui_->rtfWhere->toPlainText()));
    LoadLists();
    SelectNode(RuleSide::TTR, {ruleId, 0});
}

void frmTTR::RemoveRule(int ruleId) {
    if (IsInsert())
        RemoveTableRule(ruleId);
    else
        RemoveDeleteTableRule(ruleId);
    selected_ = {};
    LoadLists();
    SelectNode(RuleSide::TTR, {});
}

void frmTTR::MoveOnto(RuleSide side, RulePlace source, RulePlace target) {
    const char* refusal = nullptr;
    if (source.IsTable() && target.IsColumn())
        refusal = "Drop the selected table onto a target table to move it above the target.";
    else if (source.IsColumn() && target.ruleId != source.ruleId)
        refusal = "You can only move a column within the same table";
    else if (source.IsColumn() && target.IsTable())
        refusal = "Drop the selected column onto a target column to move it above the target.";
    if (refusal != nullptr)
        platform::ShowInformation(refusal);
    else
        MoveAbove(side, source, target);
}

void frmTTR::MoveAbove(RuleSide side, RulePlace source, RulePlace target) {
    const bool useScenario = side == RuleSide::TTR;
    if (source.IsColumn()) {
        UpdateSortOrder(useScenario, SortedRules::TCR, source.ruleId, source.columnId, target.columnId);
        Tree(side).ReloadColumns(source.ruleId);
    } else {
        UpdateSortOrder(useScenario, IsInsert() ? SortedRules::TTR : SortedRules::DTR, 0, source.ruleId,
                        target.ruleId);
        LoadLists();
    }
}

void frmTTR::MoveUp(RuleSide side) {
    SelectNode(side);
    MoveAbove(side, selected_, Tree(side).Neighbour(selected_, -1));
}

// Below its neighbour, that is: the neighbour and what the filter hides before it go above.
void frmTTR::MoveDown(RuleSide side) {
    SelectNode(side);
    const RulePlace neighbour = Tree(side).Neighbour(selected_, 1);
    for (RulePlace next; next != neighbour;) {
        next = Tree(side).Next(selected_);
        MoveAbove(side, next, selected_);
    }
}

}  // namespace vellumark
