#include "schema/screens/frmCONList.h"

#include "platform/screens/qtText.h"
#include "ui_frmCONList.h"

namespace vellumark {

frmCONList::frmCONList(ConnectionListMode mode, QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::frmCONList>()),
      mode_(mode),
      connections_(mode == ConnectionListMode::Delete) {
    ui_->setupUi(this);
    const bool selects = mode == ConnectionListMode::Select;
    if (!selects) {
        setWindowTitle("Delete an unused Database Connection");
        ui_->cmdCancel->setText("Close");
    }
    ui_->cmdOK->setVisible(selects);
    ui_->cmdDeleteUnused->setVisible(selects);
    ui_->cmdDelete->setVisible(!selects);
    ui_->grdConnections->setSelectionBehavior(QAbstractItemView::SelectRows);
    connect(ui_->txtFind, &QLineEdit::textChanged, this, &frmCONList::Filter);
    connect(ui_->grdConnections, &RowGrid::CurrentRowChanged, this, &frmCONList::EnableDisable);
    connect(ui_->grdConnections, &QAbstractItemView::doubleClicked, this, &frmCONList::Select);
    connect(ui_->cmdDeleteUnused, &QPushButton::clicked, this, &frmCONList::DeleteUnused);
    connect(ui_->cmdDelete, &QPushButton::clicked, ui_->grdConnections, &RowGrid::DeleteCurrentRow);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmCONList::Select);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmCONList::reject);
    ui_->grdConnections->Show(connections_);
    ui_->grdConnections->setFocus();
    resize(900, 400);
}

frmCONList::~frmCONList() = default;

void frmCONList::EnableDisable() {
    const bool any = ui_->grdConnections->CurrentRow() != nullptr;
    ui_->cmdOK->setEnabled(any);
    ui_->cmdDelete->setEnabled(any);
}

void frmCONList::Filter() {
    connections_.SetFilter(FromQt(ui_->txtFind->text()));
    ui_->grdConnections->Reload();
}

void frmCONList::Select() {
    const ConnectionDetails* found = connections_.Find(ui_->grdConnections->CurrentId());
    if (mode_ == ConnectionListMode::Delete || found == nullptr)
        return;
    selected_ = *found;
    accept();
}

void frmCONList::DeleteUnused() {
    frmCONList(ConnectionListMode::Delete, this).exec();
    ui_->grdConnections->Reload();
}

}  // namespace vellumark
