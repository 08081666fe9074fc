#include <QMenu>

#include "album.h"
#include "app/frmAbout.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "app/frmTechSupport.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"
#include "scenario/modTestScenarioMaintenance.h"

namespace vellumark::test {

namespace {

void Switch(const QObject& window, const char* view) {
    window.findChild<QAction*>(view)->trigger();
}

}  // namespace

void ShootMainScreens(const Album& album) {
    album.Take("frmSplash", *std::make_unique<frmSplash>());
    frmMain window;
    for (const char* name :
         {"Orders of a whole year, with every customer paying", "Two customers, no orders"})
        SaveScenarioAs(name);
    RefreshCommands();
    for (const char* view : {"ID_btnSmallIcon", "ID_btnList", "ID_btnReport", "ID_btnIcon"}) {
        Switch(window, view);
        album.Take(std::string("frmMain ") + view, window);
    }
    auto& menu = *window.findChild<QMenu*>("mnuDatabase");
    album.Take("frmMain menu", menu);
    menu.hide();
    frmAbout about(&window);
    album.Take("frmAbout", about);
    frmTechSupport support(&window);
    album.Take("frmTechSupport", support);
    CloseDatabaseSchema();
    album.Take("frmMain empty", window);
}

}  // namespace vellumark::test
