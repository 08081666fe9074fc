#pragma once

#include <memory>

#include "platform/screens/screen.h"

namespace Ui {
class frmTechSupport;
}

namespace vellumark {

// Where help is found, and the details that a letter to the support should bear.
class frmTechSupport : public Screen {
 public:
    explicit frmTechSupport(QWidget* parent);
    ~frmTechSupport() override;

 private:
    void CopyDetails();

    std::unique_ptr<Ui::frmTechSupport> ui_;
};

}  // namespace vellumark
