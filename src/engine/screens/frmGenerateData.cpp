#include "engine/screens/frmGenerateData.h"

#include <QEvent>
#include <QLabel>

#include "engine/modValueReaders.h"
#include "engine/screens/generateOpeners.h"
#include "engine/screens/screenProgress.h"
#include "platform/dialogs.h"
#include "platform/screens/filePicker.h"
#include "platform/screens/icons.h"
#include "platform/screens/inputLock.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "repository/screens/textFields.h"
#include "schema/modDatabaseConnection.h"
#include "ui_frmGenerateData.h"

namespace vellumark {

namespace {

constexpr int kPictureSize = 24;

void ShowPicture(QLabel& label, std::string_view icon) {
    label.setPixmap(LineIcon(icon).pixmap(kPictureSize, kPictureSize));
}

// It comes and goes without moving what stands beside it.
void KeepPlace(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

}  // namespace

frmGenerateData::frmGenerateData(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmGenerateData>()) {
    ui_->setupUi(this);
    elapsed_ = new QLabel(this);
    elapsed_->setObjectName("lblElapsed");
    ui_->sbr->addPermanentWidget(elapsed_);
    for (QWidget* widget : {ui_->picGen, ui_->lblQtyCaption, ui_->lblQtyNumber})
        KeepPlace(*widget);
    ui_->picGen->hide();
    ShowPictures();
    SelectTextOnFocus(*this);
    Connect();
    Load();
}

frmGenerateData::~frmGenerateData() = default;

void frmGenerateData::Connect() {
    connect(ui_->optDatabase, &QRadioButton::toggled, this, &frmGenerateData::ChooseOutput);
    connect(ui_->cmdBrowseTextFile, &QToolButton::clicked, this, &frmGenerateData::BrowseTextFile);
    connect(ui_->cmdBrowseDBConnection, &QPushButton::clicked, this, &frmGenerateData::BrowseDBConnection);
    connect(ui_->cmdGenerateData, &QPushButton::clicked, this, &frmGenerateData::Generate);
    connect(ui_->cmdViewFile, &QPushButton::clicked, this, &frmGenerateData::ViewFile);
    connect(ui_->cmdViewData, &QPushButton::clicked, this, [this] { OpenTargetData(this); });
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::close);
}

// The screen stays open while the user selects another Scenario behind it, and must not run one thing and
// show another.
bool frmGenerateData::event(QEvent* event) {
    const bool other = shownDBSId_ != CurrentDBSId || shownTSOId_ != CurrentTSOId;
    if (event->type() == QEvent::WindowActivate && other && !running_)
        Load();
    return Screen::event(event);
}

void frmGenerateData::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && elapsed_ != nullptr)
        ShowPictures();
    Screen::changeEvent(event);
}

void frmGenerateData::ShowPictures() {
    ShowPicture(*ui_->picGen, "picGen");
    ShowPicture(*ui_->picInsert, "picInsert");
    ShowPicture(*ui_->picDelete, "picDelete");
}

void frmGenerateData::Load() {
    shownDBSId_ = CurrentDBSId;
    shownTSOId_ = CurrentTSOId;
    ShowDefaults();
    fUpdateGenerateData();
    ui_->cmdGenerateData->setEnabled(CurrentTSOId != 0);
    QRadioButton* output = OnlyDelimitedText() ? ui_->optTextFile : ui_->optDatabase;
    {
        const QSignalBlocker once(ui_->optDatabase);
        output->setChecked(true);
    }
    ChooseOutput();
    output->setFocus();
}

void frmGenerateData::ShowDefaults() {
    ui_->cboDatabase->clear();
    for (const std::string& name : FillDBMSList(CurrentTSOType == 'D' ? "DeleteSQL" : "All"))
        ui_->cboDatabase->addItem(ToQt(name));
    defaults_ = ReadRunDefaults();
    ShowFormat(defaults_.targetFormat);
    ui_->txtTextFile->setText(ToQt(DefaultTextFile(defaults_)));
}

void frmGenerateData::fUpdateGenerateData() {
    schema_ = CurrentDBSSource == 'R' ? ReadRunSchema().value_or(RunSchema{}) : RunSchema{};
    ui_->txtDB->setText(ToQt(CurrentDBSName));
    ui_->txtTSO->setText(ToQt(CurrentTSOName));
    ui_->lblComment->setText(ToQt(RunComment(schema_)));
    const bool insert = CurrentTSOType == 'I';
    ui_->picInsert->setVisible(insert);
    ui_->picDelete->setVisible(!insert);
    if (OnlyDelimitedText())
        ShowFormat(std::string(TargetFormatName(TargetFormat::Delimited)));
}

