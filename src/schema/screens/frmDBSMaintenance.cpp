#include "schema/screens/frmDBSMaintenance.h"

#include <QTimer>

#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "schema/screens/frmTABandCOLSelect.h"
#include "ui_frmDBSMaintenance.h"

namespace vellumark {

namespace {

constexpr int kRoleWidth = 100;
constexpr int kParentWidth = 180;

}  // namespace

frmDBSMaintenance::frmDBSMaintenance(QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::frmDBSMaintenance>()),
      tables_(true),
      description_(ReadSchemaDescription()) {
    ui_->setupUi(this);
    setWindowTitle(windowTitle() + ": " + ToQt(CurrentDBSName));
    ui_->txtDescription->setText(ToQt(description_));
    connect(ui_->grdTables, &RowGrid::CurrentRowChanged, this, &frmDBSMaintenance::ShowColumns);
    connect(ui_->grdColumns, &RowGrid::CurrentRowChanged, this, &frmDBSMaintenance::EnableDisable);
    connect(ui_->cmdDeleteTable, &QPushButton::clicked, ui_->grdTables, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdDeleteColumn, &QPushButton::clicked, ui_->grdColumns, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdSetFK, &QPushButton::clicked, this, &frmDBSMaintenance::SetForeignKey);
    connect(ui_->cmdClearFK, &QPushButton::clicked, this, &frmDBSMaintenance::ClearForeignKey);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmDBSMaintenance::Close);
    ui_->grdColumns->Show(columns_);
    connect(ui_->grdColumns->model(), &QAbstractItemModel::dataChanged, this,
            &frmDBSMaintenance::EnableDisable);
    ui_->grdTables->Show(tables_);
    ui_->grdColumns->setColumnWidth(EditedColumnRows::kRole, kRoleWidth);
    ui_->grdColumns->setColumnWidth(EditedColumnRows::kParent, kParentWidth);
    ui_->grdTables->setFocus();
    ui_->splitGrids->setStretchFactor(0, 1);
    ui_->splitGrids->setStretchFactor(1, 3);
    resize(1120, 520);
}

frmDBSMaintenance::~frmDBSMaintenance() = default;

void frmDBSMaintenance::ShowColumns() {
    const GridRow* table = ui_->grdTables->CurrentRow();
    // A column's row that was refused stays open, and so its table stays the current one.
    if (ui_->grdColumns->HasEditedRow()) {
        QTimer::singleShot(0, this, [this] { ui_->grdTables->SelectId(columns_.TableId()); });
        return;
    }
    columns_.SetTable(table == nullptr ? 0 : table->id);
    ui_->lblColumns->setText("Colum&ns for Table: " +
                             (table ? ToQt(table->cells[0]).replace("&", "&&") : QString()));
    ui_->grdColumns->Reload();
}

void frmDBSMaintenance::EnableDisable() {
    const GridRow* column = ui_->grdColumns->CurrentRow();
    const bool stored = column != nullptr && column->id > 0;
    const std::optional<EditedColumn> present = stored ? columns_.Stored(column->id) : std::nullopt;
    ui_->cmdDeleteTable->setEnabled(ui_->grdTables->CurrentRow() != nullptr);
    ui_->cmdDeleteColumn->setEnabled(column != nullptr);
    ui_->cmdSetFK->setEnabled(column != nullptr);
    ui_->cmdClearFK->setEnabled(present && present->role == "Foreign Key");
}

void frmDBSMaintenance::SetForeignKey() {
    if (!CommitRows())
        return;
    const std::optional<EditedColumn> child = columns_.Stored(ui_->grdColumns->CurrentId());
    if (!child)
        return;
    frmTABandCOLSelect choice(*child, this);
    if (choice.exec() != QDialog::Accepted || !choice.Selected())
        return;
    if (fSetForeignKey(*child, *choice.Selected()))
        ui_->grdColumns->Reload();
}

void frmDBSMaintenance::ClearForeignKey() {
    if (!CommitRows())
        return;
    const std::optional<EditedColumn> child = columns_.Stored(ui_->grdColumns->CurrentId());
    if (child && fClearForeignKey(*child))
        ui_->grdColumns->Reload();
}

bool frmDBSMaintenance::CommitRows() {
    return ui_->grdTables->CommitRow() && ui_->grdColumns->CommitRow();
}

void frmDBSMaintenance::Close() {
    if (!CommitRows())
        return;
    const std::string description = FromQt(ui_->txtDescription->text());
    if (description != description_)
        fSaveSchemaDescription(description);
    RefreshCommands();
    accept();
}

// Escape and the window's own button close like the Close button: rows are written as they are left.
void frmDBSMaintenance::reject() {
    Close();
}

}  // namespace vellumark
