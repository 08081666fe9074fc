#include "scenario/screens/frmParentChildDiagram.h"

#include <algorithm>

#include "platform/dialogs.h"
#include "platform/screens/qtText.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "repository/screens/textFields.h"
#include "scenario/modRuleSelection.h"
#include "ui_frmParentChildDiagram.h"

namespace vellumark {

namespace {

// An empty field counts as 0; a number beyond 32 bits is brought to the nearest bound, which its checks
// refuse or keep.
int NumberIn(const QLineEdit& field) {
    return platform::ParseLong(FromQt(field.text())).value_or(field.text().isEmpty() ? 0 : -1);
}

void ShowNumber(QLineEdit& field, int number) {
    field.setText(QString::number(number));
}

// As ranges are shown everywhere: without an end there is none to see.
void ShowEnd(QLineEdit& field, int end) {
    field.setText(end == 0 ? QString() : QString::number(end));
}

}  // namespace

frmParentChildDiagram::frmParentChildDiagram(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmParentChildDiagram>()) {
    ui_->setupUi(this);
    setWindowTitle(windowTitle() + ": " + ToQt(CurrentTSOName));
    ui_->lblLegend->setText("Thick red: rows are generated. Cyan: rows already there. Dashed: not set.");
    for (QLineEdit* field : {ui_->txtChildStart, ui_->txtChildEnd, ui_->txtParStart, ui_->txtParEnd,
                             ui_->txtQtyGenerate, ui_->txtIncrement})
        NumericKeys(*field, DataType::LongInteger);
    SelectTextOnFocus(*this);
    ui_->MDraw->setScene(&scene_);
    ui_->MDraw->setRenderHint(QPainter::Antialiasing);
    Connect();
    ShowData();
    resize(1040, 560);
}

frmParentChildDiagram::~frmParentChildDiagram() = default;

void frmParentChildDiagram::Connect() {
    connect(ui_->cboTTR, &QComboBox::activated, this, &frmParentChildDiagram::cboTTR_Click);
    connect(ui_->cboFK, &QComboBox::activated, this, &frmParentChildDiagram::cboFK_Click);
    connect(&scene_, &DiagramScene::ForeignKeyChosen, this, &frmParentChildDiagram::SelectFK);
    connect(ui_->optSelect, &QRadioButton::toggled, &scene_, &DiagramScene::SetMovable);
    connect(ui_->cmdApply, &QPushButton::clicked, this, [this] { Apply(true); });
    connect(ui_->cmdClearOne, &QPushButton::clicked, this, &frmParentChildDiagram::ClearOne);
    connect(ui_->cmdClearAll, &QPushButton::clicked, this, &frmParentChildDiagram::ClearAll);
    connect(ui_->cmdGenerate, &QPushButton::clicked, this, &frmParentChildDiagram::Generate);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmParentChildDiagram::reject);
}

void frmParentChildDiagram::ShowData() {
    fInitTTRcbo();
    if (rules_.empty()) {
        platform::ShowExclamation(
            "No tables were selected in this scenario for data generation, so there are no foreign keys to "
            "resolve!\nEdit the scenario and drag and drop the desired tables to the right hand tree to "
            "select "
            "them.");
    }
    ShowChild();
}

void frmParentChildDiagram::fInitTTRcbo() {
    rules_ = ListChildRules();
    ui_->cboTTR->clear();
    for (const ChildRule& rule : rules_)
        ui_->cboTTR->addItem(ToQt(rule.label), rule.id);
    if (!rules_.empty())
        ui_->cboTTR->setCurrentIndex(std::max(0, ui_->cboTTR->findData(CurrentTTRId)));
}

// Labels and rules as they are now stored; the selection stays on its rule.
void frmParentChildDiagram::fUpdateTTRcbo() {
    const int id = child_.id;
    fInitTTRcbo();
    const int place = ui_->cboTTR->findData(id);
    if (place >= 0) {
        ui_->cboTTR->setCurrentIndex(place);
        child_ = rules_[static_cast<std::size_t>(place)];
    }
}

