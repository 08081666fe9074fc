#include "app/frmAbout.h"

#include "app/logo.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "ui_frmAbout.h"

namespace vellumark {

namespace {

constexpr int kLogoSize = 64;

}  // namespace

frmAbout::frmAbout(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmAbout>()) {
    ui_->setupUi(this);
    ui_->picLogo->setPixmap(LogoIcon().pixmap(QSize(kLogoSize, kLogoSize), devicePixelRatioF()));
    ui_->lblVersion->setText("Version " + ToQt(VersionString));
    ui_->lblSettingsFile->setText(ToQt(SettingsFilePath));
    ui_->lblRepository->setText(ToQt(RepositoryPath));
    ui_->lblValues->setText(ToQt(ValuesPath));
    ui_->lblDatabases->setText(ToQt(DatabasesFolder));
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;

}  // namespace vellumark
