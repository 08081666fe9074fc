#pragma once

#include <QApplication>

namespace vellumark {

// The application object: house style, name, and the last catch of errors, so that none reaches the event
// loop.
class DesktopApplication : public QApplication {
 public:
    DesktopApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace vellumark
