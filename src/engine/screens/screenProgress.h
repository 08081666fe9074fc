#pragma once

#include <QElapsedTimer>

#include "engine/modRunProgress.h"

class QLabel;
class QProgressBar;
class QStatusBar;

namespace vellumark {

// Shows how far a run has come and keeps the window painted.
class ScreenProgress : public RunProgress {
 public:
    struct Controls {
        QProgressBar& bar;
        QLabel& tables;
        QLabel& rows;
        QStatusBar& status;
        QLabel& elapsed;
    };

    explicit ScreenProgress(const Controls& controls);

    void Caption(const std::string& text) override;
    void Start(std::int64_t total, int tables) override;
    void Rows(std::int64_t count) override;
    void Alive() override;
    void Finish() override { Alive(); }

 private:
    Controls controls_;
    QElapsedTimer clock_;
    std::int64_t total_ = 0;
};

}  // namespace vellumark
