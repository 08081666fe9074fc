#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/screens/screen.h"

namespace Ui {
class frmValuePreview;
}

namespace vellumark {

// The first values of a source, to look at.
class frmValuePreview : public Screen {
 public:
    frmValuePreview(const std::vector<std::string>& values, QWidget* parent);
    ~frmValuePreview() override;

 private:
    std::unique_ptr<Ui::frmValuePreview> ui_;
};

}  // namespace vellumark
