#pragma once

#include <QAbstractButton>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace vellumark {

// For as long as it stands, the windows of the program are painted but answer neither keys, mouse nor a
// close; what the user does meanwhile is dropped. Boxes that come up answer as ever, and so does a button
// that stops the work, which Escape and closing the window press.
class InputLock : public QObject {
 public:
    explicit InputLock(QAbstractButton* stop = nullptr);
    ~InputLock() override;

    // Paints what has changed. To be called now and then.
    static void Breathe();

 protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    bool IsForStop(const QObject& receiver) const;

    QAbstractButton* stop_;
    QPointer<QWidget> modal_;  // the window that had the input
};

}  // namespace vellumark
