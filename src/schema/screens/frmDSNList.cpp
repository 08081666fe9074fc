#include "schema/screens/frmDSNList.h"

#include "platform/text.h"
#include "ui_frmDSNList.h"

namespace vellumark {

namespace {

constexpr int kNameWidth = 200;

}  // namespace

frmDSNList::frmDSNList(std::string_view present, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmDSNList>()) {
    ui_->setupUi(this);
    RowGrid& grid = *ui_->grdSources;
    grid.setSelectionBehavior(QAbstractItemView::SelectRows);
    grid.Show(sources_);
    grid.setColumnWidth(0, kNameWidth);
    for (const GridRow& row : sources_.Load())
        if (platform::EqualsIgnoringCase(row.cells[0], present))
            grid.SelectId(row.id);
    const bool none = grid.CurrentRow() == nullptr;
    ui_->cmdSelect->setEnabled(!none);
    ui_->lblHint->setVisible(none);
    connect(&grid, &QAbstractItemView::doubleClicked, this, &frmDSNList::Select);
    connect(ui_->cmdSelect, &QPushButton::clicked, this, &frmDSNList::Select);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmDSNList::reject);
    resize(480, 320);
}

frmDSNList::~frmDSNList() = default;

void frmDSNList::Select() {
    if (const GridRow* row = ui_->grdSources->CurrentRow()) {
        selected_ = row->cells[0];
        accept();
    }
}

}  // namespace vellumark
