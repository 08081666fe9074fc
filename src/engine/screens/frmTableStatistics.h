#pragma once

#include <memory>

#include "platform/screens/screen.h"

namespace Ui {
class frmTableStatistics;
}

namespace vellumark {

// Counts of the columns of one table of the open schema.
class frmTableStatistics : public Screen {
 public:
    explicit frmTableStatistics(QWidget* parent);
    ~frmTableStatistics() override;

 private:
    void ShowTableStatistics();

    std::unique_ptr<Ui::frmTableStatistics> ui_;
};

}  // namespace vellumark
