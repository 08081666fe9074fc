#pragma once

#include <memory>

#include "schema/screens/sisterFileScreen.h"

namespace Ui {
class frmSheetWeaver;
}

namespace vellumark {

// Reads a new schema from the file that Sheet Weaver writes.
class frmSheetWeaver : public SisterFileScreen {
 public:
    explicit frmSheetWeaver(QWidget* parent = nullptr);
    ~frmSheetWeaver() override;

 private:
    std::optional<SisterFileHead> ReadHead(const std::string& path) const override;
    void ShowHead(const SisterFileHead& head) override;

    std::unique_ptr<Ui::frmSheetWeaver> ui_;
};

}  // namespace vellumark
