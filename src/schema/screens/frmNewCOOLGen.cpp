#include "schema/screens/frmNewCOOLGen.h"

#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"
#include "scenario/modNewSchema.h"
#include "schema/modCOOLGenExtract.h"
#include "schema/modCOOLGenFiles.h"
#include "schema/screens/pickerStart.h"
#include "ui_frmNewCOOLGen.h"

namespace vellumark {

frmNewCOOLGen::frmNewCOOLGen(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmNewCOOLGen>()), canRead_(fCOOLGenAPIPresent()) {
    ui_->setupUi(this);
    for (const std::string_view name : kCOOLGenDBMSNames)
        ui_->cboDBMS->addItem(ToQt(name));
    ui_->cboDBMS->setPlaceholderText("Select the DBMS");
    ui_->cboDBMS->setCurrentIndex(-1);
    connect(ui_->txtDescription, &QLineEdit::textChanged, this, &frmNewCOOLGen::EnableDisable);
    connect(ui_->cmdBrowse, &QPushButton::clicked, this, &frmNewCOOLGen::Browse);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmNewCOOLGen::OK);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmNewCOOLGen::reject);
    ui_->lblAPI->setVisible(!canRead_);
    EnableDisable();
    ui_->txtName->setFocus();
    resize(560, sizeHint().height());
    if (!canRead_)
        ShowCOOLGenAPIMissing();
}

frmNewCOOLGen::~frmNewCOOLGen() = default;

// Text files that stand in the schema's folder already are read without the model.
void frmNewCOOLGen::EnableDisable() {
    ui_->cmdOK->setEnabled(canRead_ || ui_->txtDescription->text() == ToQt(kReadOnlyWord));
}

void frmNewCOOLGen::Browse() {
    const std::optional<std::string> file = CurrentFilePicker().Open(
        this, {"Select COOL:Gen model", "IEF0000.dat|IEF0000.DAT|All files (*.*)|*.*",
               PickerStart(*ui_->txtModel, &OptionsRecord::dirCOOLGen)});
    if (file)
        ui_->txtModel->setText(ToQt(*file));
}

void frmNewCOOLGen::OK() {
    const WaitPointer wait;
    const bool made = fNewSchema({.kind = NewSchemaKind::COOLGen,
                                  .name = FromQt(ui_->txtName->text()),
                                  .description = FromQt(ui_->txtDescription->text()),
                                  .model = {.modelFile = FromQt(ui_->txtModel->text()),
                                            .dbmsName = FromQt(ui_->cboDBMS->currentText()),
                                            .permittedValues = ui_->chkPVs->isChecked()}});
    if (made)
        accept();
    else if (ui_->txtName->text().isEmpty())
        ui_->txtName->setFocus();
}

}  // namespace vellumark
