#pragma once

#include <memory>

#include "platform/screens/screen.h"
#include "scenario/screens/genericValueRows.h"

namespace Ui {
class frmVLESelect;
}

namespace vellumark {

// Picks one value of a Category.
class frmVLESelect : public Screen {
 public:
    explicit frmVLESelect(QWidget* parent);
    ~frmVLESelect() override;

    // 0 unless one was selected.
    int SelectedCATId() const { return categoryId_; }
    int SelectedVLEId() const { return valueId_; }

 private:
    void ShowValues();
    void EnableDisable();
    void Select();

    std::unique_ptr<Ui::frmVLESelect> ui_;
    CategoryRows categories_;
    GenericValueRows values_;
    int categoryId_ = 0;
    int valueId_ = 0;
};

}  // namespace vellumark
