#pragma once

#include <QDialog>
#include <QPointer>

namespace vellumark {

// The base of all screens but the main one. It remembers its size under its object name, which its form sets,
// names its controls to screen readers by their labels, and F1 opens the help on it.
class Screen : public QDialog {
 public:
    explicit Screen(QWidget* parent = nullptr);

 protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    bool prepared_ = false;
};

// Brings up the one instance of a screen that stands beside the main window, making it when there is none. It
// is gone once closed.
template <class Form>
Form& ShowSingle(QWidget* parent) {
    static QPointer<Form> instance;
    if (instance.isNull()) {
        instance = std::make_unique<Form>(parent).release();
        instance->setAttribute(Qt::WA_DeleteOnClose);
    }
    instance->show();
    instance->raise();
    instance->activateWindow();
    return *instance;
}

// The hourglass for as long as it stands.
class WaitPointer {
 public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace vellumark
