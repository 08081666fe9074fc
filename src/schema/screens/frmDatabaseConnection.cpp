#include "schema/screens/frmDatabaseConnection.h"

#include <QLayout>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "platform/dialogs.h"
#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "scenario/modNewSchema.h"
#include "schema/modConnectionRows.h"
#include "schema/modConnectionString.h"
#include "schema/modConnectionTables.h"
#include "schema/modDatabaseConnection.h"
#include "schema/screens/connectionTest.h"
#include "schema/screens/frmCONList.h"
#include "schema/screens/frmDSNList.h"
#include "schema/screens/frmDataLink.h"
#include "schema/screens/pickerStart.h"
#include "tools/screens/viewerOpeners.h"
#include "ui_frmDatabaseConnection.h"

namespace vellumark {

namespace {

constexpr int kUsualWidth = 700;

// One item, or none for an empty text.
void ShowSingle(QComboBox& box, const std::string& text) {
    box.clear();
    if (!text.empty())
        box.addItem(ToQt(text));
    box.setCurrentIndex(text.empty() ? -1 : 0);
}

}  // namespace

frmDatabaseConnection::frmDatabaseConnection(std::string_view mode, QWidget* parent, std::string_view table,
                                             std::string_view column)
    : Screen(parent),
      ui_(std::make_unique<Ui::frmDatabaseConnection>()),
      mode_(mode),
      details_(LoadConnectionForm(mode)) {
    ui_->setupUi(this);
    ShowMode(DescribeConnectionScreen(mode, table, column));
    ConnectFields();
    ConnectOptions();
    ConnectButtons();
    ShowDetails();
    ShowTableAndColumn();
    SetLeastSize();
    platform::ShowStatus("");
    if (mode_ == kConnectValue && details_.table != kPressRefresh)
        QTimer::singleShot(0, this, &frmDatabaseConnection::Refresh);
}

frmDatabaseConnection::~frmDatabaseConnection() = default;

void frmDatabaseConnection::ShowMode(const ConnectionScreen& screen) {
    setWindowTitle(ToQt(screen.title));
    ui_->lblInstructions->setText(ToQt(screen.instructions));
    ui_->txtName->setReadOnly(!screen.namesSchema);
    ui_->txtDescription->setReadOnly(!screen.namesSchema);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->lblName, ui_->txtName, ui_->lblDescription,
                                                           ui_->txtDescription})
        widget->setVisible(!screen.picksColumn);
    ui_->grpTable->setVisible(screen.picksColumn);
    ui_->cmdViewData->setVisible(screen.viewsData);
    (screen.namesSchema ? static_cast<QWidget*>(ui_->txtName) : ui_->optJet)->setFocus();
}

// The modes need different heights, and a size remembered from one must not squeeze another.
void frmDatabaseConnection::SetLeastSize() {
    const int width = std::max(kUsualWidth, minimumSizeHint().width());
    setMinimumSize(width, layout()->totalHeightForWidth(width));
}

void frmDatabaseConnection::ConnectFields() {
    fields_ = {{ui_->txtName, &ConnectionDetails::schemaName},
               {ui_->txtDescription, &ConnectionDetails::schemaDescription},
               {ui_->txtMDB, &ConnectionDetails::mdbFile},
               {ui_->txtDSN, &ConnectionDetails::dsn},
               {ui_->txtServer, &ConnectionDetails::server},
               {ui_->txtDatabase, &ConnectionDetails::database},
               {ui_->txtUserId, &ConnectionDetails::userId},
               {ui_->txtPassword, &ConnectionDetails::password},
               {ui_->txtOwner, &ConnectionDetails::owner},
               {ui_->txtIgnoreOwner, &ConnectionDetails::ignoreOwnerPrefix},
               {ui_->txtIgnoreTable, &ConnectionDetails::ignoreTablePrefix}};
    for (const Field& field : fields_)
        connect(field.edit, &QLineEdit::textEdited, this, [this, field](const QString& text) {
            TypeField(details_, field.value, FromQt(text));
            ShowString();
        });
    connect(ui_->txtConnectionString, &ConnectionStringEdit::Edited, this,
            [this] { details_.connectionString = ui_->txtConnectionString->String(); });
    connect(ui_->cboTable, &QComboBox::activated, this, &frmDatabaseConnection::ChooseTable);
    connect(ui_->cboColumn, &QComboBox::activated, this,
            [this] { details_.column = FromQt(ui_->cboColumn->currentText()); });
}

