#pragma once

#include <memory>

#include "platform/screens/screen.h"

namespace Ui {
class frmAbout;
}

namespace vellumark {

// What this program is, and the files it works with.
class frmAbout : public Screen {
 public:
    explicit frmAbout(QWidget* parent);
    ~frmAbout() override;

 private:
    std::unique_ptr<Ui::frmAbout> ui_;
};

}  // namespace vellumark
