#include <QTreeWidget>

#include "album.h"
#include "platform/screens/rowGrid.h"
#include "schema/screens/frmDBSMaintenance.h"
#include "schema/screens/frmDatabaseTree.h"
#include "schema/screens/frmTABandCOLSelect.h"

namespace vellumark::test {

void ShootSchemaEditor(const Album& album) {
    frmDBSMaintenance editor;
    auto& tables = *editor.findChild<RowGrid*>("grdTables");
    tables.setCurrentIndex(tables.model()->index(2, 0));
    album.Take("frmDBSMaintenance", editor);

    frmTABandCOLSelect choice(ListEditedColumns(ListEditedTables()[2].id).front(), nullptr);
    album.Take("frmTABandCOLSelect", choice);

    frmDatabaseTree tree;
    auto& nodes = *tree.findChild<QTreeWidget*>("treeSchema");
    nodes.topLevelItem(2)->setExpanded(true);
    nodes.setCurrentItem(nodes.topLevelItem(2)->child(4));
    album.Take("frmDatabaseTree", tree);
}

}  // namespace vellumark::test
