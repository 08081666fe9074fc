#include "repository/screens/frmHelp.h"

#include <QListWidget>
#include <QMessageBox>
#include <QTextBrowser>
#include <QTreeWidget>
#include <gmock/gmock.h>

#include "platform/screens/boxDialogs.h"
#include "platform/screens/qtText.h"
#include "platform/screens/screenHelp.h"
#include "repository/modSequentialFileServices.h"
#include "repository/screens/frmUpdateEditPatterns.h"
#include "repository/screens/helpOpeners.h"
#include "screen_test.h"

namespace vellumark::test {
namespace {

using ::testing::HasSubstr;

class FrmHelpTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        LoadProgramPaths();
        UseHelpWindow();
    }
    void TearDown() override {
        ScreenTest::TearDown();
        HelpViewer = nullptr;
        HelpOnScreen = nullptr;
        HelpOnMessage = nullptr;
    }

    static frmHelp* Window() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* help = dynamic_cast<frmHelp*>(window); help != nullptr && help->isVisible())
                return help;
        return nullptr;
    }
    static QTextBrowser& Page() { return Child<QTextBrowser>(*Window(), "txtPage"); }
    static std::string Shown() {
        const QUrl url = Page().source();
        return FromQt(url.fileName() + (url.hasFragment() ? "#" + url.fragment() : ""));
    }
    static std::string Marked() {
        std::string texts;
        for (const QTextEdit::ExtraSelection& selection : Page().extraSelections())
            texts += FromQt(selection.cursor.selectedText()) + "|";
        return texts;
    }
};

TEST_F(FrmHelpTest, F1OpensTheScreensPageWhileTheScreenWaits) {
    WhenShown("frmUpdateEditPatterns", [](QWidget& screen) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
        Press(screen, Qt::Key_F1);
        ASSERT_NE(Window(), nullptr);
        EXPECT_EQ(Shown(), "edit-patterns.html#frmUpdateEditPatterns");
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window()));
        Press(*Window(), Qt::Key_F, Qt::ControlModifier);
        QTest::mouseClick(&Child(*Window(), "cmdHome"), Qt::LeftButton);
        EXPECT_EQ(Shown(), "index.html");
        screen.close();
    });
    frmUpdateEditPatterns(nullptr).exec();
    ASSERT_NE(Window(), nullptr) << "the help went away with the screen";

    // A screen that comes later doesn't shut out the window that is already there.
    WhenShown("frmUpdateEditPatterns", [](QWidget& screen) {
        QTest::mouseClick(&Child(*Window(), "cmdBack"), Qt::LeftButton);
        EXPECT_EQ(Shown(), "edit-patterns.html#frmUpdateEditPatterns");
        screen.close();
    });
    frmUpdateEditPatterns(nullptr).exec();
}

TEST_F(FrmHelpTest, TheMenuOpensContentsSearchAndHelpOnHelp) {
    ShowHelp(HelpTopic::Contents);
    EXPECT_EQ(Shown(), "index.html");
    const auto& contents = Child<QTreeWidget>(*Window(), "treeContents");
    ASSERT_GT(contents.topLevelItemCount(), 5);
    EXPECT_EQ(FromQt(contents.topLevelItem(0)->text(0)), "A first run in ten minutes");
    ShowHelp(HelpTopic::HelpOnHelp);
    EXPECT_EQ(Shown(), "using-help.html");
    EXPECT_EQ(FromQt(contents.currentItem()->text(0)), "How to use this help");
    ShowHelp(HelpTopic::Search);
    EXPECT_TRUE(IsShown(*Window(), "txtSearch"));
}

TEST_F(FrmHelpTest, SearchListsThePartsThatHoldAllWordsAndMarksThem) {
    ShowHelp(HelpTopic::Search);
    Type(*Window(), "txtSearch", "zebra crossing");
    auto& hits = Child<QListWidget>(*Window(), "lstHits");
    EXPECT_EQ(hits.count(), 0);
    EXPECT_EQ(TextOf(*Window(), "lblHits"), "Nothing was found.");
    Type(*Window(), "txtSearch", "pattern edit");
    ASSERT_GT(hits.count(), 2);
    EXPECT_THAT(FromQt(hits.item(0)->text()), HasSubstr("Edit pattern")) << "words in a heading go first";
    hits.setCurrentRow(0);
    EXPECT_EQ(Shown().substr(0, 18), "edit-patterns.html");
    EXPECT_THAT(Marked(), HasSubstr("Edit|"));
    EXPECT_THAT(Marked(), HasSubstr("pattern|"));
}

TEST_F(FrmHelpTest, F1OnABoxMarksItsMessage) {
    BoxDialogs boxes;
    WhenShown("", [](QWidget& box) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        Press(box, Qt::Key_F1);
        ASSERT_NE(Window(), nullptr);
        EXPECT_EQ(Shown(), "messages.html");
        EXPECT_EQ(Marked(), "already exists. Do you want to replace it?|");
        box.close();
    });
    boxes.AskYesNo(platform::Icon::Question, "/tmp/orders.sql already exists. Do you want to replace it?");
}

TEST_F(FrmHelpTest, AMissingGuideIsTold) {
    HelpFilePath = folder.Path("Vellumark.chm");
    ShowHelp(HelpTopic::Contents);
    EXPECT_EQ(recorder.Take(), "exclamation: Cannot show the help.\n\nError: 53 File not found: '" +
                                   folder.Path("help/index.html") + "'");
    EXPECT_EQ(Window(), nullptr);
}

}  // namespace
}  // namespace vellumark::test
