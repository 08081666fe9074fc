#include "scenario/screens/frmTSOSelectTables.h"

#include "platform/screens/icons.h"
#include "scenario/modScenarioTables.h"
#include "ui_frmTSOSelectTables.h"

namespace vellumark {

frmTSOSelectTables::frmTSOSelectTables(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmTSOSelectTables>()) {
    ui_->setupUi(this);
    ui_->cmdToTSO->setIcon(LineIcon("arrow-right"));
    ui_->cmdToDBS->setIcon(LineIcon("arrow-left"));
    for (QToolButton* button : {ui_->cmdSortDBSAsc, ui_->cmdSortTSOAsc})
        button->setIcon(LineIcon("sort-ascending"));
    for (QToolButton* button : {ui_->cmdSortDBSDesc, ui_->cmdSortTSODesc})
        button->setIcon(LineIcon("sort-descending"));
    ui_->TListDBS->SetWord("DBS");
    ui_->TListTSO->SetWord("TSO");
    ui_->TListDBS->Add(TablesOutsideScenario());
    ui_->TListTSO->Add(TablesOfScenario());
    for (TableList* list : {ui_->TListDBS, ui_->TListTSO}) {
        list->clearSelection();
        list->scrollToTop();
    }
    ConnectLists();
    ConnectSorting();
    connect(ui_->cmdToggleName, &QPushButton::clicked, this, &frmTSOSelectTables::ToggleName);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    EnableMoves();
    ui_->TListDBS->setFocus();
}

frmTSOSelectTables::~frmTSOSelectTables() = default;

void frmTSOSelectTables::ConnectLists() {
    const auto toScenario = [this] { MoveToScenario(ui_->TListDBS->SelectedIds()); };
    const auto toDatabase = [this] { MoveToDatabase(ui_->TListTSO->SelectedIds()); };
    connect(ui_->TListTSO, &TableList::Dropped, this, &frmTSOSelectTables::MoveToScenario);
    connect(ui_->TListDBS, &TableList::Dropped, this, &frmTSOSelectTables::MoveToDatabase);
    connect(ui_->TListDBS, &TableList::MoveWanted, this, toScenario);
    connect(ui_->TListTSO, &TableList::MoveWanted, this, toDatabase);
    connect(ui_->cmdToTSO, &QToolButton::clicked, this, toScenario);
    connect(ui_->cmdToDBS, &QToolButton::clicked, this, toDatabase);
    connect(ui_->txtFilterDBS, &QLineEdit::textChanged, ui_->TListDBS, &TableList::Filter);
    connect(ui_->txtFilterTSO, &QLineEdit::textChanged, ui_->TListTSO, &TableList::Filter);
    for (TableList* list : {ui_->TListDBS, ui_->TListTSO})
        connect(list, &TableList::itemSelectionChanged, this, &frmTSOSelectTables::EnableMoves);
    for (QLineEdit* filter : {ui_->txtFilterDBS, ui_->txtFilterTSO})
        connect(filter, &QLineEdit::textChanged, this, &frmTSOSelectTables::EnableMoves);
}

void frmTSOSelectTables::ConnectSorting() {
    const auto sorts = [this](QToolButton* button, TableList* list, Qt::SortOrder order) {
        connect(button, &QToolButton::clicked, list, [list, order] { list->sortItems(order); });
    };
    sorts(ui_->cmdSortDBSAsc, ui_->TListDBS, Qt::AscendingOrder);
    sorts(ui_->cmdSortDBSDesc, ui_->TListDBS, Qt::DescendingOrder);
    sorts(ui_->cmdSortTSOAsc, ui_->TListTSO, Qt::AscendingOrder);
    sorts(ui_->cmdSortTSODesc, ui_->TListTSO, Qt::DescendingOrder);
}

void frmTSOSelectTables::MoveToScenario(const std::vector<int>& ids) {
    if (fOfferTables(ids))
        Move(*ui_->TListDBS, *ui_->TListTSO, ids);
}

void frmTSOSelectTables::MoveToDatabase(const std::vector<int>& ids) {
    if (fWithdrawTables(ids))
        Move(*ui_->TListTSO, *ui_->TListDBS, ids);
}

void frmTSOSelectTables::Move(TableList& from, TableList& to, const std::vector<int>& ids) {
    to.Add(from.Take(ids));
    EnableMoves();
}

void frmTSOSelectTables::ToggleName() {
    entityFirst_ = !entityFirst_;
    ui_->TListDBS->ShowEntityFirst(entityFirst_);
    ui_->TListTSO->ShowEntityFirst(entityFirst_);
}

void frmTSOSelectTables::EnableMoves() {
    ui_->cmdToTSO->setEnabled(!ui_->TListDBS->SelectedIds().empty());
    ui_->cmdToDBS->setEnabled(!ui_->TListTSO->SelectedIds().empty());
}

}  // namespace vellumark
