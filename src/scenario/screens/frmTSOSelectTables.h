#pragma once

#include <memory>
#include <vector>

#include "platform/screens/screen.h"

namespace Ui {
class frmTSOSelectTables;
}

namespace vellumark {

class TableList;

// Edits which tables of the schema the open Scenario has on offer.
class frmTSOSelectTables : public Screen {
 public:
    explicit frmTSOSelectTables(QWidget* parent);
    ~frmTSOSelectTables() override;

 private:
    void ConnectLists();
    void ConnectSorting();

    void MoveToScenario(const std::vector<int>& ids);
    void MoveToDatabase(const std::vector<int>& ids);
    void Move(TableList& from, TableList& to, const std::vector<int>& ids);
    void ToggleName();
    void EnableMoves();

    std::unique_ptr<Ui::frmTSOSelectTables> ui_;
    bool entityFirst_ = false;
};

}  // namespace vellumark
