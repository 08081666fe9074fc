#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "album.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"
#include "tools/screens/frmSQLBuilder.h"

namespace vellumark::test {

namespace {

void Run(QWidget& form) {
    auto& button = *form.findChild<QPushButton*>("cmdRun");
    button.click();
    while (!button.isEnabled())
        QTest::qWait(10);
}

}  // namespace

void ShootSQLBuilder(const Album& album) {
    AutoConnect = true;
    frmSQLBuilder form(BuilderCaller::ViewData,
                       "-- Customers of the second hundred\n"
                       "select CustomerId, upper(LastName), Email, Born\n"
                       "from Customer\n"
                       "where CustomerId > 100 and LastName <> 'Miller' /* but her */\n"
                       "order by LastName");
    form.show();
    form.findChild<QLineEdit*>("txtDatabase")->setText("Jet (ADO): /home/tester/shop.mdb");
    auto& box = *form.findChild<QPlainTextEdit*>("rtfSQL");
    const QString text = box.toPlainText();
    box.setPlainText(
        "insert into Customer with recursive n(i) as (select 1 union all select i + 1 from n where i < 200) "
        "select i, 'Ann', 'Name ' || i, 'name.' || i || '@example.com', date('1970-01-01', i || ' days'), "
        "-1, 500, "
        "'2024-01-01 00:00:00' from n");
    Run(form);
    box.setPlainText(text);
    QTest::mouseClick(form.findChild<QListWidget*>("lstTables")->viewport(), Qt::LeftButton, {}, {20, 30});
    box.undo();
    Run(form);
    album.Take("frmSQLBuilder", form);
    box.setPlainText("select Price from Customer");
    Run(form);
    album.Take("frmSQLBuilder-error", form);
    AutoConnect = false;
}

}  // namespace vellumark::test
