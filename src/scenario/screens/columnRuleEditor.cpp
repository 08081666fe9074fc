#include "scenario/screens/columnRuleEditor.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <algorithm>
#include <array>

#include "platform/dialogs.h"
#include "platform/screens/icons.h"
#include "platform/screens/qtText.h"
#include "repository/modEditPatterns.h"
#include "repository/modVellumark.h"
#include "repository/screens/textFields.h"
#include "scenario/modDependencies.h"
#include "scenario/screens/codeLists.h"
#include "scenario/screens/momentField.h"
#include "ui_columnOutput.h"
#include "ui_columnOverride.h"
#include "ui_columnProperties.h"

namespace vellumark {

namespace {

constexpr int kPictureSize = 16;

constexpr std::array kTooLargeWords = {CodeWord{"Default", "D"}, CodeWord{"Beginning", "B"},
                                       CodeWord{"End", "E"}};
constexpr std::array kFillWords = {CodeWord{"None", "N"}, CodeWord{"Beginning", "B"},
                                   CodeWord{"To end", "E"}};
constexpr std::array kConcatWords = {CodeWord{"None", "N"}, CodeWord{"Beginning", "B"}, CodeWord{"End", "E"}};
constexpr std::array kOrderWords = {CodeWord{"Random", "R"}, CodeWord{"Sequential", "S"}};
constexpr std::array kQuotesWords = {CodeWord{"Quotes", "Q"}, CodeWord{"None", "N"},
                                     CodeWord{"Default", "D"}};
constexpr std::array kIncrementWords = {CodeWord{"Second", "S"}, CodeWord{"Minute", "N"},
                                        CodeWord{"Hour", "H"},   CodeWord{"Day", "D"},
                                        CodeWord{"Month", "M"},  CodeWord{"Year", "Y"}};
constexpr std::array kBooleanWords = {CodeWord{"Random (True/False)", ""}, CodeWord{"True", "True"},
                                      CodeWord{"False", "False"}};

constexpr std::array kMomentWords = {CodeWord{"Use Generated data", ""}, CodeWord{"Override with --->", ""}};

// Closed, but there to be read.
void SetLegible(QWidget& field) {
    QPalette palette;
    palette.setBrush(QPalette::Disabled, QPalette::Text, palette.brush(QPalette::Active, QPalette::Text));
    field.setPalette(palette);
}

std::vector<CodeWord> IncrementsOf(DataType type) {
    std::vector<CodeWord> words;
    for (const CodeWord& word : kIncrementWords)
        if (IncrementCodes(type).find(word.code) != std::string_view::npos)
            words.push_back(word);
    return words;
}

}  // namespace

ColumnRuleEditor::ColumnRuleEditor(QTabWidget& details, QObject* parent)
    : QObject(parent),
      details_(details),
      override_(std::make_unique<Ui::columnOverride>()),
      properties_(std::make_unique<Ui::columnProperties>()),
      output_(std::make_unique<Ui::columnOutput>()) {
    AddPages();
    FillLists();
    fields_ = {
        override_->optData,        override_->optFile,       override_->optIncluded, override_->optExcluded,
        override_->optUnique,      override_->optCompUnique, override_->txtConstVal, override_->cboConstVal,
        override_->dtpConstVal,    override_->cboGenValue,   override_->cboFill,     override_->cboConcat,
        override_->cboDateTimeInc, override_->txtColStart,   override_->txtColEnd,   override_->cboOrder,
        output_->txtDateEditPat,   output_->cmdColEditPat,   output_->cboCDQuotes,   output_->txtCDQuotes};
    Connect();
    ShowNothing();
}

ColumnRuleEditor::~ColumnRuleEditor() = default;

void ColumnRuleEditor::AddPages() {
    pages_ = {new QWidget(&details_), new QWidget(&details_), new QWidget(&details_)};
    override_->setupUi(pages_[0]);
    properties_->setupUi(pages_[1]);
    output_->setupUi(pages_[2]);
    details_.insertTab(0, pages_[0], "O&verride");
    details_.insertTab(1, pages_[1], "&Properties");
    details_.insertTab(2, pages_[2], "O&utput to Text File");

    SelectTextOnFocus(*pages_[0]);
    NumericKeys(*override_->txtColStart, DataType::Integer);
    NumericKeys(*override_->txtColEnd, DataType::Integer);
    // What comes and goes must not move what stays.
    override_->layoutRule->setRowMinimumHeight(0, std::max(override_->cboConstVal->sizeHint().height(),
                                                           override_->dtpConstVal->sizeHint().height()));
    for (QWidget* hidden : std::initializer_list<QWidget*>{
             properties_->lblPrecision, properties_->txtPrecision, properties_->lblScale,
             properties_->txtScale, properties_->fraForeignKey}) {
        QSizePolicy policy = hidden->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        hidden->setSizePolicy(policy);
    }
}

void ColumnRuleEditor::FillLists() {
    Offer(*override_->cboGenValue, kTooLargeWords);
    Offer(*override_->cboFill, kFillWords);
    Offer(*override_->cboConcat, kConcatWords);
    Offer(*override_->cboOrder, kOrderWords);
    Offer(*output_->cboCDQuotes, kQuotesWords);
}

void ColumnRuleEditor::Connect() {
    connect(override_->optFile, &QRadioButton::toggled, this, &ColumnRuleEditor::AllowSource);
    connect(override_->cboConstVal, &QComboBox::activated, this, &ColumnRuleEditor::ShowMomentChoice);
    connect(override_->txtColStart, &QLineEdit::textEdited, this, &ColumnRuleEditor::AllowOrder);
    connect(override_->txtColEnd, &QLineEdit::textEdited, this, &ColumnRuleEditor::AllowOrder);
    connect(override_->cmdValue, &QToolButton::clicked, this, &ColumnRuleEditor::fDisplay_frmValueSource);
    connect(output_->cmdColEditPat, &QToolButton::clicked, this, &ColumnRuleEditor::ChooseEditPattern);
    connect(output_->cboCDQuotes, &QComboBox::activated, this, &ColumnRuleEditor::AllowQuote);
}

void ColumnRuleEditor::fDisplayTCRDetails_Main() {
    columnResolvedByParent_ = false;
    try {
        const RepositoryScope repository;
        rule_ = ReadSelectedColumnRule();
        if (rule_)
            ShowRule(ReadColumnProperties(*rule_));
        else
            ShowNothing();
    } catch (const platform::Error& error) {
        ShowNothing();
        platform::ShowUnexpectedError("reading the Column rule", error);
    }
}

void ColumnRuleEditor::ShowNothing() {
    rule_.reset();
    for (QLineEdit* field :
         {override_->txtConstVal, override_->txtColStart, override_->txtColEnd, properties_->txtAttribute,
          properties_->txtDataType, properties_->txtADODataType, properties_->txtSize,
          properties_->txtPrecision, properties_->txtScale, output_->txtDateEditPat, output_->txtCDQuotes})
        field->clear();
    for (QComboBox* list : {override_->cboGenValue, override_->cboFill, override_->cboConcat,
                            override_->cboDateTimeInc, override_->cboOrder, output_->cboCDQuotes})
        list->setCurrentIndex(-1);
    for (QCheckBox* box : {properties_->chkOptionality, properties_->chkIdentifier})
        box->setChecked(false);
    override_->optData->setChecked(true);
    override_->optIncluded->setChecked(true);
    properties_->fraForeignKey->hide();
    ShowConstantText(true);
    DisableTCRControls();
}

void ColumnRuleEditor::ShowRule(const ColumnProperties& properties) {
    EnableTCRControls();
    ShowProperties(properties);
    override_->txtConstVal->setText(ToQt(rule_->constant));
    override_->optNull->setEnabled(rule_->optional);
    if (rule_->dataType == DataType::Character || rule_->dataType == DataType::Blob)
        override_->txtConstVal->setValidator(nullptr);
    else
        NumericKeys(*override_->txtConstVal, rule_->dataType);
    ShowByDataType();
    ShowUse();
    ShowGenerate();
    ShowCodes();
    ShowRange();
    if (properties.isForeignKey &&
        fColumnHasDependency(rule_->scenarioId, rule_->tableRuleId, rule_->tableId, rule_->columnId))
        ShowResolvedByParent();
    MatchLabels();
}

void ColumnRuleEditor::ShowProperties(const ColumnProperties& properties) {
    properties_->txtAttribute->setText(ToQt(properties.attribute));
    properties_->txtDataType->setText(ToQt(properties.dataType));
    properties_->txtADODataType->setText(ToQt(properties.adoDataType));
    properties_->txtSize->setText(ToQt(properties.size));
    properties_->chkOptionality->setChecked(!rule_->optional);
    properties_->chkIdentifier->setChecked(properties.identifier);
    SetLegible(*properties_->chkOptionality);
    SetLegible(*properties_->chkIdentifier);
    properties_->fraForeignKey->setVisible(properties.isForeignKey);
    properties_->txtFKTable->setText(ToQt(properties.parentTable));
    properties_->txtFKColumn->setText(ToQt(properties.parentColumn));
}

void ColumnRuleEditor::ShowByDataType() {
    switch (rule_->dataType) {
        case DataType::Character:
            fDisplayTCRDetails_NotNumeric();
            fDisplayTCRDetails_NotDateTime();
            ShowLength();
            break;
        case DataType::Date:
        case DataType::Time:
        case DataType::TimeStamp:
            fDisplayTCRDetails_NotNumeric();
            fDisplayTCRDetails_DateTime();
            break;
        case DataType::Blob:
            DisableTCRControls();
            fDisplayTCRDetails_NotNumeric();
            fDisplayTCRDetails_NotDateTime();
            ShowConstantText(true);
            break;
        case DataType::Boolean:
            fDisplayTCRDetails_NotNumeric();
            fDisplayTCRDetails_NotDateTime();
            ShowBoolean();
            break;
        default:
            fDisplayTCRDetails_Numeric();
            fDisplayTCRDetails_NotDateTime();
    }
}

void ColumnRuleEditor::fDisplayTCRDetails_Numeric() {
    properties_->lblPrecision->setText("Precision:");
    properties_->txtPrecision->setText(QString::number(rule_->precision));
    properties_->txtScale->setText(QString::number(rule_->scale));
    for (QWidget* shown :
         std::initializer_list<QWidget*>{properties_->lblPrecision, properties_->txtPrecision,
                                         properties_->lblScale, properties_->txtScale})
        shown->show();
    ShowConstantText(true);
    AllowTextRules(true);
}

void ColumnRuleEditor::fDisplayTCRDetails_NotNumeric() {
    for (QWidget* hidden :
         std::initializer_list<QWidget*>{properties_->lblPrecision, properties_->txtPrecision,
                                         properties_->lblScale, properties_->txtScale})
        hidden->hide();
}

void ColumnRuleEditor::fDisplayTCRDetails_DateTime() {
    const DataType type = rule_->dataType;
    Offer(*override_->cboDateTimeInc, IncrementsOf(type));
    Offer(*override_->cboConstVal, kMomentWords);
    override_->cboDateTimeInc->setEnabled(true);
    output_->cmdColEditPat->setEnabled(true);
    AllowTextRules(false);
    output_->txtDateEditPat->setText(ToQt(EditPatternToText(rule_->outputPattern)));
    OfferMoments(*override_->dtpConstVal, type);
    override_->cboConstVal->setCurrentIndex(rule_->constant.empty() ? 0 : kOverridden);
    ShowConstantText(false);
    ShowMomentChoice();
}

void ColumnRuleEditor::fDisplayTCRDetails_NotDateTime() {
    override_->cboDateTimeInc->clear();
    override_->cboDateTimeInc->setEnabled(false);
    output_->cmdColEditPat->setEnabled(false);
    output_->txtDateEditPat->clear();
}

void ColumnRuleEditor::ShowLength() {
    properties_->lblPrecision->setText("Length:");
    properties_->lblPrecision->show();
    properties_->txtPrecision->setText(QString::number(rule_->maximumLength));
    properties_->txtPrecision->show();
    ShowConstantText(true);
    AllowTextRules(true);
}

void ColumnRuleEditor::ShowBoolean() {
    Offer(*override_->cboConstVal, kBooleanWords);
    ShowCode(*override_->cboConstVal, rule_->constant, "");
    ShowConstantText(false);
    AllowTextRules(false);
    for (QWidget* closed :
         std::initializer_list<QWidget*>{override_->optFile, override_->txtColStart, override_->txtColEnd})
        closed->setEnabled(false);
}

void ColumnRuleEditor::ShowUse() {
    QRadioButton* option = override_->optIncluded;
    if (rule_->use == ColumnUse::Excluded)
        option = override_->optExcluded;
    else if (rule_->use == ColumnUse::Unique)
        option = override_->optUnique;
    else if (rule_->use == ColumnUse::CompoundUnique)
        option = override_->optCompUnique;
    option->setChecked(true);
}

void ColumnRuleEditor::ShowGenerate() {
    QRadioButton* option = override_->optData;
    if (rule_->generate == "V")
        option = override_->optFile;
    else if (rule_->generate == "N")
        option = override_->optNull;
    option->setChecked(true);
    AllowSource();
}

// What an empty field reads as differs from list to list.
void ColumnRuleEditor::ShowCodes() {
    output_->txtCDQuotes->setText(ToQt(rule_->quoteCharacter));
    ShowCode(*override_->cboFill, rule_->fill, "N");
    ShowCode(*override_->cboConcat, rule_->concat, "E");
    ShowCode(*override_->cboGenValue, rule_->tooLarge, "B");
    ShowCode(*override_->cboDateTimeInc, rule_->dateTimeIncrement, "");
    ShowCode(*output_->cboCDQuotes, rule_->quotes, "Q");
    AllowQuote();
}

void ColumnRuleEditor::ShowRange() {
    override_->txtColStart->setText(ToQt(rule_->startRange));
    override_->txtColEnd->setText(ToQt(rule_->endRange));
    const bool none = rule_->startRange == "0" && rule_->endRange == "0";
    ShowCode(*override_->cboOrder, none ? "S" : rule_->order, "S");
    override_->cboOrder->setEnabled(!none && rule_->dataType != DataType::Blob);
}

void ColumnRuleEditor::ShowResolvedByParent() {
    DisableTCRControls();
    ShowConstantText(true);
    override_->txtConstVal->setText(kResolvedByParent);
    override_->txtConstVal->setCursorPosition(0);
    SetLegible(*override_->txtConstVal);
    columnResolvedByParent_ = true;
}

void ColumnRuleEditor::ShowConstantText(bool asText) {
    override_->txtConstVal->setVisible(asText);
    override_->cboConstVal->setVisible(!asText);
    override_->dtpConstVal->hide();
    override_->lblConstVal->setBuddy(asText ? static_cast<QWidget*>(override_->txtConstVal)
                                            : override_->cboConstVal);
}

void ColumnRuleEditor::ShowMomentChoice() {
    if (!IsMoment(rule_->dataType))
        return;
    const bool overridden = override_->cboConstVal->currentIndex() == kOverridden;
    if (overridden)
        ShowMoment(*override_->dtpConstVal, FromQt(override_->txtConstVal->text()));
    override_->dtpConstVal->setVisible(overridden);
}

void ColumnRuleEditor::AllowTextRules(bool allowed) {
    for (QComboBox* list : {override_->cboFill, override_->cboGenValue, override_->cboConcat})
        list->setEnabled(allowed);
}

void ColumnRuleEditor::AllowSource() {
    const bool allowed = override_->optFile->isChecked() && override_->optFile->isEnabled();
    override_->cmdValue->setEnabled(allowed);
    override_->picValue->setEnabled(allowed);
    override_->picValue->setPixmap(
        LineIcon("picValue")
            .pixmap(QSize(kPictureSize, kPictureSize), allowed ? QIcon::Normal : QIcon::Disabled));
}

// An order has no meaning without a range, so one that is being typed opens the list.
void ColumnRuleEditor::AllowOrder() {
    const auto given = [](const QLineEdit& field) { return !field.text().isEmpty() && field.text() != "0"; };
    if (given(*override_->txtColStart) || given(*override_->txtColEnd))
        override_->cboOrder->setEnabled(true);
    MatchLabels();
}

void ColumnRuleEditor::AllowQuote() {
    output_->txtCDQuotes->setEnabled(output_->cboCDQuotes->isEnabled() &&
                                     CodeIn(*output_->cboCDQuotes) != "N");
}

void ColumnRuleEditor::EnableTCRControls() {
    override_->txtConstVal->setPalette({});
    for (QWidget* field : fields_)
        field->setEnabled(true);
    AllowSource();
    MatchLabels();
}

void ColumnRuleEditor::DisableTCRControls() {
    for (QWidget* field : fields_)
        field->setEnabled(false);
    override_->optNull->setEnabled(false);
    AllowSource();
    MatchLabels();
}

// A label is as grey as its field.
void ColumnRuleEditor::MatchLabels() {
    for (const QWidget* page : {pages_[0], pages_[2]})
        for (QLabel* label : page->findChildren<QLabel*>())
            if (label->buddy() != nullptr)
                label->setEnabled(label->buddy()->isEnabled());
}

}  // namespace vellumark
