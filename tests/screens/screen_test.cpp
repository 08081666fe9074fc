#include "screen_test.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTimer>

#include "embedded.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "scenario/modNewSchema.h"
#include "scenario/modSchemaLifecycle.h"
#include "schema/modConnectionString.h"
#include "test_files.h"

namespace vellumark::test {

namespace {

constexpr int kLooks = 1000;
constexpr int kMillisecondsBetweenLooks = 10;

QWidget& Usable(const QObject& form, const char* name) {
    auto& widget = Child<QWidget>(form, name);
    EXPECT_TRUE(widget.isVisible()) << name << " is not visible";
    EXPECT_TRUE(widget.isEnabled()) << name << " is disabled";
    return widget;
}

}  // namespace

std::optional<std::string> RecordedPicker::Answer(const FilePickerRequest& request) {
    requests.push_back(request);
    if (answers.empty()) {
        ADD_FAILURE() << "no answer for the file dialog " << request.title;
        return std::nullopt;
    }
    std::optional<std::string> answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> RecordedPicker::Open(QWidget* /*parent*/, const FilePickerRequest& request) {
    return Answer(request);
}

std::optional<std::string> RecordedPicker::Save(QWidget* /*parent*/, const FilePickerRequest& request) {
    return Answer(request);
}

void ScreenTest::TearDown() {
    for (const Expected& missing : expected_)
        ADD_FAILURE() << "the screen " << missing.name << " did not come";
    expected_.clear();
    for (QWidget* window : QApplication::topLevelWidgets())
        window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    CloseDatabaseSchema();
    CommandRefresher = nullptr;
    SessionTest::TearDown();
}

void ScreenTest::WhenShown(const std::string& name, std::function<void(QWidget&)> act) {
    expected_.push_back({name, std::move(act)});
    if (expected_.size() == 1)
        QTimer::singleShot(0, [this] { LookForScreen(); });
}

// A screen that a failed check leaves open would hold up the run.
void ScreenTest::Act(const std::function<void(QWidget&)>& act, QWidget& screen) {
    const QPointer<QWidget> shown(&screen);
    act(screen);
    if (HasFailure() && shown != nullptr)
        shown->close();
}

void ScreenTest::LookForScreen() {
    if (expected_.empty())
        return;
    QWidget* screen = QApplication::activeModalWidget();
    Expected& next = expected_.front();
    if (screen != nullptr && FromQt(screen->objectName()) == next.name && screen->isVisible()) {
        const std::function<void(QWidget&)> act = std::move(next.act);
        expected_.pop_front();
        if (!expected_.empty())
            QTimer::singleShot(0, [this] { LookForScreen(); });
        Act(act, *screen);
        return;
    }
    if (++next.looks < kLooks) {
        QTimer::singleShot(kMillisecondsBetweenLooks, [this] { LookForScreen(); });
        return;
    }
    ADD_FAILURE() << "the screen " << next.name << " did not come; "
                  << (screen ? FromQt(screen->objectName()) : "none") << " is up";
    expected_.clear();
    if (screen != nullptr)
        screen->close();
}

void ScreenTest::ReadShop() {
    NewSchemaDetails details{.name = "Shop"};
    details.connection.mdbFile = MakeEmbedded(folder.Path("shop.mdb"), ReadFile(Sample("shop.sql")));
    fConnectionString(details.connection);
    ASSERT_TRUE(fNewSchema(details)) << recorder.Take();
}

void Click(const QObject& form, const char* name) {
    QTest::mouseClick(&Usable(form, name), Qt::LeftButton);
}

void Type(const QObject& form, const char* name, const std::string& text) {
    QWidget& field = Usable(form, name);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, ToQt(text));
}

void Choose(const QObject& form, const char* combo, const std::string& text) {
    auto& list = dynamic_cast<QComboBox&>(Usable(form, combo));
    const int index = list.findText(ToQt(text), Qt::MatchFixedString);
    ASSERT_GE(index, 0) << combo << " doesn't offer " << text;
    list.setCurrentIndex(index);
    emit list.activated(index);
}

void Press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&target, key, modifiers);
}

std::string TextOf(const QObject& form, const char* name) {
    const QObject& child = Child<QObject>(form, name);
    for (const char* property : {"currentText", "plainText", "text"})
        if (child.metaObject()->indexOfProperty(property) >= 0)
            return FromQt(child.property(property).toString());
    throw std::runtime_error(std::string("no text in ") + name);
}

bool IsEnabled(const QObject& form, const char* name) {
    return Child<QWidget>(form, name).isEnabled();
}

bool IsShown(const QObject& form, const char* name) {
    const auto& widget = Child<QWidget>(form, name);
    return widget.isVisibleTo(widget.window());
}

void RunCommand(const QObject& form, const char* key) {
    auto& action = Child<QAction>(form, key);
    ASSERT_TRUE(action.isEnabled()) << key << " is disabled";
    action.trigger();
}

}  // namespace vellumark::test
