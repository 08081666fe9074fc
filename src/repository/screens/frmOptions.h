#pragma once

#include <QByteArray>
#include <memory>
#include <string>

#include "platform/screens/screen.h"
#include "repository/screens/optionsFields.h"

class QLineEdit;
class QPushButton;

namespace Ui {
class frmOptions;
}

namespace vellumark {

// Edits the options. A page whose rules are broken can't be left.
class frmOptions : public Screen {
 public:
    explicit frmOptions(QWidget* parent);
    ~frmOptions() override;

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void ConnectPages();
    void ConnectFolders();
    void ConnectFiles();
    void ConnectPatterns();

    void ChangePage(int page);
    // The rules of the page in front; a broken one is shown and its field selected.
    bool fPageOK();
    void Close();

    void PickFolder(QLineEdit& field, const std::string& title);
    void PickEditor();
    void PickHeaderFile();
    void EditHeaderFile();
    void EnableHeaderFile();

    void EditSettings();
    void ReloadSettings();
    // When the user comes back from the editor with the settings file changed.
    void ReloadChangedSettings();
    void ShowSettings();

    std::unique_ptr<Ui::frmOptions> ui_;
    std::unique_ptr<OptionsFields> fields_;
    int page_ = 0;
    bool settingsOpened_ = false;
    QByteArray settingsRead_;
};

}  // namespace vellumark
