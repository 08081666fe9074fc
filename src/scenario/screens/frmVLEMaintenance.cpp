#include "scenario/screens/frmVLEMaintenance.h"

#include <QTimer>

#include "platform/screens/qtText.h"
#include "scenario/screens/frmVLESelect.h"
#include "ui_frmVLEMaintenance.h"

namespace vellumark {

namespace {

constexpr int kValueWidth = 200;

}  // namespace

frmVLEMaintenance::frmVLEMaintenance(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmVLEMaintenance>()), categories_(true), values_(true) {
    ui_->setupUi(this);
    ui_->cboType->addItems({"All", "Vellumark Generic Value", "COOL:Gen Permitted Value"});
    Connect();
    ui_->grdValues->Show(values_);
    ui_->grdCategories->Show(categories_);
    ui_->grdValues->setColumnWidth(0, kValueWidth);
    ui_->splitGrids->setStretchFactor(0, 1);
    ui_->splitGrids->setStretchFactor(1, 1);
    ui_->grdCategories->setFocus();
    resize(900, 560);
}

frmVLEMaintenance::frmVLEMaintenance(const std::string& column, int present, QWidget* parent)
    : frmVLEMaintenance(parent) {
    selecting_ = true;
    setWindowTitle("Select a Generic Value Category for: " + ToQt(column));
    ui_->cmdClose->setText("&Select");
    ui_->cmdClose->setDefault(true);
    if (present > 0)
        ui_->grdCategories->SelectId(present);
    EnableDisable();
}

frmVLEMaintenance::~frmVLEMaintenance() = default;

void frmVLEMaintenance::Connect() {
    connect(ui_->cboType, &QComboBox::currentIndexChanged, this, &frmVLEMaintenance::fCATDisplay);
    connect(ui_->grdCategories, &RowGrid::CurrentRowChanged, this, &frmVLEMaintenance::ShowValues);
    connect(ui_->grdValues, &RowGrid::CurrentRowChanged, this, &frmVLEMaintenance::EnableDisable);
    connect(ui_->cmdDeleteCategory, &QPushButton::clicked, ui_->grdCategories, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdDeleteValue, &QPushButton::clicked, ui_->grdValues, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdDepends, &QPushButton::clicked, this, &frmVLEMaintenance::DependOn);
    connect(ui_->cmdClearDependency, &QPushButton::clicked, this, &frmVLEMaintenance::ClearDependency);
    connect(ui_->cmdSort, &QPushButton::clicked, this, &frmVLEMaintenance::Sort);
    connect(ui_->cmdPaste, &QPushButton::clicked, this, &frmVLEMaintenance::Paste);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmVLEMaintenance::Close);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmVLEMaintenance::reject);
}

// The Categories of the kind chosen, on the one that was current before where it is among them.
void frmVLEMaintenance::fCATDisplay() {
    if (!CommitRows())
        return;
    categories_.SetKind(static_cast<CategoryKind>(ui_->cboType->currentIndex()));
    ui_->grdCategories->Reload();
}

void frmVLEMaintenance::ShowValues() {
    const GridRow* category = ui_->grdCategories->CurrentRow();
    // A value that was refused stays open, and so its Category stays the current one.
    if (ui_->grdValues->HasEditedRow()) {
        QTimer::singleShot(0, this, [this] { ui_->grdCategories->SelectId(values_.CategoryId()); });
        return;
    }
    values_.SetCategory(category ? category->id : 0,
                        category ? CategoryRows::CategoryOf(*category).dataType : 'C');
    const QString name = category ? ToQt(category->cells[0]).replace("&", "&&") : QString();
    ui_->lblValues->setText("Values for Categor&y: " + name);
    ui_->grdValues->Reload();
}

void frmVLEMaintenance::EnableDisable() {
    const GridRow* category = ui_->grdCategories->CurrentRow();
    const GridRow* value = ui_->grdValues->CurrentRow();
    const bool stored = category != nullptr && category->id > 0;
    ui_->cmdDeleteCategory->setEnabled(category != nullptr);
    ui_->cmdSort->setEnabled(stored);
    ui_->cmdPaste->setEnabled(stored);
    ui_->cmdDepends->setEnabled(value != nullptr && value->id > 0);
    ui_->cmdClearDependency->setEnabled(value != nullptr && !value->cells[1].empty());
    ui_->cmdDeleteValue->setEnabled(value != nullptr);
    ui_->cmdClose->setEnabled(!selecting_ || category != nullptr);
}

void frmVLEMaintenance::DependOn() {
    if (!CommitRows() || ui_->grdValues->CurrentRow() == nullptr)
        return;
    const EditedValue value = values_.ValueOf(*ui_->grdValues->CurrentRow());
    frmVLESelect choice(this);
    if (choice.exec() == QDialog::Accepted &&
        fSetValueDependency(value, choice.SelectedCATId(), choice.SelectedVLEId()))
        ui_->grdValues->Reload();
}

void frmVLEMaintenance::ClearDependency() {
    if (CommitRows() && ui_->grdValues->CurrentRow() != nullptr &&
        fSetValueDependency(values_.ValueOf(*ui_->grdValues->CurrentRow()), 0, 0))
        ui_->grdValues->Reload();
}

void frmVLEMaintenance::Sort() {
    if (CommitRows() && SortValues(values_.CategoryId()))
        ui_->grdValues->Reload();
}

void frmVLEMaintenance::Paste() {
    if (CommitRows())
        ui_->grdValues->PasteAtEnd();
}

bool frmVLEMaintenance::CommitRows() {
    return ui_->grdCategories->CommitRow() && ui_->grdValues->CommitRow();
}

void frmVLEMaintenance::Close() {
    if (!CommitRows())
        return;
    const GridRow* category = ui_->grdCategories->CurrentRow();
    if (selecting_ && category != nullptr)
        selected_ = {category->id, CategoryRows::CategoryOf(*category).dataType};
    accept();
}

// Cancel, Escape and the window's own button: the row being edited is dropped, what was written stays.
void frmVLEMaintenance::reject() {
    ui_->grdCategories->CancelRow();
    ui_->grdValues->CancelRow();
    selected_ = {};
    Screen::reject();
}

}  // namespace vellumark
