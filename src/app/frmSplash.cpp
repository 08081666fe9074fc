#include "app/frmSplash.h"

#include <QCoreApplication>
#include <QTimer>

#include "app/logo.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "ui_frmSplash.h"

namespace vellumark {

namespace {

constexpr int kShownMilliseconds = 1500;
constexpr int kLogoSize = 72;

}  // namespace

frmSplash::frmSplash(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmSplash>()) {
    ui_->setupUi(this);
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    ui_->picLogo->setPixmap(LogoIcon().pixmap(QSize(kLogoSize, kLogoSize), devicePixelRatioF()));
    ui_->lblVersion->setText("Version " + ToQt(VersionString));
}

frmSplash::~frmSplash() = default;

void frmSplash::ShowAtOnce() {
    QTimer::singleShot(kShownMilliseconds, this, &QDialog::accept);
    show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmSplash::mousePressEvent(QMouseEvent* /*event*/) {
    accept();
}

void frmSplash::keyPressEvent(QKeyEvent* /*event*/) {
    accept();
}

}  // namespace vellumark
