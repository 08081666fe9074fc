#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "album.h"
#include "engine/screens/frmGenerateData.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "temp_folder.h"

namespace vellumark::test {

namespace {

void SetQuantities(int rows) {
    const RepositoryScope repository;
    RepositoryDatabase.Execute(
        "update [TSO Insert Table Rule] set [End Range] = ?1, [Quantity] = ?1 where [FK TSO Id] = ?2"
        " and [Id] not in (select [FK Child TTR Id] from [resolver TTR dependency])",
        {rows, CurrentTSOId});
}

// Takes the picture once, while the rows are being counted.
void TakeWhileRunning(const Album& album, QWidget& form) {
    auto* look = new QTimer(&form);
    QObject::connect(look, &QTimer::timeout, &form, [look, &album, &form] {
        const auto* rows = form.findChild<QLabel*>("lblQtyNumber");
        if (rows->text().toInt() < 200000)
            return;
        look->stop();
        album.Take("frmGenerateData-running", form);
    });
    look->start(1);
}

}  // namespace

void ShootGenerateData(const Album& album) {
    const TempFolder folder;
    ProgramStarter = [](const std::vector<std::string>&) {};
    SetQuantities(100000);
    {
        frmGenerateData form(nullptr);
        form.findChild<QLineEdit*>("txtTextFile")->setText("/home/ann/orders.sql");
        album.Take("frmGenerateData", form);
        form.findChild<QRadioButton*>("optTextFile")->click();
        form.findChild<QLineEdit*>("txtTextFile")->setText(ToQt(folder.Path("DataFile1.sql")));
        TakeWhileRunning(album, form);
        form.findChild<QPushButton*>("cmdGenerateData")->click();
        album.Take("frmGenerateData-finished", form);
    }
    SetQuantities(1000);
    OpenScenario(DeleteScenarioNames.front());
    frmGenerateData form(nullptr);
    album.Take("frmGenerateData-delete", form);
}

}  // namespace vellumark::test
