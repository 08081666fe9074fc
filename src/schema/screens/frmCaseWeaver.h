#pragma once

#include <memory>

#include "schema/screens/sisterFileScreen.h"

namespace Ui {
class frmCaseWeaver;
}

namespace vellumark {

// Reads a new schema from the file that Case Weaver writes.
class frmCaseWeaver : public SisterFileScreen {
 public:
    explicit frmCaseWeaver(QWidget* parent = nullptr);
    ~frmCaseWeaver() override;

 private:
    std::optional<SisterFileHead> ReadHead(const std::string& path) const override;
    void ShowHead(const SisterFileHead& head) override;

    std::unique_ptr<Ui::frmCaseWeaver> ui_;
};

}  // namespace vellumark
