#include "repository/screens/optionsFields.h"

#include "platform/screens/qtText.h"
#include "repository/modEditPatterns.h"
#include "repository/modTargetFormats.h"
#include "repository/screens/textFields.h"
#include "ui_frmOptions.h"

namespace vellumark {

namespace {

constexpr std::size_t kPatternKinds = 3;
constexpr const char* kStoredDate = "yyyy-MM-dd";
constexpr const char* kStoredTime = "HH:mm:ss";
constexpr const char* kStoredTimestamp = "yyyy-MM-dd HH:mm:ss";
constexpr const char* kOverride = "Override";

void Select(QComboBox& list, const std::string& text) {
    const int found = list.findText(ToQt(text), Qt::MatchFixedString);
    if (found >= 0)
        return list.setCurrentIndex(found);
    list.addItem(ToQt(text));
    list.setCurrentIndex(list.count() - 1);
}

}  // namespace

OptionsFields::OptionsFields(Ui::frmOptions& form)
    : form_(form),
      quotes_{{{form.chkITFCharacter, form.cboOTFChar, form.txtOTFFieldChar},
               {form.chkITFInteger, form.cboOTFInteger, form.txtOTFFieldInt},
               {form.chkITFBoolean, form.cboOTFBoolean, form.txtOTFFieldBoolean},
               {form.chkITFDate, form.cboOTFDate, form.txtOTFFieldDate},
               {form.ChkITFTime, form.cboOTFTime, form.txtOTFFieldTime},
               {form.chkITFtimestamp, form.cboOTFTstamp, form.txtOTFFieldTstamp}}},
      patternFields_{form.txtITFDate, form.txtITFTime, form.txtITFTstamp,
                     form.txtOTFDate, form.txtOTFTime, form.txtOTFTstamp} {
    ListTexts();
    SetUpPickers();
    for (const std::string& name : FillDBMSList("All"))
        form_.cboDatabase->addItem(ToQt(name));
    for (QLineEdit* field : {form.txtCommit, form.txtStartRange, form.txtEndRange, form.txtFillNumeric,
                             form.txtGeneratedNumLarge, form.txtYrConversion})
        NumericKeys(*field, DataType::Integer);
}

void OptionsFields::ListTexts() {
    texts_ = {{form_.txtOwner, &OptionsRecord::databaseOwner},
              {form_.txtCommit, &OptionsRecord::commitPoint},
              {form_.txtSQLHeaderFile, &OptionsRecord::sqlHeaderFile},
              {form_.txtStartRange, &OptionsRecord::startRange},
              {form_.txtEndRange, &OptionsRecord::endRange},
              {form_.txtFillText, &OptionsRecord::fillCharacter},
              {form_.txtFillNumeric, &OptionsRecord::fillDigit},
              {form_.txtGeneratedTextLarge, &OptionsRecord::tooLargeString},
              {form_.txtGeneratedNumLarge, &OptionsRecord::tooLargeNumber},
              {form_.txtGenSQL, &OptionsRecord::dirSQL},
              {form_.txtInputTextFiles, &OptionsRecord::dirInputText},
              {form_.txtOutputTextFiles, &OptionsRecord::dirOutputText},
              {form_.txtInExcel, &OptionsRecord::dirInputExcel},
              {form_.txtOutExcel, &OptionsRecord::dirOutputExcel},
              {form_.txtReportFiles, &OptionsRecord::dirReport},
              {form_.txtJet, &OptionsRecord::dirJet},
              {form_.txtCOOLGen, &OptionsRecord::dirCOOLGen},
              {form_.txtEditor, &OptionsRecord::editor},
              {form_.txtITFDelimiter, &OptionsRecord::inputDelimiter},
              {form_.txtOTFDelimiter, &OptionsRecord::outputDelimiter},
              {form_.txtYrConversion, &OptionsRecord::year2000Conversion}};
}

// Without a time zone, whose hours that summer time skips could not be chosen.
void OptionsFields::SetUpPickers() {
    for (QDateTimeEdit* picker : {static_cast<QDateTimeEdit*>(form_.dtpDefDate), form_.dtpDefTStamp}) {
        picker->setTimeSpec(Qt::UTC);
        picker->setMinimumDate(QDate(100, 1, 1));
    }
}

void OptionsFields::Show(const OptionsRecord& options) {
    for (const auto& [field, text] : texts_)
        field->setText(ToQt(options.*text));
    ShowChoices(options);
    ShowPickers(options);
    for (std::size_t i = 0; i < kPatternKinds; ++i) {
        SetPattern(i, options.inputPatterns[i]);
        SetPattern(i + kPatternKinds, options.outputPatterns[i]);
    }
    EnableOwner();
}

void OptionsFields::ShowChoices(const OptionsRecord& options) {
    Select(*form_.cboDatabase, options.targetDatabase);
    Select(*form_.cboDecimalPoint, options.decimalPoint);
    form_.cboOwner->setCurrentText(options.ownerCode == "O"   ? kOverride
                                   : options.ownerCode == "N" ? "No"
                                                              : "Yes");
    form_.chkAutoConnect->setChecked(options.autoConnect);
    form_.chkOpenSQLFile->setChecked(options.openWithEditor);
    for (std::size_t i = 0; i < quotes_.size(); ++i) {
        quotes_[i].inInput->setChecked(options.quotes[i].inInput);
        quotes_[i].inOutput->setCurrentText(options.quotes[i].inOutput ? "Quotes" : "None");
        quotes_[i].outputCharacter->setText(ToQt(options.quotes[i].outputCharacter));
    }
}

void OptionsFields::ShowPickers(const OptionsRecord& options) {
    form_.dtpDefDate->setDate(QDate::fromString(ToQt(options.startDate), kStoredDate));
    form_.dtpDefTime->setTime(QTime::fromString(ToQt(options.startTime), kStoredTime));
    const QString timestamp = ToQt(options.startTimestamp);
    form_.dtpDefTStamp->setDateTime({QDate::fromString(timestamp.left(10), kStoredDate),
                                     QTime::fromString(timestamp.mid(11), kStoredTime), Qt::UTC});
}

OptionsRecord OptionsFields::Take() const {
    OptionsRecord options;
    for (const auto& [field, text] : texts_)
        options.*text = FromQt(field->text());
    TakeChoices(options);
    TakePickers(options);
    for (std::size_t i = 0; i < kPatternKinds; ++i) {
        options.inputPatterns[i] = patterns_[i];
        options.outputPatterns[i] = patterns_[i + kPatternKinds];
    }
    return options;
}

void OptionsFields::TakeChoices(OptionsRecord& options) const {
    options.targetDatabase = FromQt(form_.cboDatabase->currentText());
    options.decimalPoint = FromQt(form_.cboDecimalPoint->currentText());
    const QString owner = form_.cboOwner->currentText();
    options.ownerCode = owner == kOverride ? "O" : FromQt(owner.left(1));
    options.autoConnect = form_.chkAutoConnect->isChecked();
    options.openWithEditor = form_.chkOpenSQLFile->isChecked();
    for (std::size_t i = 0; i < quotes_.size(); ++i)
        options.quotes[i] = {quotes_[i].inInput->isChecked(), quotes_[i].inOutput->currentText() == "Quotes",
                             FromQt(quotes_[i].outputCharacter->text())};
}

void OptionsFields::TakePickers(OptionsRecord& options) const {
    options.startDate = FromQt(form_.dtpDefDate->date().toString(kStoredDate));
    options.startTime = FromQt(form_.dtpDefTime->time().toString(kStoredTime));
    options.startTimestamp = FromQt(form_.dtpDefTStamp->dateTime().toString(kStoredTimestamp));
}

void OptionsFields::SetPattern(std::size_t index, const std::string& pattern) {
    patterns_[index] = pattern;
    patternFields_[index]->setText(ToQt(EditPatternToText(pattern)));
}

void OptionsFields::EnableOwner() {
    const bool overrides = form_.cboOwner->currentText() == kOverride;
    form_.txtOwner->setEnabled(overrides);
    if (!overrides)
        form_.txtOwner->clear();
}

}  // namespace vellumark
