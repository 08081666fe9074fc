#include <QFont>
#include <QSettings>
#include <QStyleFactory>
#include <gtest/gtest.h>

#include "platform/screens/desktopApplication.h"
#include "platform/screens/houseStyle.h"
#include "temp_folder.h"

namespace {

// A warning of the toolkit (a signal that isn't there, two layouts on a widget) is a fault of a screen. The
// platform without a display has some of its own that mean nothing.
void JudgeToolkitMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    const bool harmless =
        type == QtDebugMsg || type == QtInfoMsg || text.startsWith("This plugin does not support");
    if (!harmless)
        ADD_FAILURE() << text.toStdString();
}

}  // namespace

// The same look on every machine, and nothing read from or left in the user's own settings.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    vellumark::DesktopApplication application(argc, argv);
    QApplication::setStyle(std::make_unique<vellumark::HouseStyle>("Fusion").release());
    QApplication::setFont(QFont("DejaVu Sans", 9));
    const vellumark::test::TempFolder settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(settings.Path()));
    qInstallMessageHandler(JudgeToolkitMessage);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