void frmDatabaseConnection::ConnectOptions() {
    const auto option = [this](QRadioButton* button, auto rule) {
        connect(button, &QRadioButton::clicked, this, [this, rule] {
            rule(details_);
            ShowDetails();
        });
    };
    const auto system = [&](QRadioButton* button, std::string_view dbms) {
        option(button, [dbms](ConnectionDetails& details) {
            if (details.dbmsType != dbms)
                ChooseDBMS(details, dbms);
        });
    };
    system(ui_->optJet, kDbmsJet);
    system(ui_->optSQLServer, kDbmsSqlServer);
    system(ui_->optOracle, kDbmsOracle);
    system(ui_->optDB2, kDbmsDB2);
    system(ui_->optOther, kDbmsOther);
    option(ui_->optDirect, [](ConnectionDetails& details) { ChooseAccess(details, false); });
    option(ui_->optODBC, [](ConnectionDetails& details) { ChooseAccess(details, true); });
    option(ui_->optADO, [](ConnectionDetails& details) { ChooseADO(details); });
    option(ui_->optDAO, [](ConnectionDetails& details) {
        if (details.protocol != 'D')
            ChooseDAO(details);
    });
    option(ui_->optDefault, [](ConnectionDetails& details) { ChooseConnectionString(details, true); });
    option(ui_->optOverride, [](ConnectionDetails& details) { ChooseConnectionString(details, false); });
}

