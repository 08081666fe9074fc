#include "schema/screens/frmCaseWeaver.h"

#include "platform/screens/qtText.h"
#include "ui_frmCaseWeaver.h"

namespace vellumark {

frmCaseWeaver::frmCaseWeaver(QWidget* parent)
    : SisterFileScreen(NewSchemaKind::CaseWeaver, parent), ui_(std::make_unique<Ui::frmCaseWeaver>()) {
    ui_->setupUi(this);
    Start({ui_->txtName, ui_->txtDescription, ui_->txtFile, ui_->cmdBrowse, ui_->cmdOK, ui_->cmdCancel},
          kCaseWeaverFile);
}

frmCaseWeaver::~frmCaseWeaver() = default;

std::optional<SisterFileHead> frmCaseWeaver::ReadHead(const std::string& path) const {
    return ReadCaseWeaverHead(path);
}

void frmCaseWeaver::ShowHead(const SisterFileHead& head) {
    ui_->txtModel->setText(ToQt(head.modelName));
    ui_->txtDatabase->setText(ToQt(head.databaseFile));
}

}  // namespace vellumark
