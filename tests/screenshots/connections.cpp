#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>

#include "album.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "schema/screens/frmCONList.h"
#include "schema/screens/frmDSNList.h"
#include "schema/screens/frmDataLink.h"
#include "schema/screens/frmDatabaseConnection.h"
#include "schema/screens/frmDatabaseOpen.h"

namespace vellumark::test {

namespace {

void Fill(QWidget& form, const char* field, const std::string& text) {
    auto& edit = *form.findChild<QLineEdit*>(field);
    edit.clear();
    QTest::keyClicks(&edit, ToQt(text));
}

void Choose(QWidget& form, const char* option) {
    form.findChild<QRadioButton*>(option)->click();
}

void ShootNew(const Album& album) {
    frmDatabaseConnection form(kConnectNew);
    album.Take("frmDatabaseConnection-New", form);
    Fill(form, "txtName", "Shop");
    Fill(form, "txtDescription", "Orders of the web shop");
    Fill(form, "txtMDB", "/home/ann/databases/shop.mdb");
    album.Take("frmDatabaseConnection-New-Jet", form);
}

void ShootTarget(const Album& album) {
    frmDatabaseConnection form(kConnectTarget);
    Choose(form, "optOther");
    Choose(form, "optODBC");
    Fill(form, "txtDSN", "ShopTest");
    Fill(form, "txtUserId", "tester");
    Fill(form, "txtPassword", "secret");
    Fill(form, "txtDatabase", "shop");
    Choose(form, "optDAO");
    album.Take("frmDatabaseConnection-Target-ODBC", form);
    Choose(form, "optADO");
    Choose(form, "optOverride");
    album.Take("frmDatabaseConnection-Target-Override", form);
}

void ShootValue(const Album& album) {
    ConnectionDetails details;
    details.mdbFile = JoinPath(DatabasesFolder, "../shop.mdb");
    details.table = "Customer";
    details.column = "LastName";
    ValueConnectionId = 0;
    fSaveConnection(kConnectValue, details);
    frmDatabaseConnection form(kConnectValue, nullptr, "Payment", "PaidBy");
    album.Take("frmDatabaseConnection-Value", form);
    ValueConnectionId = 0;
    frmDatabaseConnection fresh(kConnectValue, nullptr, "Payment", "PaidBy");
    album.Take("frmDatabaseConnection-Value-New", fresh);
}

}  // namespace

void ShootConnections(const Album& album) {
    ShootNew(album);
    ShootTarget(album);
    ShootValue(album);

    frmCONList select(ConnectionListMode::Select, nullptr);
    album.Take("frmCONList-Select", select);
    frmCONList remove(ConnectionListMode::Delete, nullptr);
    album.Take("frmCONList-Delete", remove);
    frmDSNList sources("", nullptr);
    album.Take("frmDSNList", sources);
    frmDataLink link("DRIVER={PostgreSQL Unicode};SERVER=127.0.0.1;PORT=5432;DATABASE=shop;UID=tester;PWD=pw",
                     nullptr);
    album.Take("frmDataLink", link);
}

void ShootSchemaList(const Album& album) {
    frmDatabaseOpen open(SchemaListMode::Open);
    album.Take("frmDatabaseOpen", open);
    frmDatabaseOpen remove(SchemaListMode::Delete);
    album.Take("frmDatabaseOpen-Delete", remove);
}

}  // namespace vellumark::test
