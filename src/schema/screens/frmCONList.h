#pragma once

#include <memory>
#include <optional>

#include "platform/screens/screen.h"
#include "schema/screens/connectionRows.h"

namespace Ui {
class frmCONList;
}

namespace vellumark {

enum class ConnectionListMode { Select, Delete };

// Chooses one of the stored connections, or deletes those that nothing uses.
class frmCONList : public Screen {
 public:
    frmCONList(ConnectionListMode mode, QWidget* parent);
    ~frmCONList() override;

    // What was chosen.
    const std::optional<ConnectionDetails>& Selected() const { return selected_; }

 private:
    void EnableDisable();
    void Filter();
    void Select();
    void DeleteUnused();

    std::unique_ptr<Ui::frmCONList> ui_;
    ConnectionListMode mode_;
    ConnectionRows connections_;
    std::optional<ConnectionDetails> selected_;
};

}  // namespace vellumark
