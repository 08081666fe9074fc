#pragma once

#include <memory>

#include "platform/screens/screen.h"

namespace Ui {
class frmNewCOOLGen;
}

namespace vellumark {

// Reads a new schema from a COOL:Gen model.
class frmNewCOOLGen : public Screen {
 public:
    explicit frmNewCOOLGen(QWidget* parent = nullptr);
    ~frmNewCOOLGen() override;

 private:
    void EnableDisable();
    void Browse();
    void OK();

    std::unique_ptr<Ui::frmNewCOOLGen> ui_;
    bool canRead_;
};

}  // namespace vellumark
