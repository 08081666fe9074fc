#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

#include "platform/error.h"
#include "platform/screens/boxDialogs.h"
#include "platform/screens/desktopApplication.h"
#include "repository/modVellumark.h"

namespace {

QString WelcomeText() {
    const auto row = [](const char* label, const std::string& value) {
        return QString("<tr><td>%1&nbsp;&nbsp;</td><td>%2</td></tr>")
            .arg(label, QString::fromStdString(value).toHtmlEscaped());
    };
    return QString(
               "<h2>Vellumark %1</h2><p>Fills relational databases with test data and removes it "
               "again.</p><table>")
               .arg(QString::fromStdString(vellumark::VersionString)) +
           row("Settings file:", vellumark::SettingsFilePath) +
           row("Repository:", vellumark::RepositoryPath) + row("Values:", vellumark::ValuesPath) +
           row("Database schemas:", vellumark::DatabasesFolder) + "</table>";
}

// The command line is one text; the shell has split it at blanks.
std::string JoinedArguments() {
    return QCoreApplication::arguments().mid(1).join(' ').toStdString();
}

}  // namespace

int main(int argc, char** argv) {
    vellumark::DesktopApplication application(argc, argv);
    vellumark::BoxDialogs dialogs;
    vellumark::platform::UseDialogs(dialogs);
    try {
        vellumark::StartSession(JoinedArguments());
    } catch (const vellumark::platform::ProgramEnd&) {
        return 1;
    }
    QMainWindow window;
    auto* label = new QLabel(WelcomeText(), &window);
    label->setMargin(24);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    window.setCentralWidget(label);
    window.statusBar()->showMessage("Definitions and runs: vellumark-cli --help");
    window.show();
    return vellumark::DesktopApplication::exec();
}
