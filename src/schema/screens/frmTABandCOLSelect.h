#pragma once

#include <memory>
#include <optional>

#include "platform/screens/screen.h"
#include "schema/screens/editedTableRows.h"
#include "schema/screens/parentColumnRows.h"

namespace Ui {
class frmTABandCOLSelect;
}

namespace vellumark {

// Picks the parent of a foreign-key column among the columns of its type and size.
class frmTABandCOLSelect : public Screen {
 public:
    frmTABandCOLSelect(const EditedColumn& child, QWidget* parent);
    ~frmTABandCOLSelect() override;

    // The column chosen; nothing when there was none to choose.
    const std::optional<EditedColumn>& Selected() const { return selected_; }

 private:
    void ShowColumns();
    void EnableDisable();
    void Select();

    std::unique_ptr<Ui::frmTABandCOLSelect> ui_;
    EditedTableRows tables_;
    ParentColumnRows columns_;
    std::optional<EditedColumn> selected_;
};

}  // namespace vellumark
