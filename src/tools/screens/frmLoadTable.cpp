#include "tools/screens/frmLoadTable.h"

#include "platform/dialogs.h"
#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/screens/textFields.h"
#include "schema/screens/pickerStart.h"
#include "ui_frmLoadTable.h"

namespace vellumark {

frmLoadTable::frmLoadTable(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmLoadTable>()) {
    ui_->setupUi(this);
    SelectTextOnFocus(*this);
    connect(ui_->cmdBrowseDB, &QToolButton::clicked, this, &frmLoadTable::BrowseDB);
    connect(ui_->cmdBrowseFile, &QToolButton::clicked, this, &frmLoadTable::BrowseFile);
    connect(ui_->cmdLoad, &QPushButton::clicked, this, &frmLoadTable::Load);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmLoadTable::ViewFile);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::close);
    ShowDefaults();
}

frmLoadTable::~frmLoadTable() = default;

void frmLoadTable::ShowDefaults() {
    const TableLoad load = ReadTableLoadDefaults();
    ui_->txtDatabase->setText(ToQt(load.database));
    ui_->txtTable->setText(ToQt(load.table));
    ui_->txtFile->setText(ToQt(load.file));
    ui_->txtDelimiter->setText(ToQt(load.delimiter));
    ui_->txtDatabase->setFocus();
}

void frmLoadTable::BrowseDB() {
    const auto path =
        CurrentFilePicker().Open(this, {"Select MDB File", "mdb (*.mdb)|*.mdb|All files (*.*)|*.*",
                                        PickerStart(*ui_->txtDatabase, &OptionsRecord::dirJet)});
    if (path)
        ui_->txtDatabase->setText(ToQt(*path));
}

void frmLoadTable::BrowseFile() {
    const auto path =
        CurrentFilePicker().Open(this, {"Select text file", "txt (*.txt)|*.txt|All files (*.*)|*.*",
                                        PickerStart(*ui_->txtFile, &OptionsRecord::dirOutputText)});
    if (path)
        ui_->txtFile->setText(ToQt(*path));
}

void frmLoadTable::Load() {
    const TableLoad load = Entered();
    if (const std::optional<TableLoadField> fault = FindLoadFault(load)) {
        GoTo(*fault);
        return;
    }
    const WaitPointer wait;
    if (fLoadTable(load))
        ui_->cmdCancel->setText("&Close");
}

void frmLoadTable::ViewFile() {
    const std::string path = FromQt(ui_->txtFile->text());
    if (fFileExists(path))
        OpenFileWithEditor(path, true);
    else
        platform::ShowExclamation("Text file does not exist");
}

TableLoad frmLoadTable::Entered() const {
    return {FromQt(ui_->txtDatabase->text()), FromQt(ui_->txtTable->text()), FromQt(ui_->txtFile->text()),
            FromQt(ui_->txtDelimiter->text())};
}

void frmLoadTable::GoTo(TableLoadField field) {
    QLineEdit* fields[] = {ui_->txtDatabase, ui_->txtTable, ui_->txtFile, ui_->txtDelimiter};
    QLineEdit* fault = fields[static_cast<int>(field)];
    fault->setFocus();
    fault->selectAll();
}

}  // namespace vellumark
