#include "schema/screens/frmDataLink.h"

#include "platform/odbc/sources.h"
#include "platform/screens/qtText.h"
#include "schema/screens/connectionTest.h"
#include "ui_frmDataLink.h"

namespace vellumark {

frmDataLink::frmDataLink(const std::string& connectionString, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmDataLink>()), link_(connectionString), parts_(link_) {
    ui_->setupUi(this);
    for (const std::string& driver : odbc::Drivers())
        ui_->cboDriver->addItem(ToQt(driver));
    ui_->cboDriver->setCurrentText(ToQt(link_.Driver()));
    ui_->txtPassword->setText(ToQt(link_.Password()));
    connect(ui_->cboDriver, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { link_.SetDriver(FromQt(text)); });
    connect(ui_->txtPassword, &QLineEdit::textEdited, this,
            [this](const QString& text) { link_.SetPassword(FromQt(text)); });
    connect(ui_->grdParts, &RowGrid::CurrentRowChanged, this,
            [this] { ui_->cmdDeletePart->setEnabled(ui_->grdParts->CurrentRow() != nullptr); });
    connect(ui_->cmdDeletePart, &QPushButton::clicked, ui_->grdParts, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdTest, &QPushButton::clicked, this, &frmDataLink::Test);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmDataLink::OK);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmDataLink::reject);
    ui_->grdParts->Show(parts_);
    ui_->grdParts->setColumnWidth(0, ui_->grdParts->fontMetrics().averageCharWidth() * 24);
    resize(520, 420);
}

frmDataLink::~frmDataLink() = default;

void frmDataLink::Test() {
    if (!ui_->grdParts->CommitRow())
        return;
    ConnectionDetails details;
    details.useDefaultString = false;
    details.connectionString = link_.ConnectionString();
    ShowConnectionTest(details);
}

void frmDataLink::OK() {
    if (ui_->grdParts->CommitRow())
        accept();
}

void frmDataLink::reject() {
    ui_->grdParts->CancelRow();
    Screen::reject();
}

}  // namespace vellumark
