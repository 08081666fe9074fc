#pragma once

#include <QLabel>
#include <QMainWindow>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/commandTable.h"
#include "app/scenarioList.h"
#include "repository/modVellumark.h"

class QActionGroup;

namespace Ui {
class frmMain;
}

namespace vellumark {

// The main window. It shows the session and starts the commands; nothing is computed here.
class frmMain : public QMainWindow {
    Q_OBJECT

 public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // The progress text of a long operation, painted at once; an empty text gives way to the connection
    // status.
    void ShowProgress(const std::string& text);

 signals:
    void Closed();

 protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

 private:
    void AddCommands();
    void AddViewCommands();
    void AddRefresh();
    void AddMenus();
    void AddToolBars();
    void AddListMenus();
    void Fill(QWidget& bar, const std::vector<std::string_view>& entries);
    QAction& Action(std::string_view key);
    void Run(const Command& command);
    void OpenSisterFile();

    void ShowSession();
    void ShowSchema();
    void ShowLists();
    void ShowStatusPanel();
    void SetView(int view);

    ScenarioList& List(ScenarioTab tab);
    void TakeTab(int index);
    void TakeSelection();
    void RereadLists();

    void RestoreLook();
    void RememberLook() const;

    std::unique_ptr<Ui::frmMain> ui_;
    QLabel statusPanel_;
    QActionGroup* views_ = nullptr;
    std::string progress_;
    bool loaded_ = false;
};

}  // namespace vellumark
