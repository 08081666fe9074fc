#include "tools/screens/frmCreateLoadFile.h"

#include "platform/dialogs.h"
#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/screens/textFields.h"
#include "scenario/modRuleSelection.h"
#include "schema/screens/pickerStart.h"
#include "tools/modLoadFile.h"
#include "ui_frmCreateLoadFile.h"

namespace vellumark {

frmCreateLoadFile::frmCreateLoadFile(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmCreateLoadFile>()) {
    ui_->setupUi(this);
    SelectTextOnFocus(*this);
    Load();
    connect(ui_->cboDatabase, &QComboBox::currentIndexChanged, this, &frmCreateLoadFile::ShowDefaultFileName);
    connect(ui_->cmdBrowseFile, &QToolButton::clicked, this, &frmCreateLoadFile::BrowseFile);
    connect(ui_->cmdCreate, &QPushButton::clicked, this, &frmCreateLoadFile::Create);
    connect(ui_->cmdViewFile, &QPushButton::clicked, this, &frmCreateLoadFile::ViewFile);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::close);
}

frmCreateLoadFile::~frmCreateLoadFile() = default;

void frmCreateLoadFile::Load() {
    const LoadFileDefaults defaults = ReadLoadFileDefaults(CurrentTTRId);
    ui_->lblTable->setText(ToQt(defaults.tableName));
    ui_->txtDelimiter->setText(ToQt(defaults.delimiter));
    for (const std::string& format : FillDBMSList("CreateLoadFile"))
        ui_->cboDatabase->addItem(ToQt(format));
    ui_->cboDatabase->setCurrentText(ToQt(defaults.format));
    ShowDefaultFileName();
    ui_->cboDatabase->setFocus();
}

void frmCreateLoadFile::ShowDefaultFileName() {
    std::string path;
    if (fSetDefaultFileName(FromQt(ui_->cboDatabase->currentText()), path))
        ui_->txtTextFile->setText(ToQt(path));
}

void frmCreateLoadFile::BrowseFile() {
    const auto path = CurrentFilePicker().Save(
        this, {"Select file", LoadFileFilter(FromQt(ui_->cboDatabase->currentText())),
               PickerStart(*ui_->txtTextFile, &OptionsRecord::dirOutputText)});
    if (path)
        ui_->txtTextFile->setText(ToQt(*path));
}

void frmCreateLoadFile::Create() {
    const std::string path = FromQt(ui_->txtTextFile->text());
    const std::string format = FromQt(ui_->cboDatabase->currentText());
    if (!fCreateLoadFile(
            {CurrentTTRId, ParseTargetFormat(format).value(), FromQt(ui_->txtDelimiter->text()), path}))
        return;
    ui_->cmdClose->setText("&Close");
    OpenFileWithEditor(path, false);
}

void frmCreateLoadFile::ViewFile() {
    const std::string path = FromQt(ui_->txtTextFile->text());
    if (fFileExists(path))
        OpenFileWithEditor(path, true);
    else
        platform::ShowExclamation("Text file does not exist");
}

}  // namespace vellumark
