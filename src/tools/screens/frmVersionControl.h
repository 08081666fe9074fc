#pragma once

#include <memory>

#include "platform/screens/screen.h"
#include "tools/modVersionControlRun.h"

namespace Ui {
class frmVersionControl;
}

namespace vellumark {

// Carries the open Database schema onto another one that the user chooses.
class frmVersionControl : public Screen {
 public:
    explicit frmVersionControl(VersionControlMode mode, QWidget* parent = nullptr);
    ~frmVersionControl() override;

 private:
    void Load();
    void BrowseTarget();
    void BrowseLog();
    void Update();

    std::unique_ptr<Ui::frmVersionControl> ui_;
    VersionControlMode VersionControlMode_;
    int TargetDBSId_ = 0;
};

}  // namespace vellumark
