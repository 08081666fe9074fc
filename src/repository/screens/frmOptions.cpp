#include "repository/screens/frmOptions.h"

#include <QCoreApplication>
#include <QFile>

#include "platform/dialogs.h"
#include "platform/screens/filePicker.h"
#include "platform/screens/icons.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "repository/screens/frmFileControls.h"
#include "repository/screens/frmUpdateEditPatterns.h"
#include "repository/screens/textFields.h"
#include "scenario/modSettingsReload.h"
#include "ui_frmOptions.h"

namespace vellumark {

namespace {

QByteArray SettingsText() {
    QFile file(ToQt(SettingsFilePath));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

frmOptions::frmOptions(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmOptions>()) {
    ui_->setupUi(this);
    ui_->picNotepad->setIcon(LineIcon("edit-text"));
    ui_->picClose->setIcon(LineIcon("close"));
    fields_ = std::make_unique<OptionsFields>(*ui_);
    ConnectPages();
    ConnectFolders();
    ConnectFiles();
    ConnectPatterns();
    fields_->Show(ReadOptions());
    EnableHeaderFile();
    ShowSettings();
    SelectTextOnFocus(*this);
}

frmOptions::~frmOptions() = default;

void frmOptions::ConnectPages() {
    connect(ui_->vstOptions, &QTabWidget::currentChanged, this, &frmOptions::ChangePage);
    connect(ui_->cboOwner, &QComboBox::currentIndexChanged, this, [this] { fields_->EnableOwner(); });
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmOptions::Close);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->picClose, &QToolButton::clicked, this, &QDialog::reject);
}

void frmOptions::ConnectFolders() {
    const struct {
        QPushButton* button;
        QLineEdit* field;
        const char* title;
    } folders[] = {
        {ui_->cmdGenSQL, ui_->txtGenSQL, "Select default folder for Generated SQL Files"},
        {ui_->cmdInputTF, ui_->txtInputTextFiles, "Select default folder for Input Text Files"},
        {ui_->cmdOutputTF, ui_->txtOutputTextFiles, "Select default folder for Output Text Files"},
        {ui_->cmdBrowseInExcel, ui_->txtInExcel, "Select default folder for Input Excel Files"},
        {ui_->cmdBrowseOutExcel, ui_->txtOutExcel, "Select default folder for Output Excel Files"},
        {ui_->cmdReportFiles, ui_->txtReportFiles, "Select default folder for Log Report Files"},
        {ui_->cmdBrowseJet, ui_->txtJet, "Select default folder for Jet MDB Files"},
        {ui_->cmdCOOLGen, ui_->txtCOOLGen, "Select default folder for COOL:Gen models"},
    };
    for (const auto& [button, field, title] : folders) {
        button->setToolTip(title);
        connect(button, &QPushButton::clicked, this,
                [this, into = field, text = std::string(title)] { PickFolder(*into, text); });
    }
}

void frmOptions::ConnectFiles() {
    connect(ui_->cmdEditor, &QPushButton::clicked, this, &frmOptions::PickEditor);
    connect(ui_->cmdBrowseSQLHeaderFile, &QPushButton::clicked, this, &frmOptions::PickHeaderFile);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &frmOptions::EditHeaderFile);
    connect(ui_->picNotepad, &QToolButton::clicked, this, &frmOptions::EditHeaderFile);
    connect(ui_->txtSQLHeaderFile, &QLineEdit::textChanged, this, &frmOptions::EnableHeaderFile);
    connect(ui_->cmdEditINIFile, &QPushButton::clicked, this, &frmOptions::EditSettings);
}

void frmOptions::ConnectPatterns() {
    const std::array buttons = {ui_->cmdITFDate, ui_->cmdITFTime, ui_->cmdITFTstamp,
                                ui_->cmdOTFDate, ui_->cmdOTFTime, ui_->cmdOTFTstamp};
    for (std::size_t i = 0; i < buttons.size(); ++i)
        connect(buttons[i], &QPushButton::clicked, this,
                [this, i, caller = FromQt(buttons[i]->objectName())] {
                    if (const auto pattern = EditPatternDialog(this, caller, fields_->Pattern(i)))
                        fields_->SetPattern(i, *pattern);
                });
}

void frmOptions::ChangePage(int page) {
    if (page == page_)
        return;
    if (!fPageOK())
        return;
    page_ = page;
    if (page_ == static_cast<int>(OptionsPage::IniFile))
        ReloadChangedSettings();
}

bool frmOptions::fPageOK() {
    const auto fault = FindOptionsFault(static_cast<OptionsPage>(page_), fields_->Take());
    if (!fault)
        return true;
    ui_->vstOptions->setCurrentIndex(page_);
    platform::ShowExclamation(std::string(fault->message));
    auto* field = findChild<QLineEdit*>(ToQt(fault->field));
    field->setFocus();
    field->selectAll();
    return false;
}

void frmOptions::Close() {
    if (fPageOK() && fWriteOptions(fields_->Take()))
        accept();
}

void frmOptions::PickFolder(QLineEdit& field, const std::string& title) {
    if (const auto folder = AskFolder(this, title, FromQt(field.text())))
        field.setText(ToQt(*folder));
}

void frmOptions::PickEditor() {
    const auto path = CurrentFilePicker().Open(
        this, {"Select path for text editor", "exe (*.exe)|*.exe|All files (*.*)|*.*", ""});
    if (path)
        ui_->txtEditor->setText(ToQt(*path));
}

void frmOptions::PickHeaderFile() {
    const auto path = CurrentFilePicker().Open(
        this,
        {"Select SQL Header File", "txt (*.txt)|*.txt|All files (*.*)|*.*", FromQt(ui_->txtGenSQL->text())});
    if (path)
        ui_->txtSQLHeaderFile->setText(ToQt(*path));
}

void frmOptions::EditHeaderFile() {
    OpenFileWithEditor(FromQt(ui_->txtSQLHeaderFile->text()), true);
}

void frmOptions::EnableHeaderFile() {
    const bool named = !ui_->txtSQLHeaderFile->text().isEmpty();
    ui_->cmdEdit->setEnabled(named);
    ui_->picNotepad->setEnabled(named);
}

void frmOptions::EditSettings() {
    OpenFileWithEditor(SettingsFilePath, true);
    settingsOpened_ = true;
    ReloadSettings();
}

void frmOptions::ReloadSettings() {
    settingsRead_ = SettingsText();
    const std::string before = RepositoryPath;
    fReloadSettings();
    if (RepositoryPath != before)
        fields_->Show(ReadOptions());
    ShowSettings();
}

void frmOptions::ReloadChangedSettings() {
    const QByteArray text = SettingsText();
    if (settingsOpened_ && !text.isEmpty() && text != settingsRead_)
        ReloadSettings();
}

void frmOptions::changeEvent(QEvent* event) {
    Screen::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        ReloadChangedSettings();
}

void frmOptions::ShowSettings() {
    ui_->txtINIFile->setText(ToQt(SettingsFilePath));
    ui_->txtVellumarkRepository->setText(ToQt(RepositoryPath));
    ui_->txtVellumarkValues->setText(ToQt(ValuesPath));
    ui_->txtDatabasesFolder->setText(ToQt(DatabasesFolder));
    ui_->txtExecutableLoc->setText(QCoreApplication::applicationFilePath());
}

}  // namespace vellumark
