#pragma once

#include <memory>

#include "platform/screens/screen.h"

namespace Ui {
class frmEPSelection;
}

namespace vellumark {

// Lets the user pick one of the tokens that EditPatternChoice asks for, into EditPatternToken.
class frmEPSelection : public Screen {
 public:
    explicit frmEPSelection(QWidget* parent);
    ~frmEPSelection() override;

 private:
    void Select();

    std::unique_ptr<Ui::frmEPSelection> ui_;
};

}  // namespace vellumark
