#include "scenario/screens/frmVLESelect.h"

#include "platform/screens/qtText.h"
#include "ui_frmVLESelect.h"

namespace vellumark {

namespace {

constexpr int kValueWidth = 200;

}  // namespace

frmVLESelect::frmVLESelect(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmVLESelect>()), categories_(false), values_(false) {
    ui_->setupUi(this);
    for (RowGrid* grid : {ui_->grdCategories, ui_->grdValues})
        grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    connect(ui_->grdCategories, &RowGrid::CurrentRowChanged, this, &frmVLESelect::ShowValues);
    connect(ui_->grdValues, &RowGrid::CurrentRowChanged, this, &frmVLESelect::EnableDisable);
    connect(ui_->grdValues, &QAbstractItemView::doubleClicked, this, &frmVLESelect::Select);
    connect(ui_->cmdSelect, &QPushButton::clicked, this, &frmVLESelect::Select);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ui_->grdValues->Show(values_);
    ui_->grdCategories->Show(categories_);
    ui_->grdValues->setColumnWidth(0, kValueWidth);
    resize(760, 460);
}

frmVLESelect::~frmVLESelect() = default;

void frmVLESelect::ShowValues() {
    const GridRow* category = ui_->grdCategories->CurrentRow();
    values_.SetCategory(ui_->grdCategories->CurrentId(), 'C');
    const QString name = category ? ToQt(category->cells[0]).replace("&", "&&") : QString();
    ui_->lblValues->setText("&Values for Category: " + name);
    ui_->grdValues->Reload();
}

void frmVLESelect::EnableDisable() {
    ui_->cmdSelect->setEnabled(ui_->grdValues->CurrentRow() != nullptr);
}

void frmVLESelect::Select() {
    if (ui_->grdValues->CurrentRow() == nullptr)
        return;
    categoryId_ = ui_->grdCategories->CurrentId();
    valueId_ = ui_->grdValues->CurrentId();
    accept();
}

}  // namespace vellumark
