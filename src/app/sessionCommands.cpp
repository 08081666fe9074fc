#include "app/sessionCommands.h"

#include <QDesktopServices>
#include <QUrl>

#include "app/screenOpeners.h"
#include "platform/dialogs.h"
#include "platform/screens/qtText.h"
#include "platform/screens/screen.h"
#include "repository/addresses.h"
#include "repository/modSequentialFileServices.h"
#include "scenario/modSchemaLifecycle.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

void OpenAddress(std::string_view address) {
    if (!QDesktopServices::openUrl(QUrl(ToQt(address))))
        platform::ShowExclamation("Cannot open a web browser. The address is\n" + std::string(address));
}

bool MakeScenario() {
    const WaitPointer wait;
    return CreateScenario("");
}

}  // namespace

void CloseSchema(QWidget* /*main*/) {
    CloseDatabaseSchema();
}

void SaveSchemaAs(QWidget* /*main*/) {
    platform::CurrentDialogs().Message(platform::Icon::None, "TO DO v4...   ");
}

void Connect(QWidget* /*main*/) {
    const WaitPointer wait;
    ConnectTarget();
}

void Disconnect(QWidget* /*main*/) {
    CloseTargetConnection();
}

void Exit(QWidget* main) {
    main->close();
}

void NewScenario(QWidget* main) {
    if (MakeScenario())
        EditScenario(main);
}

void CopyScenario(QWidget* /*main*/) {
    const WaitPointer wait;
    SaveScenarioAs("");
}

void RenameSelectedScenario(QWidget* /*main*/) {
    RenameScenario("");
}

void DeleteSelectedScenario(QWidget* /*main*/) {
    if (!fConfirmDeleteScenario())
        return;
    const WaitPointer wait;
    DeleteScenario();
}

void ShowHelpContents(QWidget* /*main*/) {
    ShowHelp(HelpTopic::Contents);
}

void ShowHelpSearch(QWidget* /*main*/) {
    ShowHelp(HelpTopic::Search);
}

void ShowHelpOnHelp(QWidget* /*main*/) {
    ShowHelp(HelpTopic::HelpOnHelp);
}

void ShowMakerOnTheWeb(QWidget* /*main*/) {
    OpenAddress(kMakerAddress);
}

void ShowProductOnTheWeb(QWidget* /*main*/) {
    OpenAddress(kProductAddress);
}

}  // namespace vellumark
