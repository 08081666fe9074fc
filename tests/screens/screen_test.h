#pragma once

#include <QAction>
#include <QComboBox>
#include <QTest>
#include <QWidget>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/screens/filePicker.h"
#include "session.h"

namespace vellumark::test {

// Answers file dialogs; one without a queued answer fails the test.
class RecordedPicker : public FilePicker {
 public:
    RecordedPicker() { UseFilePicker(*this); }

    std::optional<std::string> Open(QWidget* parent, const FilePickerRequest& request) override;
    std::optional<std::string> Save(QWidget* parent, const FilePickerRequest& request) override;

    std::vector<FilePickerRequest> requests;
    std::deque<std::optional<std::string>> answers;

 private:
    std::optional<std::string> Answer(const FilePickerRequest& request);
};

// A session on fresh stores whose screens are driven by the names of their controls, with boxes and file
// dialogs recorded.
class ScreenTest : public SessionTest {
 protected:
    void TearDown() override;

    // Runs `act` once the modal screen of that object name is up, from inside its event loop. A screen that
    // doesn't come within ten seconds fails the test, and whatever is up instead is closed. Calls queue: the
    // second one waits for the first to have run.
    void WhenShown(const std::string& name, std::function<void(QWidget&)> act);

    // Reads samples/shop.sql as the schema "Shop" by the program's own way and leaves it open.
    void ReadShop();

    RecordedPicker picker;

 private:
    void LookForScreen();
    static void Act(const std::function<void(QWidget&)>& act, QWidget& screen);

    struct Expected {
        std::string name;
        std::function<void(QWidget&)> act;
        int looks = 0;
    };
    std::deque<Expected> expected_;
};

// The control of that name; one that isn't there ends the test.
template <class Widget = QWidget>
Widget& Child(const QObject& form, const char* name) {
    auto* child = form.findChild<Widget*>(name);
    if (child == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *child;
}

// What a user does: a click on an enabled and visible control, text typed over what is there, a choice in a
// list. A control that can't be used so fails the test.
void Click(const QObject& form, const char* name);
void Type(const QObject& form, const char* name, const std::string& text);
void Choose(const QObject& form, const char* combo, const std::string& text);
void Press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

// The text that a line edit, label, button or combo box shows.
std::string TextOf(const QObject& form, const char* name);
bool IsEnabled(const QObject& form, const char* name);
// Visible apart from the question whether the screen itself is shown.
bool IsShown(const QObject& form, const char* name);

// The command with that key, as a menu would run it; a disabled one fails the test.
void RunCommand(const QObject& form, const char* key);

}  // namespace vellumark::test
