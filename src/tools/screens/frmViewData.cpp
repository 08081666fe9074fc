#include "tools/screens/frmViewData.h"

#include <QLocale>
#include <QShortcut>
#include <algorithm>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/screens/inputLock.h"
#include "platform/screens/qtText.h"
#include "platform/screens/sqlHighlighter.h"
#include "schema/modConnectionTables.h"
#include "tools/screens/builderOpeners.h"
#include "ui_frmViewData.h"

namespace vellumark {

namespace {

constexpr int kLinesOfSQL = 5;
constexpr std::size_t kRowsAtOnce = 5000;
constexpr const char* kNotConnected =
    "Please set target database connection to view, and update data using the grid";

QString Counted(std::size_t number) {
    return QLocale(QLocale::English).toString(static_cast<qulonglong>(number));
}

}  // namespace

frmViewData::frmViewData(ViewerCaller caller, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmViewData>()), connection_(caller) {
    ui_->setupUi(this);
    ui_->txtSQL->setFixedHeight(ui_->txtSQL->fontMetrics().lineSpacing() * kLinesOfSQL + 12);
    std::make_unique<SqlHighlighter>(*ui_->txtSQL).release();  // the box's own
    Connect();
    Load(caller);
    ShowMode();
    resize(900, 620);
}

// What reads from the connection goes before it.
frmViewData::~frmViewData() {
    reading_.stop();
}

void frmViewData::Connect() {
    connect(ui_->cboTable, &QComboBox::activated, this, &frmViewData::ChooseTable);
    connect(ui_->optTable, &QRadioButton::clicked, this, &frmViewData::ShowMode);
    connect(ui_->optSQL, &QRadioButton::clicked, this, &frmViewData::ShowMode);
    connect(ui_->cmdBuilder, &QPushButton::clicked, this, &frmViewData::BuildSQL);
    connect(ui_->cmdRun, &QPushButton::clicked, this, &frmViewData::Run);
    connect(ui_->cmdStop, &QPushButton::clicked, this, [this] { stopping_ = true; });
    connect(ui_->cmdRequery, &QPushButton::clicked, this, &frmViewData::Requery);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmViewData::Close);
    for (QCheckBox* box : {ui_->chkAddNew, ui_->chkUpdate, ui_->chkDelete})
        connect(box, &QCheckBox::toggled, this, &frmViewData::Allow);
    connect(ui_->grdData, &RowGrid::CurrentRowChanged, this, &frmViewData::ShowPlace);
    connect(&reading_, &QTimer::timeout, this, &frmViewData::ReadOn);
    auto* const requery = std::make_unique<QShortcut>(QKeySequence(Qt::Key_F5), this).release();
    connect(requery, &QShortcut::activated, ui_->cmdRequery, &QPushButton::click);
    auto* const run = std::make_unique<QShortcut>(QKeySequence(Qt::CTRL | Qt::Key_Return), this).release();
    connect(run, &QShortcut::activated, this, [this] {
        if (ui_->optSQL->isChecked())
            Run();
    });
}

void frmViewData::Load(ViewerCaller caller) {
    if (!connection_.IsOpen()) {
        for (QWidget* widget :
             std::initializer_list<QWidget*>{ui_->optTable, ui_->optSQL, ui_->cboTable, ui_->grdData,
                                             ui_->chkAddNew, ui_->chkUpdate, ui_->chkDelete, ui_->cmdRequery})
            widget->setEnabled(false);
        ShowStatus(caller == ViewerCaller::Target ? kNotConnected : "");
        return;
    }
    data_ = std::make_unique<ViewedData>(connection_.Connections(), connection_.Protocol());
    rows_ = std::make_unique<ViewedRows>(*data_);
    ShowHeader();
    ListTables();
    ShowStatus("");
}

void frmViewData::ShowHeader() {
    const ConnectionDetails& details = connection_.Details();
    ui_->txtDBMS->setText(ToQt(details.dbmsType));
    ui_->txtDescription->setText(ToQt(details.description));
    ui_->txtDescription->setCursorPosition(0);
    ui_->txtOwner->setText(ToQt(details.owner));
    ui_->txtIgnoreOwner->setText(ToQt(details.ignoreOwnerPrefix));
    ui_->txtIgnoreTable->setText(ToQt(details.ignoreTablePrefix));
}

void frmViewData::ListTables() {
    const std::vector<TableEntry>& tables = connection_.Tables();
    for (const TableEntry& table : tables)
        ui_->cboTable->addItem(ToQt(QualifiedName(table)));
    ui_->cboTable->setPlaceholderText(tables.empty() ? "The database has no tables" : "Select a table");
    const std::string& named = connection_.Details().table;
    const std::optional<std::size_t> found = FindTableEntry(tables, named);
    ui_->cboTable->setCurrentIndex(found ? static_cast<int>(*found) : -1);
    ui_->cboTable->setFocus();
    if (found)
        ChooseTable();
}