void frmParentChildDiagram::cboTTR_Click() {
    const int chosen = ui_->cboTTR->currentData().toInt();
    if (fValuesChanged() && !Apply(false))
        platform::ShowExclamation("The last change was invalid, and not saved.");
    ui_->cboTTR->setCurrentIndex(ui_->cboTTR->findData(chosen));
    ShowChild();
}

void frmParentChildDiagram::cboFK_Click() {
    const QString chosen = ui_->cboFK->currentText();
    if (fValuesChanged() && !Apply(false))
        platform::ShowExclamation("The last change was not saved.");
    ui_->cboFK->setCurrentText(chosen);
    ShowForeignKey();
}

void frmParentChildDiagram::SelectFK(const QString& column) {
    ui_->cboFK->setCurrentText(column);
    cboFK_Click();
}

void frmParentChildDiagram::ShowChild() {
    const int place = ui_->cboTTR->currentIndex();
    child_ = place < 0 ? ChildRule{} : rules_[static_cast<std::size_t>(place)];
    ui_->cboFK->clear();
    for (const ParentBox& parent : ListParentBoxes(child_))
        ui_->cboFK->addItem(ToQt(parent.column));
    ShowForeignKey();
}

void frmParentChildDiagram::ShowForeignKey() {
    hasForeignKey_ = ui_->cboFK->currentIndex() >= 0 &&
                     fReadDependency(child_.id, FromQt(ui_->cboFK->currentText()), dependency_);
    if (!hasForeignKey_) {
        EmptyForeignKey();
    } else {
        const std::vector<ParentBox> parents = ListParentBoxes(child_);
        const ParentBox& parent = parents[static_cast<std::size_t>(ui_->cboFK->currentIndex())];
        for (QLineEdit* field : {ui_->txtParent1, ui_->txtParent2, ui_->txtParent3})
            field->setText(ToQt(parent.table));
        for (QLineEdit* field : {ui_->txtChild1, ui_->txtChild2})
            field->setText(ToQt(child_.table));
        ui_->txtParentCol->setText(ToQt(parent.parentColumn));
        ShowNumber(*ui_->txtChildStart, child_.start);
        ShowEnd(*ui_->txtChildEnd, child_.end);
        ShowNumber(*ui_->txtChildQty, child_.quantity);
        ShowNumber(*ui_->txtQtyGenerate, dependency_.quantityPerParent);
        ShowNumber(*ui_->txtIncrement, dependency_.increment);
        ShowNumber(*ui_->txtParStart, dependency_.parentStart);
        ShowEnd(*ui_->txtParEnd, dependency_.parentEnd);
        ShowNumber(*ui_->txtParQty,
                   dependency_.parentRuleId > 0 ? StoredQuantity(dependency_.parentRuleId) : child_.quantity);
        ui_->chkGenerate->setChecked(dependency_.generateParent);
    }
    fSetHiddenValues();
    EnableDisable();
    fMdrawRedraw();
}

void frmParentChildDiagram::EmptyForeignKey() {
    dependency_ = {};
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->clear();
    ui_->chkGenerate->setChecked(false);
}

frmParentChildDiagram::ShownValues frmParentChildDiagram::Shown() const {
    return {ui_->txtChildStart->text(),   ui_->txtChildEnd->text(),    ui_->txtParStart->text(),
            ui_->txtParEnd->text(),       ui_->txtQtyGenerate->text(), ui_->txtIncrement->text(),
            ui_->chkGenerate->isChecked()};
}

bool frmParentChildDiagram::fValuesChanged() const {
    return hasForeignKey_ && !(Shown() == hidden_);
}

void frmParentChildDiagram::fSetHiddenValues() {
    hidden_ = Shown();
}

