#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace vellumark {

// For as long as it stands, the windows of the program are painted but answer neither keys, mouse nor a
// close; what the user does meanwhile is dropped. Boxes that come up answer as ever.
class InputLock : public QObject {
 public:
    InputLock();
    ~InputLock() override;

    // Paints what has changed. To be called now and then.
    static void Breathe();

 protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    QPointer<QWidget> modal_;  // the window that had the input
};

}  // namespace vellumark
