#include "schema/screens/frmTABandCOLSelect.h"

#include "platform/screens/qtText.h"
#include "ui_frmTABandCOLSelect.h"

namespace vellumark {

frmTABandCOLSelect::frmTABandCOLSelect(const EditedColumn& child, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmTABandCOLSelect>()), tables_(false), columns_(child) {
    ui_->setupUi(this);
    ui_->lblChild->setText(QString("The parent of %1: a column of type %2 and size %3.")
                               .arg(ToQt(child.name), ToQt(DataTypeName(child.dataType)))
                               .arg(child.size.value_or(0)));
    for (RowGrid* grid : {ui_->grdTables, ui_->grdColumns})
        grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    connect(ui_->grdTables, &RowGrid::CurrentRowChanged, this, &frmTABandCOLSelect::ShowColumns);
    connect(ui_->grdColumns, &RowGrid::CurrentRowChanged, this, &frmTABandCOLSelect::EnableDisable);
    connect(ui_->grdColumns, &QAbstractItemView::doubleClicked, this, &frmTABandCOLSelect::Select);
    connect(ui_->cmdSelect, &QPushButton::clicked, this, &frmTABandCOLSelect::Select);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ui_->grdColumns->Show(columns_);
    ui_->grdTables->Show(tables_);
    resize(760, 420);
}

frmTABandCOLSelect::~frmTABandCOLSelect() = default;

void frmTABandCOLSelect::ShowColumns() {
    const GridRow* table = ui_->grdTables->CurrentRow();
    columns_.SetTable(table == nullptr ? 0 : table->id);
    ui_->lblColumns->setText("C&olumns for Table: " +
                             (table ? ToQt(table->cells[0]).replace("&", "&&") : QString()));
    ui_->grdColumns->Reload();
}

void frmTABandCOLSelect::EnableDisable() {
    ui_->cmdSelect->setEnabled(ui_->grdColumns->CurrentRow() != nullptr);
}

void frmTABandCOLSelect::Select() {
    if (ui_->grdColumns->CurrentRow() == nullptr)
        return;
    selected_ = columns_.At(ui_->grdColumns->currentIndex().row());
    accept();
}

}  // namespace vellumark
