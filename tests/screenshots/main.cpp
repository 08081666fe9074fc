#include <QFont>
#include <QPalette>
#include <QSettings>
#include <array>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "album.h"
#include "platform/screens/boxDialogs.h"
#include "platform/screens/desktopApplication.h"
#include "platform/screens/houseStyle.h"
#include "sample_session.h"

namespace {

QPalette DarkPalette() {
    QPalette dark(QColor(0x2b, 0x2d, 0x30));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    dark.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2b));
    dark.setColor(QPalette::Highlight, QColor(0x3a, 0x6e, 0xa5));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x6c, 0xa8, 0xe8));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x82, 0x86));
    return dark;
}

// Each call starts from the same open schema and Scenario. One to a line.
// clang-format off
constexpr std::array kFiles = {
    vellumark::test::ShootMainScreens,
    vellumark::test::ShootPlatformScreens,
    vellumark::test::ShootRepositoryScreens,
    vellumark::test::ShootConnections,
    vellumark::test::ShootSchemaList,
    vellumark::test::ShootGridWeaver,
    vellumark::test::ShootSchemaEditor,
    vellumark::test::ShootRuleScreen,
    vellumark::test::ShootTableScreens,
    vellumark::test::ShootColumnDetails,
    vellumark::test::ShootGenericValues,
    vellumark::test::ShootForeignKeys,
    vellumark::test::ShootGenerateData,
    vellumark::test::ShootValueSource,
    vellumark::test::ShootTableScreens,
    vellumark::test::ShootVersionControl,
    vellumark::test::ShootLoadFiles,
    vellumark::test::ShootSQLBuilder,
    vellumark::test::ShootViewData,
    vellumark::test::ShootHelp,
};
// clang-format on

}  // namespace

// usage: vellumark_screenshots DEMO-FOLDER PICTURE-FOLDER [light|dark]
int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs("usage: vellumark_screenshots DEMO-FOLDER PICTURE-FOLDER [light|dark]\n", stderr);
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    vellumark::DesktopApplication application(argc, argv);
    QApplication::setStyle(std::make_unique<vellumark::HouseStyle>("Fusion").release());
    QApplication::setFont(QFont("DejaVu Sans", 9));
    if (argc > 3 && std::string_view(argv[3]) == "dark")
        QApplication::setPalette(DarkPalette());
    const vellumark::test::TempFolder settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(settings.Path()));
    vellumark::BoxDialogs boxes;
    vellumark::platform::UseDialogs(boxes);
    std::filesystem::create_directories(argv[2]);
    const vellumark::test::SampleSession session(argv[1]);
    const vellumark::test::Album album(argv[2]);
    for (const auto& shoot : kFiles) {
        session.Reopen();
        shoot(album);
    }
    return album.Faults() == 0 ? 0 : 1;
}
