#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/screens/screen.h"
#include "scenario/modDependencies.h"
#include "scenario/modDependencyDiagram.h"
#include "scenario/screens/diagramScene.h"

namespace Ui {
class frmParentChildDiagram;
}

namespace vellumark {

// Ties foreign-key columns of the current Insert Scenario's rules to parent rules.
class frmParentChildDiagram : public Screen {
 public:
    explicit frmParentChildDiagram(QWidget* parent = nullptr);
    ~frmParentChildDiagram() override;

    // Shows the rules as they are stored, on the one of CurrentTTRId.
    void ShowData();
    // What "Generate SQL" opens, once the fields have been applied.
    void OnGenerate(std::function<void()> open) { openGenerate_ = std::move(open); }

    void reject() override;

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    // What the fields hold, for telling a change.
    struct ShownValues {
        QString childStart, childEnd, parentStart, parentEnd, generate, increment;
        bool generateParent = false;
        bool operator==(const ShownValues&) const = default;
    };

    void Connect();
    void fInitTTRcbo();
    void cboTTR_Click();
    void cboFK_Click();
    void SelectFK(const QString& column);
    void ShowChild();
    void ShowForeignKey();
    void EmptyForeignKey();
    void fUpdateTTRcbo();
    bool fValuesChanged() const;
    void fSetHiddenValues();
    ShownValues Shown() const;
    // Stores the fields; with `always` also a foreign key that is not set yet and was left as it is shown.
    bool Apply(bool always);
    DependencyDetails ReadFields() const;
    void FocusFault(const DependencyDetails& details);
    void ClearOne();
    void ClearAll();
    void Generate();
    void fMdrawRedraw();
    void FitDiagram();
    void EnableDisable();

    std::unique_ptr<Ui::frmParentChildDiagram> ui_;
    DiagramScene scene_;
    std::vector<ChildRule> rules_;
    ChildRule child_;
    DependencyDetails dependency_;
    bool hasForeignKey_ = false;
    ShownValues hidden_;
    std::function<void()> openGenerate_;
};

}  // namespace vellumark
