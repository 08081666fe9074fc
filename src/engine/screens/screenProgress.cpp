#include "engine/screens/screenProgress.h"

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include "platform/screens/inputLock.h"
#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

QString ElapsedText(qint64 milliseconds) {
    const qint64 minutes = milliseconds / 60000;
    const QString seconds = QString::number(static_cast<double>(milliseconds % 60000) / 1000, 'f', 1) + " s";
    return "Elapsed: " + (minutes > 0 ? QString::number(minutes) + " min " : QString()) + seconds;
}

}  // namespace

ScreenProgress::ScreenProgress(const Controls& controls) : controls_(controls) {
    clock_.start();
}

void ScreenProgress::Caption(const std::string& text) {
    controls_.status.showMessage(ToQt(text));
    Alive();
}

void ScreenProgress::Start(std::int64_t total, int tables) {
    total_ = total;
    controls_.tables.setNum(tables);
    Rows(0);
}

void ScreenProgress::Rows(std::int64_t count) {
    controls_.bar.setValue(ProgressPoints(total_, count));
    controls_.rows.setText(QString::number(count));
    Alive();
}

void ScreenProgress::Alive() {
    controls_.elapsed.setText(ElapsedText(clock_.elapsed()));
    InputLock::Breathe();
}

}  // namespace vellumark