void frmGenerateData::ChooseOutput() {
    if (ui_->optDatabase->isChecked())
        setcboDatabase();
    Enable_Disable();
}

void frmGenerateData::setcboDatabase() {
    const std::optional<RunSchema> schema = ReadRunSchema();
    if (!schema)
        return;
    OtherDBMS_ = schema->targetType == kDbmsOther;
    if (!OtherDBMS_)
        ShowFormat(schema->targetType);
}

void frmGenerateData::Enable_Disable() {
    const bool toFile = ui_->optTextFile->isChecked();
    ui_->txtTextFile->setEnabled(toFile);
    ui_->cmdBrowseTextFile->setEnabled(toFile);
    ui_->cmdBrowseDBConnection->setEnabled(!toFile);
    ui_->optDatabase->setEnabled(!OnlyDelimitedText());
    ui_->cboDatabase->setEnabled(toFile ? !OnlyDelimitedText() : OtherDBMS_);
    const bool insert = CurrentTSOType == 'I';
    ui_->lblQtyCaption->setVisible(insert);
    ui_->lblQtyNumber->setVisible(insert);
}

void frmGenerateData::BrowseTextFile() {
    const bool text = ChosenFormat() == TargetFormat::Delimited;
    const QString typed = ui_->txtTextFile->text();
    const std::string start = typed.isEmpty() ? OutputFolder(defaults_, ChosenFormat()) : FromQt(typed);
    const FilePickerRequest request =
        text ? FilePickerRequest{"Select text file",
                                 "txt (*.txt)|*.txt|sql (*.sql)|*.sql|All files (*.*)|*.*", start}
             : FilePickerRequest{"Select SQL file", "sql (*.sql)|*.sql|txt (*.txt)|*.txt|All files (*.*)|*.*",
                                 start};
    if (const std::optional<std::string> path = CurrentFilePicker().Save(this, request))
        ui_->txtTextFile->setText(ToQt(*path));
}

void frmGenerateData::BrowseDBConnection() {
    ConnectMode = kConnectTarget;
    OpenTargetConnection(this);
    setcboDatabase();
    Enable_Disable();
}

void frmGenerateData::ViewFile() {
    const std::string path = FromQt(ui_->txtTextFile->text());
    if (fFileExists(path))
        OpenFileWithEditor(path, true);
    else
        platform::ShowExclamation("Text file does not exist");
}

void frmGenerateData::Generate() {
    const OutputChoice choice = Choice();
    if (!(choice.toDatabase ? fDatabaseRunOK(AutoConnect) : fFileReplaceOK(choice.textFile)))
        return;
    const bool done = Run(choice);
    // A reader that ran dry has ended its rule; what was written is worth showing.
    const bool dry = CurrentTSOType == 'I' && ReadEndMarker == "EOF";
    if (!choice.toDatabase && (done || dry))
        ShowResult(choice.textFile);
}

bool frmGenerateData::Run(const OutputChoice& choice) {
    const InputLock lock;
    const WaitPointer pointer;
    SetRunning(true);
    try {
        ScreenProgress progress(
            {*ui_->ProgressBar1, *ui_->lblTABNumber, *ui_->lblQtyNumber, *ui_->sbr, *elapsed_});
        const bool done = fRunScenario(choice, progress);
        SetRunning(false);
        return done;
    } catch (...) {
        SetRunning(false);
        throw;
    }
}

void frmGenerateData::SetRunning(bool running) {
    running_ = running;
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->fraOutput, ui_->cmdGenerateData,
                                                           ui_->cmdViewFile, ui_->cmdViewData, ui_->cmdClose})
        widget->setEnabled(!running);
    ui_->picGen->setVisible(running);
    if (running)
        return;
    ui_->sbr->clearMessage();
    ui_->ProgressBar1->setValue(0);
    ui_->cmdGenerateData->setFocus();
}

void frmGenerateData::ShowResult(const std::string& textFile) {
    if (CurrentTSOType == 'I' && LoadsTable(schema_))
        OpenTableLoad(this);
    else
        OpenFileWithEditor(textFile, false);
}

OutputChoice frmGenerateData::Choice() const {
    return {ui_->optDatabase->isChecked(), FromQt(ui_->txtTextFile->text()), ChosenFormat()};
}

TargetFormat frmGenerateData::ChosenFormat() const {
    return ParseTargetFormat(FromQt(ui_->cboDatabase->currentText())).value();
}

void frmGenerateData::ShowFormat(const std::string& name) {
    const int index = ui_->cboDatabase->findText(ToQt(name), Qt::MatchFixedString);
    if (index >= 0)
        ui_->cboDatabase->setCurrentIndex(index);
}

}  // namespace vellumark
