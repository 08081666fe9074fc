#pragma once

#include <memory>
#include <string>

#include "platform/screens/screen.h"
#include "scenario/screens/genericValueRows.h"

namespace Ui {
class frmVLEMaintenance;
}

namespace vellumark {

// The Category that a screen was opened to choose; Id 0 for none.
struct SelectedCategory {
    int id = 0;
    char dataType = 'C';
};

// Edits Categories and their Generic values, or chooses a Category for a column.
class frmVLEMaintenance : public Screen {
 public:
    explicit frmVLEMaintenance(QWidget* parent = nullptr);
    // To choose: `present` is the row it starts on.
    frmVLEMaintenance(const std::string& column, int present, QWidget* parent);
    ~frmVLEMaintenance() override;

    const SelectedCategory& Selected() const { return selected_; }

    void reject() override;

 private:
    void Connect();
    void fCATDisplay();
    void ShowValues();
    void EnableDisable();
    void DependOn();
    void ClearDependency();
    void Sort();
    void Paste();
    void Close();
    bool CommitRows();

    std::unique_ptr<Ui::frmVLEMaintenance> ui_;
    CategoryRows categories_;
    GenericValueRows values_;
    bool selecting_ = false;
    SelectedCategory selected_;
};

}  // namespace vellumark
