#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/screens/screen.h"

class QTreeWidgetItem;

namespace Ui {
class frmFileControls;
}

namespace vellumark {

// Picks a folder. The files are there to recognise it by.
class frmFileControls : public Screen {
 public:
    // Starts at `start` or the nearest folder above it that exists.
    frmFileControls(const std::string& title, const std::string& start, QWidget* parent);
    ~frmFileControls() override;

    // With a separator at its end.
    std::string Folder() const;

 private:
    void FillDrives();
    int DriveOf(const std::string& folder) const;
    void ChangeDrive();
    void ShowDrive(int drive);
    void GoTo(const std::string& folder);
    void LoadFolders(QTreeWidgetItem* item);
    void ShowFolder();

    std::unique_ptr<Ui::frmFileControls> ui_;
    int drive_ = 0;
};

// Asks for a folder; nothing when cancelled.
std::optional<std::string> AskFolder(QWidget* parent, const std::string& title, const std::string& start);

}  // namespace vellumark