DependencyDetails frmParentChildDiagram::ReadFields() const {
    DependencyDetails details = dependency_;
    details.childStart = NumberIn(*ui_->txtChildStart);
    details.childEnd = NumberIn(*ui_->txtChildEnd);
    details.parentStart = NumberIn(*ui_->txtParStart);
    details.parentEnd = NumberIn(*ui_->txtParEnd);
    details.quantityPerParent = NumberIn(*ui_->txtQtyGenerate);
    details.increment = NumberIn(*ui_->txtIncrement);
    details.generateParent = ui_->chkGenerate->isChecked();
    return details;
}

bool frmParentChildDiagram::Apply(bool always) {
    const bool unset = always && hasForeignKey_ && dependency_.parentRuleId == 0;
    if (!fValuesChanged() && !unset)
        return true;
    DependencyDetails details = ReadFields();
    if (!fApplyDependency(details)) {
        FocusFault(details);
        return false;
    }
    fUpdateTTRcbo();
    ShowForeignKey();
    return true;
}

// The field that the message was about.
void frmParentChildDiagram::FocusFault(const DependencyDetails& details) {
    QLineEdit* field = ui_->txtIncrement;
    if (details.childStart <= 0 || (details.childEnd != 0 && details.childStart > details.childEnd))
        field = ui_->txtChildStart;
    else if ((details.parentStart <= 0 && details.generateParent) ||
             (details.parentEnd != 0 && details.parentStart > details.parentEnd))
        field = ui_->txtParStart;
    else if (details.quantityPerParent < 1)
        field = ui_->txtQtyGenerate;
    field->setFocus();
    field->selectAll();
}

void frmParentChildDiagram::ClearOne() {
    if (!platform::AskYesNo("Do you really want to delete all the settings for this Foreign Key?"))
        return;
    fClearDependency(dependency_);
    fUpdateTTRcbo();
    ShowForeignKey();
}

void frmParentChildDiagram::ClearAll() {
    if (!platform::AskYesNo(
            "Do you really want to delete all the Foreign Key settings for all the tables for this "
            "scenario?"))
        return;
    fClearAllDependencies();
    fUpdateTTRcbo();
    ShowForeignKey();
}

void frmParentChildDiagram::Generate() {
    if (Apply(false) && openGenerate_)
        openGenerate_();
}

void frmParentChildDiagram::fMdrawRedraw() {
    if (rules_.empty())
        scene_.clear();
    else
        scene_.Draw(child_, ListParentBoxes(child_));
    FitDiagram();
}

// The whole diagram where it fits, smaller where it doesn't.
void frmParentChildDiagram::FitDiagram() {
    const QSizeF space = ui_->MDraw->viewport()->size(), needed = scene_.sceneRect().size();
    ui_->MDraw->resetTransform();
    if (needed.isEmpty())
        return;
    const qreal scale = std::min({1.0, space.width() / needed.width(), space.height() / needed.height()});
    ui_->MDraw->scale(scale, scale);
}

void frmParentChildDiagram::EnableDisable() {
    for (QWidget* frame : {static_cast<QWidget*>(ui_->fraParent), static_cast<QWidget*>(ui_->fraRelation)})
        frame->setEnabled(hasForeignKey_);
    for (QWidget* field : {static_cast<QWidget*>(ui_->txtChildStart), static_cast<QWidget*>(ui_->txtChildEnd),
                           static_cast<QWidget*>(ui_->cmdApply)})
        field->setEnabled(hasForeignKey_);
    ui_->cmdClearOne->setEnabled(dependency_.parentRuleId > 0);
}

// Close, Escape and the window's own button.
void frmParentChildDiagram::reject() {
    if (fValuesChanged() && !Apply(false))
        platform::ShowExclamation("The last change was not saved.");
    Screen::reject();
}

void frmParentChildDiagram::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    FitDiagram();
}

void frmParentChildDiagram::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    FitDiagram();
}

}  // namespace vellumark
