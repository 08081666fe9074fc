#pragma once

#include <memory>

#include "platform/screens/screen.h"
#include "tools/modTableLoad.h"

namespace Ui {
class frmLoadTable;
}

namespace vellumark {

// Loads a delimited text file into a table of an embedded database.
class frmLoadTable : public Screen {
 public:
    explicit frmLoadTable(QWidget* parent = nullptr);
    ~frmLoadTable() override;

 private:
    void ShowDefaults();
    void BrowseDB();
    void BrowseFile();
    void Load();
    void ViewFile();
    TableLoad Entered() const;
    void GoTo(TableLoadField field);

    std::unique_ptr<Ui::frmLoadTable> ui_;
};

}  // namespace vellumark
