#pragma once

#include "cli/consoleDialogs.h"
#include "engine/modRunProgress.h"

namespace vellumark {

// A progress bar in the last line of a terminal.
class ConsoleProgress : public RunProgress {
 public:
    explicit ConsoleProgress(ConsoleDialogs& dialogs) : dialogs_(dialogs) {}

    void Caption(const std::string& text) override;
    void Start(std::int64_t total, int tables) override;
    void Rows(std::int64_t count) override;
    void Finish() override { dialogs_.Transient(""); }

 private:
    ConsoleDialogs& dialogs_;
    std::string caption_;
    std::int64_t total_ = 0;
};

}  // namespace vellumark
