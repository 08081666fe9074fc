#include "engine/screens/frmTableStatistics.h"

#include "engine/modTableStatistics.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "ui_frmTableStatistics.h"

namespace vellumark {

frmTableStatistics::frmTableStatistics(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmTableStatistics>()) {
    ui_->setupUi(this);
    ui_->txtDatabase->setText(ToQt(CurrentDBSName));
    for (const std::string& name : StatisticsTables())
        ui_->cboTable->addItem(ToQt(name));
    ui_->lblTABQty->setText(QString::number(ui_->cboTable->count()));
    connect(ui_->cboTable, &QComboBox::currentIndexChanged, this, &frmTableStatistics::ShowTableStatistics);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowTableStatistics();
    ui_->cboTable->setFocus();
}

frmTableStatistics::~frmTableStatistics() = default;

void frmTableStatistics::ShowTableStatistics() {
    const TableStatistics counts = CountTableColumns(FromQt(ui_->cboTable->currentText()));
    const std::pair<QLineEdit*, int> fields[] = {
        {ui_->txtNumCol, counts.columns},    {ui_->txtIdent, counts.identifier},
        {ui_->txtFK, counts.foreignKey},     {ui_->txtMandatory, counts.mandatory},
        {ui_->txtOptional, counts.optional}, {ui_->txtChar, counts.character},
        {ui_->txtNumeric, counts.numeric},   {ui_->txtBoolean, counts.boolean},
        {ui_->txtDate, counts.date},         {ui_->txtTime, counts.time},
        {ui_->txtTstamp, counts.timestamp},  {ui_->txtBlob, counts.blob},
    };
    for (const auto& [field, count] : fields)
        field->setText(QString::number(count));
}

}  // namespace vellumark
