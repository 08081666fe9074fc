#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/screens/screen.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/screens/ruleDrag.h"

namespace Ui {
class frmTTR;
}

namespace vellumark {

class ColumnRuleEditor;
class RuleTree;

// The rules of the current Scenario: the defaults of its tables on the left, its own rules on the right, and
// the details of what is selected in either.
class frmTTR : public Screen {
 public:
    explicit frmTTR(QWidget* parent);
    ~frmTTR() override;

    // Brings the screen in line with the session: the current Scenario, and its rules as they are now. With
    // no Scenario selected any more it closes.
    void ShowData();

    void reject() override;

 protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    // The Scenario that is shown; another one may have become the current one meanwhile.
    struct Scenario {
        int schemaId = 0;
        int id = 0;
        char type = ' ';
        std::string name;

        bool operator==(const Scenario&) const = default;
    };
    static Scenario SessionScenario();
    static void SetSessionScenario(const Scenario& scenario);

    void SetUpTrees();
    void SetUpMoves();
    void SetUpDetails();
    void OrderTabs();
    void SetUpButtons();
    void ShowControls(bool insert);

    // Runs an operation on what this screen has selected, whatever other screens have selected meanwhile,
    // with the Repository opened once for all its steps, and shows what goes wrong. Operations don't nest:
    // while one asks or tells, nothing else starts.
    void Run(const std::function<void()>& operation);

    bool IsInsert() const { return shown_.type == 'I'; }
    void Init_InsertTSO();
    void Init_DeleteTSO();
    void OpenScenarioLists();
    void LoadLists();
    void RefreshLists();
    void LeaveScenario();

    RuleTree& Tree(RuleSide side) const;
    RuleSide KeyboardSide() const;
    void focusTree(RuleSide side);
    void SelectNode(RuleSide side);
    void SelectNode(RuleSide side, RulePlace place);
    void TakeSelection() const;
    void Display();
    void EnableDisable();
    void EnableMoves();

    bool Apply();
    bool ValidateTTRData(int& start, int& end);
    void displayTTRDetails();
    bool updateTTRDetails();
    void EnableTTRControls(bool enabled);
    void UpdateTTRName(const TTRDetails& details);
    void displayDTRDetails();
    bool updateDTRDetails();
    void EnableDTRControls(bool enabled);

    void Drop(RuleSide target, const RuleDrag& drag, RulePlace place);
    void AddCurrent(RuleSide side);
    void RemoveCurrent(RuleSide side);
    void AddRule(int defaultRuleId);
    void RemoveRule(int ruleId);
    void MoveOnto(RuleSide side, RulePlace source, RulePlace target);
    void MoveAbove(RuleSide side, RulePlace source, RulePlace target);
    void MoveUp(RuleSide side);
    void MoveDown(RuleSide side);

    // Opens another screen once the details are applied.
    void OpenFrom(const std::function<void()>& open);
    void OpenLoadFile();
    void BuildWhere();
    void OpenDiagram();

    std::unique_ptr<Ui::frmTTR> ui_;
    std::unique_ptr<ColumnRuleEditor> editor_;
    Scenario shown_;
    RuleSide side_ = RuleSide::TTR;
    RulePlace selected_;
    std::optional<TTRDetails> stored_;  // of the selected Table rule
    bool AppliedOK_ = false;
    bool DiagramOpen_ = false;
    bool running_ = false;
};

}  // namespace vellumark
