#pragma once

#include <memory>
#include <string>

#include "platform/screens/screen.h"
#include "schema/screens/linkPartRows.h"

namespace Ui {
class frmDataLink;
}

namespace vellumark {

// Edits a connection string by its parts, and tries it.
class frmDataLink : public Screen {
 public:
    frmDataLink(const std::string& connectionString, QWidget* parent);
    ~frmDataLink() override;

    std::string ConnectionString() const { return link_.ConnectionString(); }

    void reject() override;

 private:
    void Test();
    void OK();

    std::unique_ptr<Ui::frmDataLink> ui_;
    DataLink link_;
    LinkPartRows parts_;
};

}  // namespace vellumark
