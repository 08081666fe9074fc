#include "app/frmSplash.h"

#include <QSignalSpy>

#include "repository/modVellumark.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

using FrmSplashTest = ScreenTest;

TEST_F(FrmSplashTest, ClosesByKeyClickAndTimer) {
    for (const std::function<void(QWidget&)>& act : std::vector<std::function<void(QWidget&)>>{
             [](QWidget& splash) { Press(splash, Qt::Key_A); },
             [](QWidget& splash) { QTest::mouseClick(&splash, Qt::LeftButton); },
             [](QWidget& splash) {
                 EXPECT_TRUE(QTest::qWaitFor([&] { return !splash.isVisible(); }, 10000));
             }}) {
        frmSplash splash;
        const QSignalSpy finished(&splash, &QDialog::finished);
        splash.ShowAtOnce();
        EXPECT_TRUE(splash.isVisible());
        EXPECT_EQ(TextOf(splash, "lblVersion"), "Version " + VersionString);
        act(splash);
        EXPECT_FALSE(splash.isVisible());
        EXPECT_EQ(finished.size(), 1);
    }
}

}  // namespace

}  // namespace vellumark::test
