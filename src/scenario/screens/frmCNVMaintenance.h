#pragma once

#include <memory>
#include <string>

#include "platform/screens/screen.h"
#include "scenario/screens/conversionCodeRows.h"

namespace Ui {
class frmCNVMaintenance;
}

namespace vellumark {

// Edits Conversion Codes, or chooses one for a column.
class frmCNVMaintenance : public Screen {
 public:
    explicit frmCNVMaintenance(QWidget* parent = nullptr);
    // To choose: `present` is the row it starts on.
    frmCNVMaintenance(const std::string& column, int present, QWidget* parent);
    ~frmCNVMaintenance() override;

    // The Conversion Code chosen; 0 for none.
    int SelectedCNVId() const { return selectedId_; }

    void reject() override;

 private:
    void ShowValues();
    void EnableDisable();
    void Paste();
    void Close();
    bool CommitRows();

    std::unique_ptr<Ui::frmCNVMaintenance> ui_;
    ConversionCodeRows codes_;
    CodeValueRows values_;
    bool selecting_ = false;
    int selectedId_ = 0;
};

}  // namespace vellumark
