#include "tools/screens/frmSQLBuilder.h"

#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLocale>
#include <QShortcut>
#include <algorithm>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"
#include "platform/screens/sqlHighlighter.h"
#include "repository/modVellumark.h"
#include "ui_frmSQLBuilder.h"

namespace vellumark {

namespace {

constexpr const char* kFilter = "SQL (*.sql)|*.sql|All files (*.*)|*.*";
constexpr int kMillisecondsBetweenLooks = 50;
constexpr int kLineMargin = 4;
// A longer line would be beyond what can be scrolled to; it is there when copied.
constexpr std::size_t kWidestLine = 5000;

QString RowsText(std::size_t count) {
    return QLocale(QLocale::English).toString(static_cast<qulonglong>(count)) +
           (count == 1 ? " row" : " rows");
}

// Files of other programs may be in the system's old code.
QString TextOfFile(const std::string& bytes) {
    const QString text = ToQt(bytes);
    return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(bytes) : text;
}

}  // namespace

frmSQLBuilder::frmSQLBuilder(BuilderCaller caller, const std::string& text, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmSQLBuilder>()), caller_(caller) {
    ui_->setupUi(this);
    std::make_unique<SqlHighlighter>(*ui_->rtfSQL).release();  // the box's own
    PrepareResults();
    FillWords();
    FillTables();
    ShowDatabase();
    if (caller == BuilderCaller::ViewData)
        ui_->rtfSQL->setPlainText(ToQt(text));
    else if (caller == BuilderCaller::WhereClause)
        ui_->rtfSQL->setPlainText(ToQt(WithWhere(text)));
    ui_->rtfSQL->moveCursor(QTextCursor::End);
    Connect();
    Enable();
    ui_->rtfSQL->setFocus();
}

frmSQLBuilder::~frmSQLBuilder() = default;

std::string frmSQLBuilder::SQLText() const {
    return FromQt(ui_->rtfSQL->toPlainText());
}

void frmSQLBuilder::PrepareResults() {
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    ui_->rtfSQL->setFont(fixed);
    ui_->lstResults->setFont(fixed);
    ui_->lstResults->setModel(&results_);
    ui_->splitter->setStretchFactor(1, 1);
    ui_->splitter->setStretchFactor(2, 1);
    auto copy = std::make_unique<QAction>("&Copy", ui_->lstResults);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy.get(), &QAction::triggered, this, &frmSQLBuilder::CopyResults);
    auto all = std::make_unique<QAction>("Select &All", ui_->lstResults);
    connect(all.get(), &QAction::triggered, ui_->lstResults, &QListView::selectAll);
    ui_->lstResults->addActions({copy.release(), all.release()});
}

void frmSQLBuilder::Connect() {
    ConnectPicking();
    connect(ui_->cmdLoad, &QPushButton::clicked, this, &frmSQLBuilder::LoadFile);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmSQLBuilder::SaveFile);
    connect(ui_->cmdClear, &QPushButton::clicked, this, &frmSQLBuilder::Clear);
    connect(ui_->cmdRun, &QPushButton::clicked, this, &frmSQLBuilder::Run);
    connect(ui_->cmdStop, &QPushButton::clicked, this, &frmSQLBuilder::Stop);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(&looks_, &QTimer::timeout, this, &frmSQLBuilder::Look);
    for (const auto key : {Qt::Key_F5, Qt::Key_Return, Qt::Key_Enter}) {
        const QKeySequence keys(key == Qt::Key_F5 ? QKeyCombination(key) : QKeyCombination(Qt::CTRL, key));
        connect(std::make_unique<QShortcut>(keys, this).release(), &QShortcut::activated, ui_->cmdRun,
                &QPushButton::click);
    }
}

void frmSQLBuilder::ConnectPicking() {
    for (QListWidget* list :
         {ui_->lstStatements, ui_->lstOperators, ui_->lstFunctions, ui_->lstTables, ui_->lstColumns}) {
        // What is typed next goes into the text.
        connect(list, &QListWidget::itemClicked, this, [this, list] {
            Pick(*list);
            ui_->rtfSQL->setFocus();
        });
        list->installEventFilter(this);
    }
}

// Return and the space bar pick as a click does.
bool frmSQLBuilder::eventFilter(QObject* watched, QEvent* event) {
    auto* list = qobject_cast<QListWidget*>(watched);
    if (list == nullptr || event->type() != QEvent::KeyPress)
        return Screen::eventFilter(watched, event);
    const auto* key = dynamic_cast<const QKeyEvent*>(event);
    const bool picks =
        key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Space;
    if (!picks || key->modifiers().testFlag(Qt::ControlModifier) || list->currentItem() == nullptr)
        return Screen::eventFilter(watched, event);
    Pick(*list);
    return true;
}

void frmSQLBuilder::FillWords() {
    const auto fill = [](QListWidget& list, std::span<const std::string_view> words) {
        for (const std::string_view word : words)
            list.addItem(ToQt(word));
    };
    fill(*ui_->lstStatements, SQLStatementWords());
    fill(*ui_->lstOperators, SQLOperators());
    fill(*ui_->lstFunctions, SQLFunctions());
}

void frmSQLBuilder::FillTables() {
    try {
        tables_ = BuilderTables();
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the tables", error);
    }
    for (const BuilderTable& table : tables_)
        ui_->lstTables->addItem(ToQt(table.shown));
}

