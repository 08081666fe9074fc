#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace vellumark {

// Where a run shows how far it has come.
class RunProgress {
 public:
    virtual ~RunProgress() = default;

    virtual void Caption(const std::string& text) = 0;
    // `total` rows or statements for `tables` tables are to be made.
    virtual void Start(std::int64_t total, int tables) = 0;
    // How many have been made; called at most some 30 times a second.
    virtual void Rows(std::int64_t count) = 0;
    virtual void Finish() = 0;
};

// Announces what the current Insert or Delete Scenario is to make. The Repository is open.
void fInitProgressInsertSQL(RunProgress& progress);
void fInitProgressDeleteSQL(RunProgress& progress);

// Points from 0 to 100 that a progress bar shows behind `count` of `total` steps.
int ProgressPoints(std::int64_t total, std::int64_t count);

// Counts rows and now and then tells them.
class RowTicker {
 public:
    explicit RowTicker(RunProgress& progress) : progress_(progress) {}

    void Row() {
        if ((++rows_ & kRowsBetweenLooks) == 0)
            TellWhenDue();
    }
    void Tell() { progress_.Rows(rows_); }

 private:
    static constexpr std::int64_t kRowsBetweenLooks = 0x3F;

    void TellWhenDue();

    RunProgress& progress_;
    std::int64_t rows_ = 0;
    std::chrono::steady_clock::time_point due_{};
};

}  // namespace vellumark
