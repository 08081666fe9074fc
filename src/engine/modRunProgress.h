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
    // Called about as often while rows are made that don't count.
    virtual void Alive() {}
    virtual void Finish() = 0;
};

// Announces what the current Insert or Delete Scenario is to make. The Repository is open.
void fInitProgressInsertSQL(RunProgress& progress);
void fInitProgressDeleteSQL(RunProgress& progress);

// Points from 0 to 100 that a progress bar shows behind `count` of `total` steps.
int ProgressPoints(std::int64_t total, std::int64_t count);

// Tells some 30 times a second that it is time for a sign of life.
class Pacer {
 public:
    bool Due() { return (++calls_ & kCallsBetweenLooks) == 0 && LookAtClock(); }

 private:
    static constexpr std::uint32_t kCallsBetweenLooks = 0x3F;

    bool LookAtClock();

    std::uint32_t calls_ = 0;
    std::chrono::steady_clock::time_point due_{};
};

// Counts rows and now and then tells them.
class RowTicker {
 public:
    explicit RowTicker(RunProgress& progress) : progress_(progress) {}

    void Row() {
        ++rows_;
        if (pacer_.Due())
            Tell();
    }
    void Tell() { progress_.Rows(rows_); }

 private:
    RunProgress& progress_;
    Pacer pacer_;
    std::int64_t rows_ = 0;
};

}  // namespace vellumark