void frmViewData::ShowMode() {
    const bool sql = ui_->optSQL->isChecked();
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->lblTable, ui_->cboTable})
        widget->setVisible(!sql);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->lblSQL, ui_->txtSQL, ui_->cmdBuilder,
                                                           ui_->cmdRun, ui_->cmdStop})
        widget->setVisible(sql);
    if (sql)
        ui_->txtSQL->setFocus();
}

void frmViewData::Allow() {
    if (rows_ == nullptr)
        return;
    rows_->Allow(ui_->chkAddNew->isChecked(), ui_->chkUpdate->isChecked(), ui_->chkDelete->isChecked());
    if (ui_->grdData->model() != nullptr)
        ui_->grdData->ShowGrown();
}

void frmViewData::ChooseTable() {
    const auto place = static_cast<std::size_t>(ui_->cboTable->currentIndex());
    if (place >= connection_.Tables().size() || !ui_->grdData->CommitRow())
        return;
    ShowStatus("Retrieving data, please wait...");
    const WaitPointer wait;
    if (data_->fShowTable(connection_.Tables()[place]))
        ShowRows();
    ShowStatus("");
}

void frmViewData::Run() {
    const std::string text = FromQt(ui_->txtSQL->toPlainText());
    if (data_ == nullptr || text.find_first_not_of(" \t\n") == text.npos || !ui_->grdData->CommitRow())
        return;
    ShowStatus("Running SQL script, please wait...");
    reading_.stop();
    const bool done = RunToEnd(text);
    ShowRows();
    ShowStatus(stopping_                                 ? "Stopped"
               : done && data_->Title() != "SQL Results" ? "SQL statement processed"
                                                         : "");
}

// Or until it is stopped.
bool frmViewData::RunToEnd(const std::string& text) {
    const WaitPointer wait;
    const InputLock lock(ui_->cmdStop);
    stopping_ = false;
    ui_->cmdStop->setEnabled(true);
    const bool done = data_->fRunSQL(text, [this] {
        InputLock::Breathe();
        return !stopping_;
    });
    ui_->cmdStop->setEnabled(false);
    return done;
}

void frmViewData::BuildSQL() {
    const auto text = BuildSQLText(this, BuilderCaller::ViewData, FromQt(ui_->txtSQL->toPlainText()));
    if (text)
        ui_->txtSQL->setPlainText(ToQt(*text));
    ui_->txtSQL->setFocus();
}

// The grid keeps its place.
void frmViewData::Requery() {
    if (data_ == nullptr || !ui_->grdData->CommitRow())
        return;
    if (data_->Title() == "SQL Results")
        return Run();
    const QModelIndex at = ui_->grdData->currentIndex();
    const WaitPointer wait;
    if (!data_->fRequery(static_cast<std::size_t>(std::max(0, at.row()) + 1)))
        return;
    ShowRows();
    if (at.row() >= 0 && at.row() < ui_->grdData->model()->rowCount())
        ui_->grdData->setCurrentIndex(ui_->grdData->model()->index(at.row(), std::max(0, at.column())));
}

void frmViewData::ShowRows() {
    ui_->lblTitle->setText(ToQt(data_->Title()));
    ui_->grdData->Show(*rows_);
    reading_.start();
}

void frmViewData::ReadOn() {
    if (!data_->HasMore()) {
        reading_.stop();
    } else if (!data_->fReadMore(kRowsAtOnce)) {
        reading_.stop();
    }
    ui_->grdData->ShowGrown();
    ShowPlace();
}

void frmViewData::ShowPlace() {
    if (data_ == nullptr || ui_->grdData->model() == nullptr)
        return;
    const int row = ui_->grdData->currentIndex().row();
    const QString count = Counted(data_->Count()) + (data_->HasMore() ? "..." : "");
    ui_->lblRows->setText(ui_->grdData->CurrentRow() == nullptr
                              ? count + (data_->Count() == 1 ? " row" : " rows")
                              : "Row " + Counted(static_cast<std::size_t>(row) + 1) + " of " + count);
}

void frmViewData::ShowStatus(const std::string& text) {
    ui_->lblStatus->setText(ToQt(text));
    ui_->lblStatus->repaint();
    platform::ShowStatus(text);
}

void frmViewData::Close() {
    if (!ui_->grdData->CommitRow())
        return;
    accept();
}

// Escape and the window's own button: the row being edited is dropped, what was written stays.
void frmViewData::reject() {
    ui_->grdData->CancelRow();
    Screen::reject();
}

}  // namespace vellumark
