#include "tools/screens/frmVersionControl.h"

#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "repository/screens/textFields.h"
#include "schema/screens/frmDatabaseOpen.h"
#include "tools/reportFile.h"
#include "ui_frmVersionControl.h"

namespace vellumark {

frmVersionControl::frmVersionControl(VersionControlMode mode, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmVersionControl>()), VersionControlMode_(mode) {
    ui_->setupUi(this);
    SelectTextOnFocus(*this);
    connect(ui_->cmdBrowseTarget, &QPushButton::clicked, this, &frmVersionControl::BrowseTarget);
    connect(ui_->cmdBrowseLog, &QToolButton::clicked, this, &frmVersionControl::BrowseLog);
    connect(ui_->cmdUpdate, &QPushButton::clicked, this, &frmVersionControl::Update);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::close);
    Load();
}

frmVersionControl::~frmVersionControl() = default;

void frmVersionControl::Load() {
    const bool merge = VersionControlMode_ == VersionControlMode::Merge;
    setWindowTitle(merge ? "Merge Database Schemas" : "Version Control");
    ui_->lblInstruction1->setText(
        merge ? "Merge will copy the details FROM the open database schema TO the target database schema."
              : "Version Control will copy the changed details FROM the open database schema TO the target "
                "database schema.");
    ui_->lblInstruction2->setText(
        merge ? "Tables and columns may be created or updated on the TARGET database schema."
              : "Tables and columns may be created, updated  or deleted on the TARGET database schema.");
    ui_->lblSourceName->setText(ToQt(CurrentDBSName));
    ui_->lblSourceDesc->setText(ToQt(ShownSchemaDescription));
    ui_->txtLog->setText(ToQt(ReportPath(ReportFolder(), "log.txt")));
    ui_->cmdUpdate->setEnabled(false);
    ui_->cmdBrowseTarget->setFocus();
}

void frmVersionControl::BrowseTarget() {
    frmDatabaseOpen list(SchemaListMode::VersionControl, this);
    if (list.exec() != Accepted || !fTargetOK(list.Selected()->id))
        return;
    TargetDBSId_ = list.Selected()->id;
    ui_->lblTargetName->setText(ToQt(list.Selected()->name));
    ui_->lblTargetDesc->setText(ToQt(list.Selected()->description));
    ui_->cmdUpdate->setEnabled(true);
}

void frmVersionControl::BrowseLog() {
    const auto path = CurrentFilePicker().Save(
        this, {"Select output log file", "txt (*.txt)|*.txt|All files (*.*)|*.*", ReportFolder()});
    if (path)
        ui_->txtLog->setText(ToQt(*path));
}

void frmVersionControl::Update() {
    const std::string log = FromQt(ui_->txtLog->text());
    if (!fFileReplaceOK(log))
        return;
    {
        const WaitPointer wait;
        if (!fApplyVersionControl({TargetDBSId_, VersionControlMode_, log}))
            return;
    }
    ui_->cmdClose->setText("&Close");
    OpenFileWithEditor(log, true);
}

}  // namespace vellumark
