#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

namespace vellumark {

// Edits a connection string of one line, wrapped. Passwords in it are masked except while it is being typed.
class ConnectionStringEdit : public QPlainTextEdit {
    Q_OBJECT

 public:
    explicit ConnectionStringEdit(QWidget* parent = nullptr);

    // `shown` is the string as people may see it.
    void SetString(std::string_view text, std::string_view shown);
    const std::string& String() const { return text_; }
    void SetLocked(bool locked);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
    // The user has changed the string.
    void Edited();

 protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

 private:
    void ShowString();
    void TakeText();

    std::string text_;
    std::string shown_;
    bool showing_ = false;
};

}  // namespace vellumark
