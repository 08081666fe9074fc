#include <QTabWidget>

#include "album.h"
#include "repository/modEditPatternScreens.h"
#include "repository/screens/frmEPSelection.h"
#include "repository/screens/frmFileControls.h"
#include "repository/screens/frmOptions.h"
#include "repository/screens/frmUpdateEditPatterns.h"
#include "test_files.h"

namespace vellumark::test {

void ShootRepositoryScreens(const Album& album) {
    EditPatternCaller = "cmdITFDate";
    EditPatternText = "D001C001M001C001Y001";
    frmUpdateEditPatterns pattern(nullptr);
    album.Take("frmUpdateEditPatterns", pattern);
    EditPatternChoice = "cmdSeparator";
    frmEPSelection selection(nullptr);
    album.Take("frmEPSelection", selection);
    frmFileControls folder("Select default folder for Generated SQL Files", Sample(""), nullptr);
    album.Take("frmFileControls", folder);
    frmOptions options(nullptr);
    auto& pages = *options.findChild<QTabWidget*>("vstOptions");
    for (int page = 0; page < pages.count(); ++page) {
        pages.setCurrentIndex(page);
        album.Take("frmOptions-" + std::to_string(page + 1), options);
    }
}

}  // namespace vellumark::test