void frmSQLBuilder::FillColumns(int table) {
    ui_->lstColumns->clear();
    try {
        for (const std::string& name : BuilderColumns(table))
            ui_->lstColumns->addItem(ToQt(name));
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the columns", error);
    }
}

void frmSQLBuilder::ShowDatabase() {
    if (caller_ != BuilderCaller::ViewData)
        ConnectMode = kConnectTarget;
    char protocol = DatabaseProtocol;
    if (fDatabase_Connect_Main(protocol, true))
        ui_->txtDatabase->setText(ToQt(DatabaseText(FoundConnection)));
    ui_->txtDatabase->setCursorPosition(0);
}

QString frmSQLBuilder::TextOfPick(const QListWidget& list) {
    const QString word = list.currentItem()->text();
    if (&list == ui_->lstOperators)
        return ToQt(OperatorText(FromQt(word)));
    if (&list == ui_->lstFunctions)
        return word;
    if (&list == ui_->lstTables)
        return ToQt(tables_[static_cast<std::size_t>(list.currentRow())].name);
    return word + " ";
}

void frmSQLBuilder::Pick(QListWidget& list) {
    if (&list == ui_->lstTables)
        FillColumns(tables_[static_cast<std::size_t>(list.currentRow())].id);
    fUpdateSQLStatement(TextOfPick(list));
}

void frmSQLBuilder::fUpdateSQLStatement(const QString& text) {
    ui_->rtfSQL->insertPlainText(text);
    ui_->rtfSQL->ensureCursorVisible();
}

void frmSQLBuilder::LoadFile() {
    const auto path = CurrentFilePicker().Open(this, {"Select SQL file to Open", kFilter, SQLFolder()});
    const auto text = path ? fLoadSQLFile(*path) : std::nullopt;
    if (!text)
        return;
    ui_->rtfSQL->selectAll();
    fUpdateSQLStatement(TextOfFile(*text));
}

void frmSQLBuilder::SaveFile() {
    if (const auto path = CurrentFilePicker().Save(this, {"Select SQL file", kFilter, SQLFolder()}))
        fSaveSQLFile(*path, SQLText());
}

// The text can be brought back by undo.
void frmSQLBuilder::Clear() {
    ui_->rtfSQL->selectAll();
    fUpdateSQLStatement("");
    results_.Clear();
    ui_->lblRows->clear();
    ui_->rtfSQL->setFocus();
}

void frmSQLBuilder::Run() {
    const std::string text = SQLText();
    if (text.empty())
        return;
    {
        const WaitPointer wait;
        connection_.emplace();
    }
    if (!connection_->IsOpen()) {
        connection_.reset();
        return;
    }
    ui_->lblStatus->setText("Running SQL script, please wait...");
    results_.Clear();
    ui_->lblRows->clear();
    stopping_ = false;
    rows_ = std::make_unique<GatheredRows>();
    runner_ = std::make_unique<SQLRunner>(CurrentConnections(), connection_->Protocol(), text, *rows_);
    Enable();
    looks_.start(kMillisecondsBetweenLooks);
}

void frmSQLBuilder::Stop() {
    stopping_ = true;
    ui_->cmdStop->setEnabled(false);
}

void frmSQLBuilder::Look() {
    const bool done = runner_->IsDone();
    if (stopping_)
        runner_->Stop();
    if (const auto rows = rows_->Rows()) {
        ui_->lblRows->setText(RowsText(rows->RowCount()));
        // The view lays out all lines anew each time.
        if (done || rows->RowCount() >= 2 * static_cast<std::size_t>(results_.ShownRows()))
            ShowRows();
    }
    if (done)
        Finish();
}

void frmSQLBuilder::ShowRows() {
    const QFontMetrics metrics(ui_->lstResults->font());
    const auto characters = static_cast<int>(std::min(rows_->LongestRow(), kWidestLine));
    results_.SetLineSize({characters * metrics.horizontalAdvance('m') + 2 * kLineMargin, metrics.height()});
    results_.ShowRows(rows_->Rows());
}

void frmSQLBuilder::Finish() {
    looks_.stop();
    const SQLResult result = runner_->Result();
    const std::string line = result.outcome == SQLOutcome::Stopped ? "Stopped" : result.Line();
    if (!line.empty())
        results_.Say(ToQt(line));
    runner_.reset();
    rows_.reset();
    connection_.reset();
    ui_->lblStatus->clear();
    Enable();
}

void frmSQLBuilder::Enable() {
    const bool running = runner_ != nullptr;
    for (QWidget* button : {ui_->cmdLoad, ui_->cmdClear, ui_->cmdRun, ui_->cmdClose, ui_->cmdCancel})
        button->setEnabled(!running);
    ui_->cmdStop->setEnabled(running);
}

void frmSQLBuilder::CopyResults() {
    const WaitPointer wait;
    QGuiApplication::clipboard()->setText(results_.Lines(ui_->lstResults->selectionModel()->selection()));
}

void frmSQLBuilder::accept() {
    if (!runner_)
        Screen::accept();
}

void frmSQLBuilder::reject() {
    if (runner_)
        Stop();
    else
        Screen::reject();
}

}  // namespace vellumark
