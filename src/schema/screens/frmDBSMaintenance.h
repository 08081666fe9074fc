#pragma once

#include <memory>

#include "platform/screens/screen.h"
#include "schema/screens/editedColumnRows.h"
#include "schema/screens/editedTableRows.h"

namespace Ui {
class frmDBSMaintenance;
}

namespace vellumark {

// Edits the open schema: its description, tables, columns and foreign keys.
class frmDBSMaintenance : public Screen {
 public:
    explicit frmDBSMaintenance(QWidget* parent = nullptr);
    ~frmDBSMaintenance() override;

    void reject() override;

 private:
    void ShowColumns();
    void EnableDisable();
    void SetForeignKey();
    void ClearForeignKey();
    void Close();
    // Writes what is being edited; false when a row stays open.
    bool CommitRows();

    std::unique_ptr<Ui::frmDBSMaintenance> ui_;
    EditedTableRows tables_;
    EditedColumnRows columns_;
    std::string description_;
};

}  // namespace vellumark
