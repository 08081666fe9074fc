#pragma once

#include <memory>

#include "platform/screens/screen.h"

namespace Ui {
class frmCreateLoadFile;
}

namespace vellumark {

// Writes the control file of a bulk loader for the selected Table rule of the current Scenario.
class frmCreateLoadFile : public Screen {
 public:
    explicit frmCreateLoadFile(QWidget* parent = nullptr);
    ~frmCreateLoadFile() override;

 private:
    void Load();
    void ShowDefaultFileName();
    void BrowseFile();
    void Create();
    void ViewFile();

    std::unique_ptr<Ui::frmCreateLoadFile> ui_;
};

}  // namespace vellumark
