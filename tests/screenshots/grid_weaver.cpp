#include <QComboBox>
#include <QLineEdit>
#include <filesystem>

#include "album.h"
#include "schema/screens/frmCaseWeaver.h"
#include "schema/screens/frmNewCOOLGen.h"
#include "schema/screens/frmSheetWeaver.h"
#include "temp_folder.h"

namespace vellumark::test {

namespace {

void ShootModel(const Album& album) {
    // The library that reads models is on no Linux machine, and the screen says so first.
    const auto open = [&] {
        frmNewCOOLGen form;
        form.findChild<QLineEdit*>("txtName")->setText("Banking");
        form.findChild<QLineEdit*>("txtModel")->setText("/home/ann/models/bank.ief/IEF0000.DAT");
        form.findChild<QComboBox*>("cboDBMS")->setCurrentText("DB2 OS2/UNIX/NT");
        album.Take("frmNewCOOLGen", form);
    };
    album.TakeModal("frmNewCOOLGen-NoLibrary", open);
}

}  // namespace

void ShootGridWeaver(const Album& album) {
    ShootModel(album);
    const TempFolder tools;
    tools.Write("CWtoGW.txt", "x\nCAB Name: BANKING\nx\nx\nDatabase \"banking.mdb\"\nx\nx\n");
    tools.Write(
        "SWtoGWEABDef.txt",
        "x\nEAB Name: PRICES\nx\nx\nDatabase: \"prices.mdb\"\nStyle is R\nTable is PRICE_LIST\nx\nx\n");
    const std::filesystem::path present = std::filesystem::current_path();
    std::filesystem::current_path(tools.Path());
    frmCaseWeaver cases;
    album.Take("frmCaseWeaver", cases);
    frmSheetWeaver sheets;
    album.Take("frmSheetWeaver", sheets);
    std::filesystem::current_path(present);
}

}  // namespace vellumark::test
