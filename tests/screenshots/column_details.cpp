#include <QComboBox>
#include <QDateTimeEdit>
#include <QTabWidget>

#include "album.h"
#include "repository/modVellumark.h"
#include "scenario/modRuleSelection.h"
#include "scenario/screens/columnRuleEditor.h"

namespace vellumark::test {

namespace {

void SelectColumn(const char* table, const char* column) {
    const RepositoryScope repository;
    const dao::Recordset found = RepositoryDatabase.OpenRecordset(
        "select r.[FK TTR Id], r.[Id] from [TSO Insert Column Rule] r"
        " join [Table] t on t.[FK DBS Id] = r.[FK DBS Id] and t.[Id] = r.[FK TAB Id]"
        " join [Column] c on c.[FK DBS Id] = r.[FK DBS Id] and c.[FK TAB Id] = r.[FK TAB Id]"
        " and c.[Id] = r.[FK COL Id]"
        " where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? and t.[Name] = ? and c.[Name] = ?",
        {CurrentDBSId, CurrentTSOId, table, column});
    RuleScenarioId = CurrentTSOId;
    CurrentTTRId = found.Long("FK TTR Id");
    CurrentTCRId = found.Long("Id");
}

}  // namespace

void ShootColumnDetails(const Album& album) {
    QTabWidget details;
    ColumnRuleEditor editor(details, &details);
    details.setMinimumSize(details.sizeHint());
    const struct {
        const char *picture, *table, *column;
        int tab;
    } shots[] = {
        {"columnDetails-character", "Customer", "FirstName", 0},
        {"columnDetails-numeric", "Product", "Price", 0},
        {"columnDetails-timestamp", "Customer", "RegisteredAt", 0},
        {"columnDetails-boolean", "Customer", "IsMember", 0},
        {"columnDetails-by-parent", "Product", "SupplierId", 0},
        {"columnDetails-properties", "Product", "SupplierId", 1},
        {"columnDetails-output", "Customer", "RegisteredAt", 2},
    };
    for (const auto& shot : shots) {
        SelectColumn(shot.table, shot.column);
        editor.fDisplayTCRDetails_Main();
        details.setCurrentIndex(shot.tab);
        album.Take(shot.picture, details);
    }
    details.setCurrentIndex(0);
    auto* constant = details.findChild<QComboBox*>("cboConstVal");
    constant->setCurrentIndex(1);
    emit constant->activated(1);
    details.findChild<QDateTimeEdit*>("dtpConstVal")
        ->setDateTime(QDateTime(QDate(2026, 5, 31), QTime(12, 0)));
    album.Take("columnDetails-overridden", details);
}

}  // namespace vellumark::test
