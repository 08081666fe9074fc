#include "scenario/screens/frmCNVMaintenance.h"

#include <QTimer>

#include "platform/screens/qtText.h"
#include "ui_frmCNVMaintenance.h"

namespace vellumark {

frmCNVMaintenance::frmCNVMaintenance(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmCNVMaintenance>()) {
    ui_->setupUi(this);
    connect(ui_->grdCodes, &RowGrid::CurrentRowChanged, this, &frmCNVMaintenance::ShowValues);
    connect(ui_->grdValues, &RowGrid::CurrentRowChanged, this, &frmCNVMaintenance::EnableDisable);
    connect(ui_->cmdDeleteCode, &QPushButton::clicked, ui_->grdCodes, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdDeleteValue, &QPushButton::clicked, ui_->grdValues, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdPaste, &QPushButton::clicked, this, &frmCNVMaintenance::Paste);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmCNVMaintenance::Close);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmCNVMaintenance::reject);
    ui_->grdValues->Show(values_);
    ui_->grdCodes->Show(codes_);
    ui_->splitGrids->setStretchFactor(0, 1);
    ui_->splitGrids->setStretchFactor(1, 2);
    ui_->grdCodes->setFocus();
    resize(760, 480);
}

frmCNVMaintenance::frmCNVMaintenance(const std::string& column, int present, QWidget* parent)
    : frmCNVMaintenance(parent) {
    selecting_ = true;
    setWindowTitle("Select a Conversion Code for: " + ToQt(column));
    ui_->cmdClose->setText("&Select");
    ui_->cmdClose->setDefault(true);
    if (present > 0)
        ui_->grdCodes->SelectId(present);
    EnableDisable();
}

frmCNVMaintenance::~frmCNVMaintenance() = default;

void frmCNVMaintenance::ShowValues() {
    const GridRow* code = ui_->grdCodes->CurrentRow();
    // A row that was refused stays open, and so its code stays the current one.
    if (ui_->grdValues->HasEditedRow()) {
        QTimer::singleShot(0, this, [this] { ui_->grdCodes->SelectId(values_.ConversionId()); });
        return;
    }
    values_.SetConversionCode(ui_->grdCodes->CurrentId());
    const QString name = code ? ToQt(code->cells[0]).replace("&", "&&") : QString();
    ui_->lblValues->setText("Codes and &Values for Conversion Code: " + name);
    ui_->grdValues->Reload();
}

void frmCNVMaintenance::EnableDisable() {
    const GridRow* code = ui_->grdCodes->CurrentRow();
    ui_->cmdDeleteCode->setEnabled(code != nullptr);
    ui_->cmdPaste->setEnabled(values_.ConversionId() > 0);
    ui_->cmdDeleteValue->setEnabled(ui_->grdValues->CurrentRow() != nullptr);
    ui_->cmdClose->setEnabled(!selecting_ || code != nullptr);
}

void frmCNVMaintenance::Paste() {
    if (CommitRows())
        ui_->grdValues->PasteAtEnd();
}

bool frmCNVMaintenance::CommitRows() {
    return ui_->grdCodes->CommitRow() && ui_->grdValues->CommitRow();
}

void frmCNVMaintenance::Close() {
    if (!CommitRows())
        return;
    if (selecting_)
        selectedId_ = ui_->grdCodes->CurrentId();
    accept();
}

// Cancel, Escape and the window's own button: the row being edited is dropped, what was written stays.
void frmCNVMaintenance::reject() {
    ui_->grdCodes->CancelRow();
    ui_->grdValues->CancelRow();
    selectedId_ = 0;
    Screen::reject();
}

}  // namespace vellumark
