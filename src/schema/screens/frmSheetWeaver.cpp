#include "schema/screens/frmSheetWeaver.h"

#include "platform/screens/qtText.h"
#include "ui_frmSheetWeaver.h"

namespace vellumark {

frmSheetWeaver::frmSheetWeaver(QWidget* parent)
    : SisterFileScreen(NewSchemaKind::SheetWeaver, parent), ui_(std::make_unique<Ui::frmSheetWeaver>()) {
    ui_->setupUi(this);
    Start({ui_->txtName, ui_->txtDescription, ui_->txtFile, ui_->cmdBrowse, ui_->cmdOK, ui_->cmdCancel},
          kSheetWeaverFile);
}

frmSheetWeaver::~frmSheetWeaver() = default;

std::optional<SisterFileHead> frmSheetWeaver::ReadHead(const std::string& path) const {
    return ReadSheetWeaverHead(path);
}

void frmSheetWeaver::ShowHead(const SisterFileHead& head) {
    ui_->txtModel->setText(ToQt(head.modelName));
    ui_->txtDatabase->setText(ToQt(head.databaseFile));
    ui_->txtStyle->setText(ToQt(head.style));
    ui_->txtTable->setText(ToQt(head.table));
}

}  // namespace vellumark
