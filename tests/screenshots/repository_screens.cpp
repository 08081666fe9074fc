#include "album.h"
#include "repository/modEditPatternScreens.h"
#include "repository/screens/frmEPSelection.h"
#include "repository/screens/frmFileControls.h"
#include "repository/screens/frmUpdateEditPatterns.h"

namespace vellumark::test {

void ShootRepositoryScreens(const Album& album) {
    EditPatternCaller = "cmdITFDate";
    EditPatternText = "D001C001M001C001Y001";
    frmUpdateEditPatterns pattern(nullptr);
    album.Take("frmUpdateEditPatterns", pattern);
    EditPatternChoice = "cmdSeparator";
    frmEPSelection selection(nullptr);
    album.Take("frmEPSelection", selection);
    frmFileControls folder("Select default folder for Generated SQL Files", VELLUMARK_SAMPLES, nullptr);
    album.Take("frmFileControls", folder);
}

}  // namespace vellumark::test
