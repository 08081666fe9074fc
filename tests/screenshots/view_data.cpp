#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "album.h"
#include "embedded.h"
#include "platform/screens/rowGrid.h"
#include "schema/modDatabaseConnection.h"
#include "temp_folder.h"
#include "tools/screens/frmViewData.h"

namespace vellumark::test {

namespace {

constexpr const char* kCustomers =
    "create table [Customer] ([CustomerId] integer primary key, [LastName] varchar(40) not null,"
    " [FirstName] varchar(40), [Born] date, [Credit] currency, [Active] yesno, [Remark] varchar(80),"
    " [Photo] longbinary);"
    "insert into [Customer] with recursive n (i) as (select 1 union all select i + 1 from n where i < 4200)"
    " select i, substr('Abbott    Baker     Carlisle  Dvořák    Ekström   ', i % 5 * 10 + 1, 10),"
    " case when i % 4 then substr('Ann Bea CarlDora', i % 4 * 4 + 1, 4) end,"
    " date('1950-01-01', (i * 137 % 18000) || ' days'), case when i % 7 then i * 13 % 900 + i % 4 * 0.25 end,"
    " -(i % 3 > 0), case i % 6 when 0 then 'pays late' when 1 then '' end,"
    " case when i % 5 = 0 then cast(x'89504E470D0A1A0A' as blob) end from n;"
    "update [Customer] set [LastName] = trim([LastName]), [FirstName] = trim([FirstName]);"
    "create table [Purchase] ([PurchaseId] integer primary key);";

}  // namespace

void ShootViewData(const Album& album) {
    const TempFolder folder;
    ConnectionDetails details;
    details.mdbFile = MakeEmbedded(folder.Path("shop.mdb"), kCustomers);
    details.connectionString = AccessString(details.mdbFile);
    ConnectionForm = details;
    frmViewData viewer(ViewerCaller::Form);
    viewer.findChild<QComboBox*>("cboTable")->setCurrentIndex(0);
    emit viewer.findChild<QComboBox*>("cboTable")->activated(0);
    for (const char* box : {"chkAddNew", "chkUpdate"})
        viewer.findChild<QCheckBox*>(box)->click();
    auto* grid = viewer.findChild<RowGrid*>("grdData");
    while (grid->model()->rowCount() <= 4200)
        QApplication::processEvents();
    grid->setCurrentIndex(grid->model()->index(2, 2));
    grid->model()->setData(grid->currentIndex(), "Maud");
    album.Take("frmViewData", viewer);
    grid->CancelRow();
    viewer.findChild<QRadioButton*>("optSQL")->click();
    viewer.findChild<QPlainTextEdit*>("txtSQL")->setPlainText(
        "select [LastName], count(*) as [Customers], max([Credit]) as [Highest]\n"
        "from [Customer] where [Active] = True group by [LastName] order by 2 desc");
    viewer.findChild<QPushButton*>("cmdRun")->click();
    album.Take("frmViewData-sql", viewer);
}

}  // namespace vellumark::test
