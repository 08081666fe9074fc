#include "app/frmTechSupport.h"

#include <QClipboard>
#include <QSysInfo>
#include <sqlite3.h>

#include "platform/screens/qtText.h"
#include "repository/addresses.h"
#include "repository/modVellumark.h"
#include "ui_frmTechSupport.h"

namespace vellumark {

namespace {

QString Details() {
    const QStringList lines = {
        "Vellumark: " + ToQt(VersionString),
        "System: " + QSysInfo::prettyProductName() + ", " + QSysInfo::currentCpuArchitecture(),
        QString("Qt: ") + qVersion(),
        QString("SQLite: ") + sqlite3_libversion(),
        "Settings file: " + ToQt(SettingsFilePath),
        "Repository: " + ToQt(RepositoryPath),
        "Values database: " + ToQt(ValuesPath),
        "Database schemas: " + ToQt(DatabasesFolder),
        "Session: " + ToQt(SessionState),
    };
    return lines.join('\n');
}

}  // namespace

frmTechSupport::frmTechSupport(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmTechSupport>()) {
    ui_->setupUi(this);
    ui_->lblAddress->setText(QString("<a href='%1'>%1</a>").arg(ToQt(kSupportAddress)));
    ui_->txtDetails->setPlainText(Details());
    connect(ui_->cmdCopy, &QPushButton::clicked, this, &frmTechSupport::CopyDetails);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmTechSupport::~frmTechSupport() = default;

void frmTechSupport::CopyDetails() {
    QApplication::clipboard()->setText(ui_->txtDetails->toPlainText());
}

}  // namespace vellumark
