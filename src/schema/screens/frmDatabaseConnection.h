#pragma once

#include <QLineEdit>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/screens/screen.h"
#include "schema/modConnectionForm.h"
#include "schema/modTableList.h"

namespace Ui {
class frmDatabaseConnection;
}

namespace vellumark {

// The details of a connection: of a new schema's database ("New"), of the open schema's Target ("Target"), or
// of the database that a Value Source reads ("Value").
class frmDatabaseConnection : public Screen {
 public:
    // `table` and `column` are those that a Value Source serves. OK leaves its connection in
    // ValueConnectionId.
    explicit frmDatabaseConnection(std::string_view mode, QWidget* parent = nullptr,
                                   std::string_view table = "", std::string_view column = "");
    ~frmDatabaseConnection() override;

 private:
    struct Field {
        QLineEdit* edit;
        std::string ConnectionDetails::*value;
    };

    void ShowMode(const ConnectionScreen& screen);
    void SetLeastSize();
    void ConnectFields();
    void ConnectOptions();
    void ConnectButtons();

    void ShowDetails();
    void ShowString();
    void EnableFields();
    void ShowTableAndColumn();

    void BrowseMDB();
    void BrowseDSN();
    void DataLink();
    void PreviousConnection();
    void ViewData();

    void Refresh();
    void ChooseTable();
    void ListColumns();

    void OK();
    bool fNew();
    bool fTarget();
    bool fValue();

    std::unique_ptr<Ui::frmDatabaseConnection> ui_;
    std::string mode_;
    ConnectionDetails details_;
    std::vector<Field> fields_;
    std::vector<TableEntry> tables_;  // as listed last
};

}  // namespace vellumark
