#include "cli/consoleProgress.h"

namespace vellumark {

namespace {
constexpr int kPointsPerMark = 4;
}

void ConsoleProgress::Caption(const std::string& text) {
    caption_ = text;
    dialogs_.Transient(text);
}

void ConsoleProgress::Start(std::int64_t total, int) {
    total_ = total;
}

void ConsoleProgress::Rows(std::int64_t count) {
    const int points = ProgressPoints(total_, count);
    const auto marks = static_cast<std::size_t>(points / kPointsPerMark);
    std::string bar(100 / kPointsPerMark, '.');
    bar.replace(0, marks, marks, '#');
    dialogs_.Transient("[" + bar + "] " + std::to_string(points) + "% " + std::to_string(count) + " rows  " +
                       caption_);
}

}  // namespace vellumark
