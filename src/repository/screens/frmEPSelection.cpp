#include "repository/screens/frmEPSelection.h"

#include "platform/screens/qtText.h"
#include "repository/modEditPatternScreens.h"
#include "repository/modEditPatterns.h"
#include "ui_frmEPSelection.h"

namespace vellumark {

namespace {

constexpr int kTokenRole = Qt::UserRole;

void AddToken(QListWidget& list, const std::string& token) {
    const QString text = ToQt(EditPatternToText(token));
    list.addItem(text);
    QListWidgetItem* item = list.item(list.count() - 1);
    item->setData(kTokenRole, ToQt(token));
    if (text == " ") {
        item->setToolTip("blank");
        item->setData(Qt::AccessibleTextRole, "blank");
    }
}

}  // namespace

frmEPSelection::frmEPSelection(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmEPSelection>()) {
    ui_->setupUi(this);
    EditPatternToken.clear();
    for (const std::string& token : EditPatternChoices(EditPatternChoice))
        AddToken(*ui_->lstEditPatt, token);
    ui_->lstEditPatt->setCurrentRow(0);
    connect(ui_->cmdEPSelect, &QPushButton::clicked, this, &frmEPSelection::Select);
    connect(ui_->lstEditPatt, &QListWidget::itemDoubleClicked, this, &frmEPSelection::Select);
    connect(ui_->cmdEPSelCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmEPSelection::~frmEPSelection() = default;

void frmEPSelection::Select() {
    if (const QListWidgetItem* item = ui_->lstEditPatt->currentItem())
        EditPatternToken = FromQt(item->data(kTokenRole).toString());
    accept();
}

}  // namespace vellumark
