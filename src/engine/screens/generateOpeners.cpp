#include "engine/screens/generateOpeners.h"

#include "platform/dialogs.h"

namespace vellumark {

void OpenTargetConnection(QWidget* /*parent*/) {
    platform::ShowInformation("The screen of Database Connections is not part of this version yet.");
}

void OpenTargetData(QWidget* /*parent*/) {
    platform::ShowInformation("The data viewer is not part of this version yet.");
}

void OpenTableLoad(QWidget* /*parent*/) {
    platform::ShowInformation("The loading of tables is not part of this version yet.");
}

}  // namespace vellumark
