#include "repository/screens/frmUpdateEditPatterns.h"

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/screens/qtText.h"
#include "repository/modEditPatternScreens.h"
#include "repository/modEditPatterns.h"
#include "repository/screens/frmEPSelection.h"
#include "ui_frmUpdateEditPatterns.h"

namespace vellumark {

frmUpdateEditPatterns::frmUpdateEditPatterns(QWidget* parent)
    : Screen(parent),
      ui_(std::make_unique<Ui::frmUpdateEditPatterns>()),
      caller_(EditPatternCaller),
      pattern_(EditPatternText) {
    ui_->setupUi(this);
    EnableButtons();
    ConnectTokens();
    connect(ui_->cmdUEPDelete, &QPushButton::clicked, this, &frmUpdateEditPatterns::DeleteLast);
    connect(ui_->cmdViewTimestamp, &QPushButton::clicked, this, &frmUpdateEditPatterns::ViewExample);
    connect(ui_->cmdUEPOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdUEPCancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowPattern();
}

frmUpdateEditPatterns::~frmUpdateEditPatterns() = default;

void frmUpdateEditPatterns::EnableButtons() {
    const char kind = EditPatternKind(caller_);
    for (QPushButton* button : {ui_->cmdYear, ui_->cmdMonth, ui_->cmdDay})
        button->setEnabled(kind != 'T');
    for (QPushButton* button : {ui_->cmdHour, ui_->cmdMinute, ui_->cmdSecond, ui_->cmdMicros})
        button->setEnabled(kind != 'D');
    ui_->cmdViewTimestamp->setText(kind == 'D'   ? "&View Date"
                                   : kind == 'T' ? "&View Time"
                                                 : "&View Timestamp");
}

void frmUpdateEditPatterns::ConnectTokens() {
    const auto onClick = [this](QPushButton* button, auto add) {
        connect(button, &QPushButton::clicked, this, add);
    };
    onClick(ui_->cmdYear, [this] { AddSelected("cmdYear"); });
    onClick(ui_->cmdMonth, [this] { AddSelectedOr("cmdMonth", "M001"); });
    onClick(ui_->cmdDay, [this] { AddSelectedOr("cmdDay", "D001"); });
    onClick(ui_->cmdHour, [this] { Add("H001"); });
    onClick(ui_->cmdMinute, [this] { Add("I001"); });
    onClick(ui_->cmdSecond, [this] { Add("S001"); });
    onClick(ui_->cmdMicros, [this] { Add("N001"); });
    onClick(ui_->cmdSeparator, [this] { AddSelected("cmdSeparator"); });
}

void frmUpdateEditPatterns::ShowPattern() {
    ui_->txtUEditPatterns->setText(ToQt(EditPatternToText(pattern_)));
}

void frmUpdateEditPatterns::Add(std::string_view token) {
    pattern_ += token;
    ShowPattern();
}

void frmUpdateEditPatterns::AddSelected(std::string_view button) {
    EditPatternChoice = button;
    frmEPSelection selection(this);
    selection.exec();
    Add(EditPatternToken);
}

void frmUpdateEditPatterns::AddSelectedOr(std::string_view button, std::string_view token) {
    if (OffersNames(caller_))
        AddSelected(button);
    else
        Add(token);
}

void frmUpdateEditPatterns::DeleteLast() {
    pattern_ = WithoutLastToken(pattern_);
    ShowPattern();
}

void frmUpdateEditPatterns::ViewExample() {
    platform::ShowInformation(EditPatternExample(EditPatternKind(caller_), pattern_, platform::LocalNow()));
}

void frmUpdateEditPatterns::accept() {
    (IsValueSourceCaller(caller_) ? ValueSourcePatternText : EditPatternText) = pattern_;
    EditPatternCaller = kPatternTaken;
    Screen::accept();
}

void frmUpdateEditPatterns::reject() {
    EditPatternCaller = kPatternLeft;
    Screen::reject();
}

std::optional<std::string> EditPatternDialog(QWidget* parent, std::string_view caller,
                                             std::string_view pattern) {
    EditPatternCaller = caller;
    EditPatternText = pattern;
    frmUpdateEditPatterns screen(parent);
    screen.exec();
    if (EditPatternCaller != kPatternTaken)
        return std::nullopt;
    return IsValueSourceCaller(caller) ? ValueSourcePatternText : EditPatternText;
}

}  // namespace vellumark
