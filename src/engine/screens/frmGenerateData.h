#pragma once

#include <memory>
#include <string>

#include "engine/modGenerateChoice.h"
#include "platform/screens/screen.h"

class QLabel;

namespace Ui {
class frmGenerateData;
}

namespace vellumark {

// Takes the output choice for the current Scenario and runs it.
class frmGenerateData : public Screen {
 public:
    explicit frmGenerateData(QWidget* parent);
    ~frmGenerateData() override;

 protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

 private:
    void Connect();
    void Load();
    void ShowDefaults();
    void fUpdateGenerateData();
    void ShowPictures();
    void ChooseOutput();
    void setcboDatabase();
    void Enable_Disable();

    void BrowseTextFile();
    void BrowseDBConnection();
    void ViewFile();

    void Generate();
    bool Run(const OutputChoice& choice);
    void SetRunning(bool running);
    void ShowResult(const std::string& textFile);

    OutputChoice Choice() const;
    TargetFormat ChosenFormat() const;
    void ShowFormat(const std::string& name);

    std::unique_ptr<Ui::frmGenerateData> ui_;
    QLabel* elapsed_ = nullptr;
    RunDefaults defaults_;
    RunSchema schema_;
    bool OtherDBMS_ = false;  // the Target Connection leaves the format to the user
    bool running_ = false;
    int shownDBSId_ = 0;
    int shownTSOId_ = 0;
};

}  // namespace vellumark
