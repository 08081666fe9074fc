#pragma once

#include <memory>

#include "platform/screens/screen.h"

namespace Ui {
class frmSplash;
}

namespace vellumark {

// The start screen. It closes by itself after a moment, or at once by a click or a key.
class frmSplash : public Screen {
 public:
    explicit frmSplash(QWidget* parent = nullptr);
    ~frmSplash() override;

    // Shows it beside a program that is still starting, painted before this returns.
    void ShowAtOnce();

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    std::unique_ptr<Ui::frmSplash> ui_;
};

}  // namespace vellumark
