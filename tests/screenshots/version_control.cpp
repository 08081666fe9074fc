#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "album.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "temp_folder.h"
#include "tools/screens/frmVersionControl.h"

namespace vellumark::test {

namespace {

// Another schema to choose, the one opened last.
void AddSchema(const std::string& name, const std::string& description) {
    const RepositoryScope repository;
    const int id = NextId(RepositoryDatabase, "select max([Id]) from [Database]");
    RepositoryDatabase.Execute(
        "insert into [Database] ([Id], [Name], [Description], [Source], [DateTime Last Accessed]) values (?, "
        "?, "
        "?, 'D', '2099-01-01 00:00:00')",
        {id, name, description});
}

// Takes the first schema of the list.
void ChooseTarget(QWidget& form) {
    QTimer::singleShot(0,
                       [] { QApplication::activeModalWidget()->findChild<QPushButton*>("cmdOK")->click(); });
    form.findChild<QPushButton*>("cmdBrowseTarget")->click();
}

}  // namespace

void ShootVersionControl(const Album& album) {
    const TempFolder folder;
    AddSchema("Shop 2023", "The shop as the Scenarios of last year know it");
    ShownSchemaDescription = "Read from the test server after release 24.1";
    ProgramStarter = [](const std::vector<std::string>&) {};
    frmVersionControl control(VersionControlMode::VersionControl);
    control.findChild<QLineEdit*>("txtLog")->setText("/home/ann/changes.txt");
    album.Take("frmVersionControl", control);
    frmVersionControl merge(VersionControlMode::Merge);
    ChooseTarget(merge);
    merge.findChild<QLineEdit*>("txtLog")->setText(ToQt(folder.Path("log.txt")));
    merge.findChild<QPushButton*>("cmdUpdate")->click();
    album.Take("frmVersionControl-merged", merge);
}

}  // namespace vellumark::test
