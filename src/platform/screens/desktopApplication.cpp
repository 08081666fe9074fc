#include "platform/screens/desktopApplication.h"

#include "platform/dialogs.h"
#include "platform/screens/houseStyle.h"

namespace vellumark {

DesktopApplication::DesktopApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setOrganizationName("Vellumark");
    setApplicationName("Vellumark");
    setDesktopFileName("vellumark");
    setStyle(std::make_unique<HouseStyle>(style()->objectName()).release());
}

bool DesktopApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const platform::ProgramEnd&) {
        exit(1);
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Unexpected error occurred.\n\n" + error.Line());
    } catch (const std::exception& error) {
        platform::ShowExclamation(std::string("Unexpected error occurred.\n\n") + error.what());
    }
    return true;
}

}  // namespace vellumark
