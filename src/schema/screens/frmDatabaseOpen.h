#pragma once

#include <memory>
#include <optional>

#include "platform/screens/screen.h"
#include "schema/screens/schemaRows.h"

namespace Ui {
class frmDatabaseOpen;
}

namespace vellumark {

enum class SchemaListMode { Open, Delete, VersionControl };

// Lists the Database schemas: to open one, to delete some, or to choose one for version control.
class frmDatabaseOpen : public Screen {
 public:
    explicit frmDatabaseOpen(SchemaListMode mode, QWidget* parent = nullptr);
    ~frmDatabaseOpen() override;

    // What was chosen for version control.
    const std::optional<SchemaEntry>& Selected() const { return selected_; }

 private:
    void EnableDisable();
    void Filter();
    void OK();
    void Open(int schemaId);
    void Delete(int schemaId);

    std::unique_ptr<Ui::frmDatabaseOpen> ui_;
    SchemaListMode mode_;
    SchemaRows schemas_;
    std::optional<SchemaEntry> selected_;
};

}  // namespace vellumark
