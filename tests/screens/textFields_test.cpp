#include "repository/screens/textFields.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>

#include "repository/modVellumark.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class TextFieldsTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        first.setText("12");
        second.setText("34");
        layout.addWidget(&first);
        layout.addWidget(&second);
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    QWidget form;
    QHBoxLayout layout{&form};
    QLineEdit first;
    QLineEdit second;
};

TEST_F(TextFieldsTest, NumberFieldsDropOtherKeysAndTexts) {
    struct Case {
        DataType type;
        const char* keys;
        const char* text;
    };
    DecimalPointCharacter = ',';
    for (const auto& [type, keys, text] : {
             Case{DataType::Integer, "-1a2. ,3", "-123"},
             Case{DataType::Double, "1,5.0e2", "1,502"},
             Case{DataType::Single, "0,5", "0,5"},
         }) {
        NumericKeys(first, type);
        first.clear();
        QTest::keyClicks(&first, keys);
        EXPECT_EQ(first.text(), text);
    }
    DecimalPointCharacter = '.';

    NumericKeys(first, DataType::Integer);
    first.setText("100");
    first.setSelection(0, 2);
    Press(first, Qt::Key_X);
    EXPECT_EQ(first.text(), "100") << "a dropped key takes nothing with it";
    EXPECT_EQ(first.selectedText(), "10");
    for (const auto& [pasted, text] :
         {std::pair{"x1", "100"}, {"1 000", "100"}, {"\xd9\xa3", "100"}, {"-7", "-70"}}) {
        QApplication::clipboard()->setText(pasted);
        first.setSelection(0, 2);
        Press(first, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(first.text(), text) << pasted;
    }
    Press(first, Qt::Key_Backspace);
    EXPECT_EQ(first.text(), "-0");
}

TEST_F(TextFieldsTest, FocusSelectsTheWholeText) {
    SelectTextOnFocus(form);
    second.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(second.selectedText(), "34");

    QTest::mouseClick(&first, Qt::LeftButton);
    EXPECT_EQ(first.selectedText(), "12");
    QTest::mouseClick(&first, Qt::LeftButton, {}, QPoint(3, first.height() / 2));
    EXPECT_FALSE(first.hasSelectedText()) << "the second click sets the cursor";

    QTest::mousePress(&second, Qt::LeftButton, {}, QPoint(3, second.height() / 2));
    second.setSelection(0, 1);  // what dragging over a part leaves
    QTest::mouseRelease(&second, Qt::LeftButton);
    EXPECT_EQ(second.selectedText(), "3");

    Press(second, Qt::Key_Tab);
    Press(first, Qt::Key_Backtab);
    EXPECT_EQ(second.selectedText(), "34");
}

}  // namespace

}  // namespace vellumark::test
