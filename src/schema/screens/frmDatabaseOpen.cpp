#include "schema/screens/frmDatabaseOpen.h"

#include "platform/screens/qtText.h"
#include "scenario/modSchemaLifecycle.h"
#include "ui_frmDatabaseOpen.h"

namespace vellumark {

namespace {

constexpr int kNameWidth = 160;
constexpr int kDescriptionWidth = 240;

}  // namespace

frmDatabaseOpen::frmDatabaseOpen(SchemaListMode mode, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmDatabaseOpen>()), mode_(mode) {
    ui_->setupUi(this);
    if (mode == SchemaListMode::Delete) {
        setWindowTitle("Delete Database Schema");
        ui_->cmdOK->setText("Delete");
        ui_->cmdCancel->setText("Close");
    } else if (mode == SchemaListMode::VersionControl) {
        setWindowTitle("Select Target Database Schema");
        ui_->cmdOK->setText("Select");
    }
    RowGrid& grid = *ui_->grdSchemas;
    grid.setSelectionBehavior(QAbstractItemView::SelectRows);
    connect(ui_->txtFind, &QLineEdit::textChanged, this, &frmDatabaseOpen::Filter);
    connect(ui_->cmdRefresh, &QPushButton::clicked, &grid, &RowGrid::Reload);
    connect(&grid, &RowGrid::CurrentRowChanged, this, &frmDatabaseOpen::EnableDisable);
    connect(&grid, &QAbstractItemView::doubleClicked, this, &frmDatabaseOpen::OK);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmDatabaseOpen::OK);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmDatabaseOpen::reject);
    grid.Show(schemas_);
    grid.setColumnWidth(0, kNameWidth);
    grid.setColumnWidth(1, kDescriptionWidth);
    grid.setFocus();
    resize(760, 400);
}

frmDatabaseOpen::~frmDatabaseOpen() = default;

void frmDatabaseOpen::EnableDisable() {
    ui_->cmdOK->setEnabled(ui_->grdSchemas->CurrentRow() != nullptr);
}

void frmDatabaseOpen::Filter() {
    schemas_.SetFilter(FromQt(ui_->txtFind->text()));
    ui_->grdSchemas->Reload();
}

void frmDatabaseOpen::OK() {
    const SchemaEntry* schema = schemas_.Find(ui_->grdSchemas->CurrentId());
    if (schema == nullptr)
        return;
    switch (mode_) {
        case SchemaListMode::Open:
            return Open(schema->id);
        case SchemaListMode::Delete:
            return Delete(schema->id);
        case SchemaListMode::VersionControl:
            selected_ = *schema;
            return accept();
    }
}

// One that can't be opened leaves the list for another choice.
void frmDatabaseOpen::Open(int schemaId) {
    bool opened = false;
    {
        const WaitPointer wait;
        opened = OpenSelectedSchema(schemaId);
    }
    if (opened)
        accept();
    else
        ui_->grdSchemas->Reload();
}

// The list stays until it is closed.
void frmDatabaseOpen::Delete(int schemaId) {
    const WaitPointer wait;
    fDeleteSelectedSchema(schemaId);
    ui_->grdSchemas->Reload();
}

}  // namespace vellumark
