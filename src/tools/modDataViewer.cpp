#include "tools/modDataViewer.h"

#include "platform/dialogs.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"

namespace vellumark {

ViewerConnection::ViewerConnection(ViewerCaller caller) : mode_(ConnectMode) {
    open_ = caller == ViewerCaller::Target ? fOpenTarget() : fOpenOther(caller);
    if (!open_)
        return;
    details_ = FoundConnection;
    if (details_.description.empty())
        details_.description = platform::Trim(ValueDescription(details_));
    open_ = fListTables(protocol_, details_.owner, details_.ignoreOwnerPrefix, details_.ignoreTablePrefix);
    tables_ = ListedTables;
}

ViewerConnection::~ViewerConnection() {
    ConnectMode = mode_;
}

bool ViewerConnection::fOpenTarget() {
    if (TargetConnectionState == 'D' && !AutoConnect)
        return platform::Refuse("Please connect to the target database.");
    if (TargetConnectionState == 'D' && !ConnectTarget())
        return false;
    ConnectMode = kConnectTarget;
    char protocol = DatabaseProtocol;
    if (!fDatabase_Connect_Main(protocol, true))
        return false;
    protocol_ = DatabaseProtocol;
    return true;
}

bool ViewerConnection::fOpenOther(ViewerCaller caller) {
    aside_.emplace();
    ConnectMode = caller == ViewerCaller::Value ? kConnectValue : kConnectForm;
    return fDatabase_Connect_Main(protocol_, false);
}

}  // namespace vellumark
