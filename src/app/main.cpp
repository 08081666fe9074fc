#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "app/logo.h"
#include "platform/error.h"
#include "platform/screens/boxDialogs.h"
#include "platform/screens/desktopApplication.h"
#include "repository/modVellumark.h"
#include "repository/screens/helpOpeners.h"

namespace {

// The command line is one text; the shell has split it at blanks.
std::string JoinedArguments() {
    return QCoreApplication::arguments().mid(1).join(' ').toStdString();
}

int RunDesktop(vellumark::BoxDialogs& dialogs) {
    std::unique_ptr<vellumark::frmSplash> splash;
    vellumark::StartSession(JoinedArguments(), [&splash] {
        splash = std::make_unique<vellumark::frmSplash>();
        splash->ShowAtOnce();
    });
    vellumark::UseHelpWindow();
    vellumark::frmMain window;
    dialogs.ShowStatusIn([&window](const std::string& text) { window.ShowProgress(text); });
    QObject::connect(&window, &vellumark::frmMain::Closed, [] { QCoreApplication::exit(0); });
    QObject::connect(splash.get(), &QDialog::finished, &window, &QWidget::show);
    return vellumark::DesktopApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    vellumark::DesktopApplication application(argc, argv);
    vellumark::DesktopApplication::setQuitOnLastWindowClosed(false);
    vellumark::DesktopApplication::setWindowIcon(vellumark::LogoIcon());
    vellumark::BoxDialogs dialogs;
    vellumark::platform::UseDialogs(dialogs);
    try {
        return RunDesktop(dialogs);
    } catch (const vellumark::platform::ProgramEnd&) {
        return 1;
    } catch (const std::exception& error) {
        vellumark::platform::ShowCritical(std::string("Vellumark cannot start.\n\n") + error.what());
        return 1;
    }
}
