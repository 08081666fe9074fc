#include "tools/screens/viewerOpeners.h"

#include "tools/screens/frmViewData.h"

namespace vellumark {

void ViewData(ViewerCaller caller, QWidget* parent) {
    frmViewData viewer(caller, parent);
    // Without a Target the screen says what to do; the other callers can mend their connection at once.
    if (viewer.IsConnected() || caller == ViewerCaller::Target)
        viewer.exec();
}

}  // namespace vellumark
