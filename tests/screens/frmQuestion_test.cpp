#include "platform/screens/boxDialogs.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

using FrmQuestionTest = ScreenTest;

TEST_F(FrmQuestionTest, EachButtonAnswers) {
    const platform::Choice choice{"Sort by Table or Entity?", "&Table", "&Entity", "&Cancel"};
    BoxDialogs boxes;
    for (const auto& [button, answer] :
         std::vector<std::pair<const char*, int>>{{"cmd1", 1}, {"cmd2", 2}, {"cmdCancel", 0}}) {
        WhenShown("frmQuestion", [&](QWidget& form) {
            EXPECT_EQ(TextOf(form, "lblQuestion"), choice.text);
            EXPECT_EQ(TextOf(form, "cmd2"), "&Entity");
            Click(form, button);
        });
        EXPECT_EQ(boxes.Choose(choice), answer) << button;
    }
}

TEST_F(FrmQuestionTest, CancelIsTheSafeAnswerAndMissingButtonsAreHidden) {
    BoxDialogs boxes;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        WhenShown("frmQuestion", [&](QWidget& form) {
            EXPECT_FALSE(IsShown(form, "cmd2"));
            Press(form, key);
        });
        EXPECT_EQ(boxes.Choose({"Stopped.", "&Show SQL", "", "&Close"}), 0);
    }
}

}  // namespace

}  // namespace vellumark::test
