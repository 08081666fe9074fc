#include "platform/screens/frmQuestion.h"

#include <QStyle>

#include "platform/screens/qtText.h"
#include "ui_frmQuestion.h"

namespace vellumark {

namespace {

void ShowButton(QPushButton& button, const std::string& caption) {
    button.setText(ToQt(caption));
    button.setVisible(!caption.empty());
}

}  // namespace

frmQuestion::frmQuestion(const platform::Choice& choice, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmQuestion>()) {
    ui_->setupUi(this);
    ui_->picQuestion->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(32, 32));
    ui_->lblQuestion->setText(ToQt(choice.text));
    ShowButton(*ui_->cmd1, choice.button1);
    ShowButton(*ui_->cmd2, choice.button2);
    ShowButton(*ui_->cmdCancel, choice.cancel);
    connect(ui_->cmd1, &QPushButton::clicked, this, [this] { Answer(1); });
    connect(ui_->cmd2, &QPushButton::clicked, this, [this] { Answer(2); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ui_->cmdCancel->setFocus();
}

frmQuestion::~frmQuestion() = default;

void frmQuestion::Answer(int answer) {
    answer_ = answer;
    accept();
}

}  // namespace vellumark
