#include <QLineEdit>

#include "album.h"
#include "repository/modVellumark.h"
#include "scenario/modRuleSelection.h"
#include "tools/screens/frmCreateLoadFile.h"
#include "tools/screens/frmLoadTable.h"

namespace vellumark::test {

void ShootLoadFiles(const Album& album) {
    {
        const RepositoryScope repository;
        CurrentTTRId = dao::ToLong(RepositoryDatabase.Lookup(
            "select min([Id]) from [TSO Insert Table Rule] where [FK TSO Id] = ?", {CurrentTSOId}));
    }
    frmCreateLoadFile file;
    file.findChild<QLineEdit*>("txtTextFile")->setText("/home/tester/text/schema.ini");
    album.Take("frmCreateLoadFile", file);
    frmLoadTable load;
    load.findChild<QLineEdit*>("txtDatabase")->setText("/home/tester/shop.mdb");
    load.findChild<QLineEdit*>("txtTable")->setText("Customer");
    load.findChild<QLineEdit*>("txtFile")->setText("/home/tester/text/DataFile1.txt");
    album.Take("frmLoadTable", load);
    CurrentTTRId = 0;
}

}  // namespace vellumark::test
