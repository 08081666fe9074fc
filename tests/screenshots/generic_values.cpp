#include "album.h"
#include "platform/screens/rowGrid.h"
#include "scenario/screens/frmCNVMaintenance.h"
#include "scenario/screens/frmVLEMaintenance.h"
#include "scenario/screens/frmVLESelect.h"

namespace vellumark::test {

void ShootGenericValues(const Album& album) {
    frmVLEMaintenance values;
    auto& categories = *values.findChild<RowGrid*>("grdCategories");
    categories.setCurrentIndex(categories.model()->index(4, 0));
    album.Take("frmVLEMaintenance", values);
    frmVLESelect select(nullptr);
    album.Take("frmVLESelect", select);
    frmCNVMaintenance codes;
    album.Take("frmCNVMaintenance", codes);
}

}  // namespace vellumark::test
