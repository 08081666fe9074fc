#include <QComboBox>

#include "album.h"
#include "scenario/screens/frmParentChildDiagram.h"

namespace vellumark::test {

void ShootForeignKeys(const Album& album) {
    frmParentChildDiagram form;
    auto& rules = *form.findChild<QComboBox*>("cboTTR");
    const int product = rules.findText("Product", Qt::MatchStartsWith);
    rules.setCurrentIndex(product);
    emit rules.activated(product);
    album.Take("frmParentChildDiagram", form);

    const int lines = rules.findText("OrderLine", Qt::MatchStartsWith);
    rules.setCurrentIndex(lines);
    emit rules.activated(lines);
    album.Take("frmParentChildDiagram-not-set", form);
}

}  // namespace vellumark::test
