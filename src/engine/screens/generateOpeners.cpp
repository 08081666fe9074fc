#include "engine/screens/generateOpeners.h"

#include "schema/screens/frmDatabaseConnection.h"
#include "tools/screens/frmLoadTable.h"
#include "tools/screens/viewerOpeners.h"

namespace vellumark {

void OpenTargetConnection(QWidget* parent) {
    frmDatabaseConnection(kConnectTarget, parent).exec();
}

void OpenTargetData(QWidget* parent) {
    ViewData(ViewerCaller::Target, parent);
}

void OpenTableLoad(QWidget* parent) {
    frmLoadTable(parent).exec();
}

}  // namespace vellumark
