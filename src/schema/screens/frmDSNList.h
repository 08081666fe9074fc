#pragma once

#include <memory>
#include <string>

#include "platform/screens/screen.h"
#include "schema/screens/dataSourceRows.h"

namespace Ui {
class frmDSNList;
}

namespace vellumark {

// Chooses an ODBC data source.
class frmDSNList : public Screen {
 public:
    // Starts on the data source of that name where there is one.
    frmDSNList(std::string_view present, QWidget* parent);
    ~frmDSNList() override;

    // Empty when none was chosen.
    const std::string& Selected() const { return selected_; }

 private:
    void Select();

    std::unique_ptr<Ui::frmDSNList> ui_;
    DataSourceRows sources_;
    std::string selected_;
};

}  // namespace vellumark
