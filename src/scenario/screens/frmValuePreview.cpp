#include "scenario/screens/frmValuePreview.h"

#include "platform/screens/qtText.h"
#include "ui_frmValuePreview.h"

namespace vellumark {

frmValuePreview::frmValuePreview(const std::vector<std::string>& values, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmValuePreview>()) {
    ui_->setupUi(this);
    for (const std::string& value : values)
        ui_->lstValues->addItem(ToQt(value));
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    resize(360, 420);
}

frmValuePreview::~frmValuePreview() = default;

}  // namespace vellumark
