#include "repository/screens/frmUpdateEditPatterns.h"

#include <QListWidget>

#include "platform/screens/qtText.h"
#include "repository/modEditPatternScreens.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class FrmUpdateEditPatternsTest : public ScreenTest {
 protected:
    // Opens the screen for a button, does `act` and returns the pattern or "cancelled".
    std::string Edit(const std::string& caller, const std::string& pattern,
                     const std::function<void(QWidget&)>& act) {
        WhenShown("frmUpdateEditPatterns", act);
        return EditPatternDialog(nullptr, caller, pattern).value_or("cancelled");
    }

    // Presses a button that asks, and picks the item of that text.
    void Select(QWidget& form, const char* button, const std::string& text) {
        WhenShown("frmEPSelection", [&](QWidget& selection) {
            auto& list = Child<QListWidget>(selection, "lstEditPatt");
            EXPECT_EQ(list.currentRow(), 0);
            list.setCurrentItem(list.findItems(ToQt(text), Qt::MatchExactly).at(0));
            Click(selection, "cmdEPSelect");
        });
        Click(form, button);
    }
};

TEST_F(FrmUpdateEditPatternsTest, BuildsAPatternOfOutput) {
    EXPECT_EQ(
        Edit("cmdOTFTstamp", "",
             [&](QWidget& form) {
                 Select(form, "cmdYear", "YY");
                 Select(form, "cmdSeparator", " ");
                 Select(form, "cmdMonth", "MMM");
                 Select(form, "cmdSeparator", "\\");
                 Select(form, "cmdDay", "DD");
                 for (const char* name : {"cmdHour", "cmdMinute", "cmdSecond", "cmdMicros", "cmdUEPDelete"})
                     Click(form, name);
                 EXPECT_EQ(TextOf(form, "txtUEditPatterns"), "YY MMM\\DDHHMISS");
                 Press(Child(form, "txtUEditPatterns"), Qt::Key_X);
                 Click(form, "cmdUEPOk");
             }),
        "Y002C006M002C008D001H001I001S001");
    EXPECT_EQ(EditPatternCaller, "cmdUEPOk");
}

TEST_F(FrmUpdateEditPatternsTest, InputTakesDigitsWithoutAsking) {
    EXPECT_EQ(Edit("cmdVSDateEdPatD", "Y001",
                   [&](QWidget& form) {
                       EXPECT_EQ(TextOf(form, "txtUEditPatterns"), "YYYY");
                       Click(form, "cmdMonth");
                       Click(form, "cmdDay");
                       Click(form, "cmdUEPOk");
                   }),
              "Y001M001D001");
    EXPECT_EQ(EditPatternText, "Y001") << "a Value Source takes its pattern by a variable of its own";
    EXPECT_EQ(ValueSourcePatternText, "Y001M001D001");
}

TEST_F(FrmUpdateEditPatternsTest, KindsEnableTheirButtons) {
    struct Case {
        const char* caller;
        bool date;
        bool time;
        const char* view;
        const char* message;
    };
    for (const Case& kind : {
             Case{"cmdITFDate", true, false, "&View Date", "information: System date = '"},
             Case{"cmdOTFTime", false, true, "&View Time", "information: System time = '"},
             Case{"cmdVSDateEdPatP", true, true, "&View Timestamp", "information: System timestamp = '"},
         })
        Edit(kind.caller, "", [&](QWidget& form) {
            for (const char* name : {"cmdYear", "cmdMonth", "cmdDay"})
                EXPECT_EQ(IsEnabled(form, name), kind.date) << kind.caller << name;
            for (const char* name : {"cmdHour", "cmdMinute", "cmdSecond", "cmdMicros"})
                EXPECT_EQ(IsEnabled(form, name), kind.time) << kind.caller << name;
            EXPECT_EQ(TextOf(form, "cmdViewTimestamp"), kind.view);
            Click(form, "cmdUEPDelete");
            Click(form, "cmdViewTimestamp");
            EXPECT_EQ(recorder.Take(), std::string(kind.message) + "'");
            Click(form, "cmdUEPCancel");
        });
}

TEST_F(FrmUpdateEditPatternsTest, CancelKeepsTheOldPattern) {
    EXPECT_EQ(Edit("cmdITFTime", "H001",
                   [&](QWidget& form) {
                       Click(form, "cmdMinute");
                       Press(form, Qt::Key_Escape);
                   }),
              "cancelled");
    EXPECT_EQ(EditPatternCaller, "cmdUEPCancel");
    EXPECT_EQ(EditPatternText, "H001");
}

TEST_F(FrmUpdateEditPatternsTest, SelectionTakesADoubleClickAndItsCancelAddsNothing) {
    EXPECT_EQ(Edit("cmdITFDate", "",
                   [&](QWidget& form) {
                       WhenShown("frmEPSelection", [](QWidget& selection) {
                           auto& list = Child<QListWidget>(selection, "lstEditPatt");
                           const QPoint second = list.visualItemRect(list.item(1)).center();
                           QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
                           QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
                       });
                       Click(form, "cmdYear");
                       WhenShown("frmEPSelection",
                                 [](QWidget& selection) { Click(selection, "cmdEPSelCancel"); });
                       Click(form, "cmdSeparator");
                       Click(form, "cmdUEPOk");
                   }),
              "Y002");
}

}  // namespace

}  // namespace vellumark::test
