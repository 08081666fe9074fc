#pragma once

#include <QTimer>
#include <memory>
#include <string>

#include "platform/screens/screen.h"
#include "tools/modDataViewer.h"
#include "tools/screens/viewedRows.h"
#include "tools/viewedData.h"

namespace Ui {
class frmViewData;
}

namespace vellumark {

// Shows a table or the result of a SQL text, and edits its rows as far as the check boxes allow.
class frmViewData : public Screen {
 public:
    explicit frmViewData(ViewerCaller caller, QWidget* parent = nullptr);
    ~frmViewData() override;

    bool IsConnected() const { return connection_.IsOpen(); }

    void reject() override;

 private:
    void Connect();
    void Load(ViewerCaller caller);
    void ShowHeader();
    void ListTables();
    void ShowMode();
    void Allow();
    void ChooseTable();
    void Run();
    bool RunToEnd(const std::string& text);
    void BuildSQL();
    void Requery();
    void ShowRows();
    void ReadOn();
    void ShowPlace();
    void ShowStatus(const std::string& text);
    void Close();

    std::unique_ptr<Ui::frmViewData> ui_;
    ViewerConnection connection_;
    std::unique_ptr<ViewedData> data_;  // nothing while not connected
    std::unique_ptr<ViewedRows> rows_;
    bool stopping_ = false;
    QTimer reading_;  // at once, whenever there is nothing else to do
};

}  // namespace vellumark
