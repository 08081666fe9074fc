#include "engine/screens/generateOpeners.h"

#include "platform/dialogs.h"
#include "schema/screens/frmDatabaseConnection.h"

namespace vellumark {

void OpenTargetConnection(QWidget* parent) {
    frmDatabaseConnection(kConnectTarget, parent).exec();
}

void OpenTargetData(QWidget* /*parent*/) {
    platform::ShowInformation("The data viewer is not part of this version yet.");
}

void OpenTableLoad(QWidget* /*parent*/) {
    platform::ShowInformation("The loading of tables is not part of this version yet.");
}

}  // namespace vellumark
