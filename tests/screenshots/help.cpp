#include <QLineEdit>
#include <QListWidget>

#include "album.h"
#include "repository/screens/frmHelp.h"

namespace vellumark::test {

void ShootHelp(const Album& album) {
    frmHelp help;
    help.ShowPlace("index.html");
    album.Take("frmHelp", help);
    help.ShowPlace("target-formats.html");
    album.Take("frmHelp-page", help);
    help.ShowScreen("frmParentChildDiagram");
    album.Take("frmHelp-drawing", help);
    help.ShowSearch();
    help.findChild<QLineEdit*>("txtSearch")->setText("unique");
    help.findChild<QListWidget*>("lstHits")->setCurrentRow(1);
    album.Take("frmHelp-search", help);
}

}  // namespace vellumark::test
