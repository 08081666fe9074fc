#include "scenario/screens/frmValueSource.h"

#include <QSignalBlocker>
#include <algorithm>
#include <array>

#include "engine/modValuePreview.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"
#include "platform/spreadsheet/workbook.h"
#include "platform/text.h"
#include "repository/modDescriptions.h"
#include "repository/modEditPatterns.h"
#include "repository/modVellumark.h"
#include "repository/screens/frmUpdateEditPatterns.h"
#include "repository/screens/textFields.h"
#include "scenario/screens/frmCNVMaintenance.h"
#include "scenario/screens/frmVLEMaintenance.h"
#include "scenario/screens/frmValuePreview.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "schema/screens/frmDatabaseConnection.h"
#include "tools/screens/viewerOpeners.h"
#include "ui_frmValueSource.h"

namespace vellumark {

namespace {

constexpr int kPreviewedValues = 100;
constexpr std::string_view kOrderCodes = "RS";
constexpr std::string_view kQuoteCodes = "DQN";
constexpr std::string_view kEndCodes = "SHL";

bool IsMoment(DataType type) {
    return type == DataType::Date || type == DataType::Time || type == DataType::TimeStamp;
}

std::string_view PatternCaller(DataType type) {
    if (type == DataType::Date)
        return "cmdVSDateEdPatD";
    return type == DataType::Time ? "cmdVSDateEdPatT" : "cmdVSDateEdPatP";
}

std::string TableName(int id) {
    const RepositoryScope repository;
    return dao::ToText(RepositoryDatabase.Lookup(
        "select [Name] from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, id}));
}

std::string OptionText(const char* column) {
    const RepositoryScope repository;
    return dao::ToText(RepositoryDatabase.Lookup("select [" + std::string(column) + "] from [Options]"));
}

// 0 stays out of sight: it stands for a bound that isn't set.
QString BoundText(int bound) {
    return bound == 0 ? QString() : QString::number(bound);
}

int NumberIn(const QLineEdit& field) {
    return platform::ParseLong(FromQt(field.text())).value_or(field.text().isEmpty() ? 0 : -1);
}

char CodeAt(std::string_view codes, int index) {
    return codes[static_cast<std::size_t>(std::clamp(index, 0, static_cast<int>(codes.size()) - 1))];
}

int IndexOf(std::string_view codes, char code) {
    const std::size_t place = codes.find(code);
    return place == std::string_view::npos ? 0 : static_cast<int>(place);
}

}  // namespace

frmValueSource::frmValueSource(const ColumnRuleDetails& rule, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmValueSource>()), rule_(rule) {
    ui_->setupUi(this);
    setWindowTitle("Alternate Data Source for: " + ToQt(TableName(rule.tableId) + " " + rule.columnName));
    FillLists();
    for (QLineEdit* field : {ui_->txtStartCol, ui_->txtEndCol, ui_->txtStartRow, ui_->txtEndRow,
                             ui_->txtDelFNum, ui_->txtReadInt, ui_->txtHoldFr})
        NumericKeys(*field, DataType::LongInteger);
    SelectTextOnFocus(*this);
    if (const std::optional<ValueSourceDetails> stored = ReadValueSource(rule_))
        details_ = *stored;
    storedConnectionId_ = details_.connectionId;
    ShowData();
    Connect();
    resize(720, sizeHint().height());
}

frmValueSource::~frmValueSource() = default;

void frmValueSource::FillLists() {
    ui_->cboReadFOrd->addItems({"Random", "Sequential"});
    ui_->cboInpQuotes->addItems({"Default", "Quotes", "None"});
    ui_->cboEOF->addItems({"Stop", "Hold", "Loop"});
}

void frmValueSource::Connect() {
    const std::array kinds = {std::pair{ui_->optGenValF, 'V'}, std::pair{ui_->optTxtDelF, 'D'},
                              std::pair{ui_->optTxtPosF, 'P'}, std::pair{ui_->optExcel, 'X'},
                              std::pair{ui_->optDatabase, 'O'}};
    for (const auto& [option, type] : kinds)
        connect(option, &QRadioButton::clicked, this, [this, type = type] { ChooseKind(type); });
    connect(ui_->cboReadFOrd, &QComboBox::activated, this, &frmValueSource::ChooseOrder);
    connect(ui_->cmdCategory, &QToolButton::clicked, this, &frmValueSource::BrowseCategory);
    connect(ui_->cmdCNV, &QToolButton::clicked, this, &frmValueSource::BrowseConversion);
    connect(ui_->cmdClearCNV, &QToolButton::clicked, this, [this] {
        details_.conversionId = 0;
        ShowNames();
    });
    connect(ui_->cmdBrowse, &QToolButton::clicked, this, &frmValueSource::BrowseFile);
    connect(ui_->cmdBrowseDB, &QToolButton::clicked, this, &frmValueSource::BrowseDatabase);
    connect(ui_->cmdVSDateEdPat, &QToolButton::clicked, this, &frmValueSource::ChoosePattern);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmValueSource::View);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmValueSource::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmValueSource::reject);
}

void frmValueSource::ShowData() {
    QRadioButton* const options[] = {ui_->optGenValF, ui_->optTxtDelF, ui_->optTxtPosF, ui_->optExcel,
                                     ui_->optDatabase};
    options[IndexOf("VDPXO", details_.type)]->setChecked(true);
    ui_->txtNamePath->setText(ToQt(details_.path));
    ui_->txtExcel->setCurrentText(ToQt(details_.sheet));
    ui_->txtDelimiter->setText(ToQt(details_.delimiter));
    ui_->txtDelFNum->setText(BoundText(details_.type == 'D' ? details_.fieldNumber : 0));
    ui_->txtStartCol->setText(BoundText(details_.startColumn));
    ui_->txtEndCol->setText(BoundText(details_.endColumn));
    ui_->txtColTerminator->setText(ToQt(details_.columnTerminator));
    ui_->txtStartRow->setText(QString::number(details_.startRow));
    ui_->txtEndRow->setText(QString::number(details_.endRow));
    ui_->txtRowTerminator->setText(ToQt(details_.rowTerminator));
    ui_->txtReadInt->setText(QString::number(details_.interval));
    ui_->txtHoldFr->setText(QString::number(details_.hold));
    ui_->cboReadFOrd->setCurrentIndex(IndexOf(kOrderCodes, details_.order));
    ui_->cboInpQuotes->setCurrentIndex(IndexOf(kQuoteCodes, details_.quotes));
    ui_->cboEOF->setCurrentIndex(IndexOf(kEndCodes, details_.atEnd));
    ShowNames();
    EnableDisable();
}

// What stands for an Id or a stored pattern.
void frmValueSource::ShowNames() {
    ui_->txtCategory->setText(ToQt(details_.categoryId > 0 ? CategoryName(details_.categoryId) : ""));
    ui_->txtCNVName->setText(
        ToQt(details_.conversionId > 0 ? ConversionCodeName(details_.conversionId) : ""));
    ui_->txtOtherDB->setText(
        ToQt(details_.connectionId > 0 ? ValueDescription(details_.connection) : "").trimmed());
    ui_->txtVSDateEdPat->setText(ToQt(EditPatternToText(details_.inputPattern)));
    ui_->cmdClearCNV->setEnabled(details_.conversionId > 0);
}

// Empties what belongs to the other kinds.
void frmValueSource::ChooseKind(char type) {
    SetSourceKind(details_, type);
    details_.categoryId = type == 'V' ? details_.categoryId : 0;
    for (QLineEdit* field : {ui_->txtNamePath, ui_->txtDelimiter, ui_->txtDelFNum, ui_->txtStartCol,
                             ui_->txtEndCol, ui_->txtColTerminator, ui_->txtRowTerminator})
        field->clear();
    ui_->txtExcel->clear();
    if (type != 'O')
        ForgetChosenConnection();
    ui_->txtStartCol->setText(BoundText(details_.startColumn));
    ui_->txtEndCol->setText(BoundText(details_.endColumn));
    ui_->txtDelFNum->setText(BoundText(details_.fieldNumber));
    ui_->txtStartRow->setText("1");
    ShowNames();
    EnableDisable();
}

// Interval and end mean nothing for values read at random.
void frmValueSource::ChooseOrder() {
    if (ui_->cboReadFOrd->currentIndex() == 0) {
        ui_->txtReadInt->setText("1");
        ui_->cboEOF->setCurrentIndex(IndexOf(kEndCodes, 'L'));
    }
    EnableDisable();
}

void frmValueSource::EnableDisable() {
    const char type = details_.type;
    const bool file = type == 'D' || type == 'P' || type == 'X';
    const bool columns = type == 'P' || type == 'X';
    const bool sequential = ui_->cboReadFOrd->currentIndex() == 1;
    const std::pair<QWidget*, bool> states[] = {
        {ui_->txtCategory, type == 'V'},
        {ui_->cmdCategory, type == 'V'},
        {ui_->txtNamePath, file},
        {ui_->cmdBrowse, file},
        {ui_->txtExcel, type == 'X'},
        {ui_->txtDelimiter, type == 'D'},
        {ui_->txtDelFNum, type == 'D'},
        {ui_->txtOtherDB, type == 'O'},
        {ui_->cmdBrowseDB, type == 'O'},
        {ui_->txtStartCol, columns},
        {ui_->txtEndCol, columns},
        {ui_->txtColTerminator, type == 'X'},
        {ui_->txtRowTerminator, type == 'X'},
        {ui_->txtReadInt, sequential},
        {ui_->cboEOF, sequential},
        {ui_->cmdVSDateEdPat, IsMoment(rule_.dataType)},
    };
    for (const auto& [control, enabled] : states)
        control->setEnabled(enabled);
}

void frmValueSource::BrowseCategory() {
    frmVLEMaintenance choice(rule_.columnName, details_.categoryId, this);
    choice.exec();
    if (choice.Selected().id == 0)
        return;
    details_.categoryId = choice.Selected().id;
    ShowNames();
    WarnOfCategoryType(details_.categoryId, rule_.dataType);
}

void frmValueSource::BrowseConversion() {
    frmCNVMaintenance choice(rule_.columnName, details_.conversionId, this);
    choice.exec();
    if (choice.SelectedCNVId() == 0)
        return;
    details_.conversionId = choice.SelectedCNVId();
    ShowNames();
}

void frmValueSource::BrowseFile() {
    const bool spreadsheet = details_.type == 'X';
    const FilePickerRequest request =
        spreadsheet
            ? FilePickerRequest{"Select input Excel file",
                                "Spreadsheets (*.xlsx *.ods *.xls)|*.xlsx;*.ods;*.xls|All files (*.*)|*.*",
                                OptionText("Dir Input Excel Files")}
            : FilePickerRequest{"Select input text file", "txt (*.txt)|*.txt|All files (*.*)|*.*",
                                OptionText("Dir Input Text Files")};
    const std::optional<std::string> path = CurrentFilePicker().Open(this, request);
    if (!path)
        return;
    ui_->txtNamePath->setText(ToQt(*path));
    if (spreadsheet) {
        ui_->txtExcel->clear();
        OpenExcel();
    }
}

bool frmValueSource::OpenExcel() {
    const std::string path = FromQt(ui_->txtNamePath->text());
    const QString named = ui_->txtExcel->currentText();
    try {
        const std::unique_ptr<platform::Workbook> workbook = platform::OpenWorkbook(path);
        ui_->txtExcel->clear();
        for (const std::string& sheet : workbook->SheetNames())
            ui_->txtExcel->addItem(ToQt(sheet));
    } catch (const platform::Error& error) {
        return platform::Refuse("Cannot open the Input Value Excel Spreadsheet: " + path + "\n\n" +
                                error.Description());
    }
    if (named.isEmpty())
        return true;
    ui_->txtExcel->setCurrentText(named);
    if (ui_->txtExcel->findText(named, Qt::MatchFixedString) >= 0)
        return true;
    return platform::Refuse("There is no worksheet '" + FromQt(named) + "' in the spreadsheet.");
}

// The connection's row is written by its own screen; the source takes it with OK.
void frmValueSource::BrowseDatabase() {
    ValueConnectionId = details_.connectionId;
    frmDatabaseConnection connection(kConnectValue, this, TableName(rule_.tableId), rule_.columnName);
    if (connection.exec() != QDialog::Accepted)
        return;
    details_.connectionId = ValueConnectionId;
    details_.connection = ReadConnection(ValueConnectionId).value_or(ConnectionDetails{});
    ShowNames();
}

void frmValueSource::ChoosePattern() {
    if (const auto pattern = EditPatternDialog(this, PatternCaller(rule_.dataType), details_.inputPattern)) {
        details_.inputPattern = *pattern;
        ShowNames();
    }
}

void frmValueSource::View() {
    if (!fValidate())
        return;
    if (details_.type == 'O') {
        ValueConnectionId = details_.connectionId;
        ViewData(ViewerCaller::Value, this);
        return;
    }
    const std::vector<std::string> values = [this] {
        const WaitPointer wait;
        return PreviewValues(Entered(), rule_, kPreviewedValues);
    }();
    if (!values.empty())
        frmValuePreview(values, this).exec();
}

ValueSourceDetails frmValueSource::Entered() const {
    ValueSourceDetails details = details_;
    details.path = FromQt(ui_->txtNamePath->text());
    details.sheet = FromQt(ui_->txtExcel->currentText());
    details.delimiter = FromQt(ui_->txtDelimiter->text());
    details.fieldNumber = NumberIn(*ui_->txtDelFNum);
    details.startColumn = NumberIn(*ui_->txtStartCol);
    details.endColumn = NumberIn(*ui_->txtEndCol);
    details.columnTerminator = FromQt(ui_->txtColTerminator->text());
    details.startRow = NumberIn(*ui_->txtStartRow);
    details.endRow = NumberIn(*ui_->txtEndRow);
    details.rowTerminator = FromQt(ui_->txtRowTerminator->text());
    details.interval = NumberIn(*ui_->txtReadInt);
    details.order = CodeAt(kOrderCodes, ui_->cboReadFOrd->currentIndex());
    details.hold = NumberIn(*ui_->txtHoldFr);
    details.quotes = CodeAt(kQuoteCodes, ui_->cboInpQuotes->currentIndex());
    details.atEnd = CodeAt(kEndCodes, ui_->cboEOF->currentIndex());
    if (!IsMoment(rule_.dataType))
        details.inputPattern.clear();
    return details;
}

void frmValueSource::GoTo(ValueSourceField field) {
    QWidget* control = nullptr;
    switch (field) {
        case ValueSourceField::StartColumn:
            control = ui_->txtStartCol;
            break;
        case ValueSourceField::StartRow:
            control = ui_->txtStartRow;
            break;
        case ValueSourceField::Interval:
            control = ui_->txtReadInt;
            break;
        case ValueSourceField::Hold:
            control = ui_->txtHoldFr;
            break;
        case ValueSourceField::Path:
            control = ui_->txtNamePath;
            break;
        case ValueSourceField::Category:
            control = ui_->cmdCategory;
            break;
        case ValueSourceField::Connection:
            control = ui_->cmdBrowseDB;
            break;
        default:
            return;
    }
    control->setFocus();
    if (auto* text = qobject_cast<QLineEdit*>(control))
        text->selectAll();
}

bool frmValueSource::fValidate() {
    const ValueSourceField field = FaultyField(Entered(), rule_);
    if (field == ValueSourceField::None)
        return details_.type != 'X' || OpenExcel();
    GoTo(field);
    return false;
}

void frmValueSource::accept() {
    if (!fValidate() || !fSaveValueSource(Entered(), rule_))
        return;
    Screen::accept();
}

// A connection chosen in this visit that no source refers to goes again.
void frmValueSource::ForgetChosenConnection() {
    if (details_.connectionId > 0 && details_.connectionId != storedConnectionId_) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("delete * from [Database Connection] where [Id] = ?",
                                   {details_.connectionId});
    }
    details_.connectionId = 0;
    details_.connection = {};
}

void frmValueSource::reject() {
    ForgetChosenConnection();
    Screen::reject();
}

}  // namespace vellumark