void frmDatabaseConnection::ConnectButtons() {
    const auto button = [this](QPushButton* pushed, void (frmDatabaseConnection::*action)()) {
        connect(pushed, &QPushButton::clicked, this, action);
    };
    button(ui_->cmdBrowseMDB, &frmDatabaseConnection::BrowseMDB);
    button(ui_->cmdBrowseDSN, &frmDatabaseConnection::BrowseDSN);
    button(ui_->cmdDataLink, &frmDatabaseConnection::DataLink);
    button(ui_->cmdRefresh, &frmDatabaseConnection::Refresh);
    button(ui_->cmdPrevious, &frmDatabaseConnection::PreviousConnection);
    button(ui_->cmdViewData, &frmDatabaseConnection::ViewData);
    button(ui_->cmdOK, &frmDatabaseConnection::OK);
    connect(ui_->cmdTest, &QPushButton::clicked, this, [this] { ShowConnectionTest(details_); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmDatabaseConnection::reject);
}

void frmDatabaseConnection::ShowDetails() {
    const std::pair<QRadioButton*, bool> options[] = {
        {ui_->optJet, details_.dbmsType == kDbmsJet},
        {ui_->optSQLServer, details_.dbmsType == kDbmsSqlServer},
        {ui_->optOracle, details_.dbmsType == kDbmsOracle},
        {ui_->optDB2, details_.dbmsType == kDbmsDB2},
        {ui_->optOther, details_.dbmsType == kDbmsOther},
        {ui_->optDirect, !details_.useODBC},
        {ui_->optODBC, details_.useODBC},
        {ui_->optADO, details_.protocol == 'A'},
        {ui_->optDAO, details_.protocol == 'D'},
        {ui_->optDefault, details_.useDefaultString},
        {ui_->optOverride, !details_.useDefaultString},
    };
    for (const auto& [button, chosen] : options)
        button->setChecked(chosen);
    for (const Field& field : fields_)
        field.edit->setText(ToQt(details_.*field.value));
    ShowString();
    EnableFields();
}

void frmDatabaseConnection::ShowString() {
    ui_->txtConnectionString->SetString(details_.connectionString, ShownConnectionString(details_));
}

void frmDatabaseConnection::EnableFields() {
    const ConnectionFields enabled = EnabledConnectionFields(details_);
    const std::pair<QWidget*, bool> fields[] = {
        {ui_->txtMDB, enabled.mdbFile},
        {ui_->cmdBrowseMDB, enabled.mdbFile},
        {ui_->txtDSN, enabled.dsn},
        {ui_->cmdBrowseDSN, enabled.dsn},
        {ui_->txtServer, enabled.server},
        {ui_->txtDatabase, enabled.database},
        {ui_->txtOwner, enabled.owner},
        {ui_->txtIgnoreOwner, enabled.ignorePrefixes},
        {ui_->txtIgnoreTable, enabled.ignorePrefixes},
        {ui_->cmdDataLink, enabled.dataLink},
    };
    for (const auto& [field, usable] : fields)
        field->setEnabled(usable);
    for (QLabel* label : ui_->grpDetails->findChildren<QLabel*>())
        label->setEnabled(label->buddy()->isEnabled());
    ui_->txtConnectionString->SetLocked(!enabled.connectionString);
}

// As they are stored or copied, before the tables of the database have been read.
void frmDatabaseConnection::ShowTableAndColumn() {
    tables_.clear();
    ui_->cboTable->setPlaceholderText(ToQt(kPressRefresh));
    ShowSingle(*ui_->cboTable, details_.table == kPressRefresh ? "" : details_.table);
    ShowSingle(*ui_->cboColumn, details_.column);
}

void frmDatabaseConnection::BrowseMDB() {
    const std::optional<std::string> file =
        CurrentFilePicker().Open(this, {"Select MDB File", "mdb (*.mdb)|*.mdb|All files (*.*)|*.*",
                                        PickerStart(*ui_->txtMDB, &OptionsRecord::dirJet)});
    if (!file)
        return;
    TypeField(details_, &ConnectionDetails::mdbFile, *file);
    ShowDetails();
}

void frmDatabaseConnection::BrowseDSN() {
    frmDSNList list(details_.dsn, this);
    if (list.exec() != QDialog::Accepted)
        return;
    TypeField(details_, &ConnectionDetails::dsn, list.Selected());
    ShowDetails();
}

void frmDatabaseConnection::DataLink() {
    frmDataLink link(details_.connectionString, this);
    if (link.exec() != QDialog::Accepted)
        return;
    details_.connectionString = link.ConnectionString();
    ShowDetails();
}

void frmDatabaseConnection::PreviousConnection() {
    frmCONList list(ConnectionListMode::Select, this);
    if (list.exec() != QDialog::Accepted || !list.Selected())
        return;
    CopyConnection(*list.Selected(), details_);
    if (mode_ != kConnectValue) {
        details_.table.clear();
        details_.column.clear();
    } else if (details_.table.empty()) {
        details_.table = kPressRefresh;
    }
    ShowDetails();
    ShowTableAndColumn();
}

void frmDatabaseConnection::ViewData() {
    ConnectionForm = details_;
    vellumark::ViewData(ViewerCaller::Form, this);
}

void frmDatabaseConnection::Refresh() {
    std::optional<std::vector<TableEntry>> tables;
    {
        const WaitPointer wait;
        tables = ListConnectionTables(details_);
    }
    if (!tables)
        return;
    tables_ = std::move(*tables);
    ui_->cboTable->clear();
    for (const TableEntry& table : tables_)
        ui_->cboTable->addItem(ToQt(QualifiedName(table)));
    ui_->cboTable->setPlaceholderText(tables_.empty() ? "The database has no tables" : "Select a table");
    const std::optional<std::size_t> found = FindTableEntry(tables_, details_.table);
    ui_->cboTable->setCurrentIndex(found ? static_cast<int>(*found) : -1);
    ListColumns();
}

void frmDatabaseConnection::ChooseTable() {
    details_.column.clear();
    ListColumns();
}

// Of the table chosen; the column chosen stays where the table has it.
void frmDatabaseConnection::ListColumns() {
    const auto index = static_cast<std::size_t>(ui_->cboTable->currentIndex());
    std::vector<std::string> names;
    if (index < tables_.size()) {
        const WaitPointer wait;
        details_.table = QualifiedName(tables_[index]);
        names = ListConnectionColumns(details_, tables_[index]).value_or(names);
    } else {
        details_.table.clear();
    }
    ui_->cboColumn->clear();
    for (const std::string& name : names)
        ui_->cboColumn->addItem(ToQt(name));
    ui_->cboColumn->setCurrentIndex(ui_->cboColumn->findText(ToQt(details_.column), Qt::MatchFixedString));
    details_.column = FromQt(ui_->cboColumn->currentText());
}

void frmDatabaseConnection::OK() {
    const bool done = mode_ == kConnectNew ? fNew() : mode_ == kConnectTarget ? fTarget() : fValue();
    if (done)
        accept();
}

bool frmDatabaseConnection::fNew() {
    const WaitPointer wait;
    if (fNewSchema(
            {.name = details_.schemaName, .description = details_.schemaDescription, .connection = details_}))
        return true;
    if (details_.schemaName.empty())
        ui_->txtName->setFocus();
    return false;
}

bool frmDatabaseConnection::fTarget() {
    const WaitPointer wait;
    if (!fSaveConnection(kConnectTarget, details_))
        return false;
    if (TargetConnectionState == 'C')
        CloseTargetConnection();
    ConnectTarget();
    return true;
}

bool frmDatabaseConnection::fValue() {
    switch (FindConnectionGap(details_)) {
        case ConnectionGap::Table:
            ui_->cboTable->setFocus();
            return false;
        case ConnectionGap::Column:
            ui_->cboColumn->setFocus();
            return false;
        case ConnectionGap::None:
            break;
    }
    return fSaveConnection(kConnectValue, details_);
}

}  // namespace vellumark
