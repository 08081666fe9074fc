#include <QTabWidget>

#include "album.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "scenario/screens/frmTTR.h"
#include "scenario/screens/ruleTree.h"

namespace vellumark::test {

namespace {

RulePlace Place(const RuleTree& tree, const QString& table, const QString& column = {}) {
    const QTreeWidgetItem& root = *tree.topLevelItem(0);
    for (int i = 0; i < root.childCount(); ++i) {
        QTreeWidgetItem& rule = *root.child(i);
        if (rule.text(0).section(' ', 0, 0) != table)
            continue;
        if (column.isEmpty())
            return RuleTree::PlaceOf(&rule);
        rule.setExpanded(true);
        for (int j = 0; j < rule.childCount(); ++j)
            if (rule.child(j)->text(0) == column)
                return RuleTree::PlaceOf(rule.child(j));
    }
    return {};
}

// Goes to a node as a click does.
void Choose(QWidget& form, const char* tree, const QString& table, const QString& column = {}) {
    auto& list = *form.findChild<RuleTree*>(tree);
    list.GoTo(Place(list, table, column));
    list.setFocus();
    emit list.Chosen();
}

void ShootInsertScenario(const Album& album) {
    frmTTR screen(nullptr);
    Choose(screen, "TListTTR", "Customer", "FirstName");
    album.Take("frmTTR-insert", screen);
    Choose(screen, "TListTTR", "Product", "SupplierId");
    album.Take("frmTTR-by-parent", screen);
    Choose(screen, "TListTSO", "CustomerOrder", "OrderedAt");
    album.Take("frmTTR-defaults", screen);
}

void ShootEmptyScenario(const Album& album) {
    if (!OpenScenario("Scenario to create data"))
        return;
    frmTTR screen(nullptr);
    album.Take("frmTTR-empty", screen);
}

void ShootDeleteScenario(const Album& album) {
    if (!OpenScenario("Scenario to delete data"))
        return;
    for (const int table : {6, 5, 4, 3, 2, 1})
        AddDeleteTableRule(table,
                           table == 4 ? "where [OrderedAt] < #2020-01-01#\n  and [Status] = 'closed'" : "");
    frmTTR screen(nullptr);
    Choose(screen, "TListTTR", "CustomerOrder");
    album.Take("frmTTR-delete", screen);
}

}  // namespace

void ShootRuleScreen(const Album& album) {
    ShootInsertScenario(album);
    ShootEmptyScenario(album);
    ShootDeleteScenario(album);
}

}  // namespace vellumark::test
