#include "schema/screens/sisterFileScreen.h"

#include <filesystem>

#include "platform/screens/filePicker.h"
#include "platform/screens/qtText.h"

namespace vellumark {

void SisterFileScreen::Start(const Controls& controls, std::string_view fileName) {
    controls_ = controls;
    connect(controls.browse, &QPushButton::clicked, this, &SisterFileScreen::Browse);
    connect(controls.ok, &QPushButton::clicked, this, &SisterFileScreen::OK);
    connect(controls.cancel, &QPushButton::clicked, this, &SisterFileScreen::reject);
    controls.name->setFocus();
    resize(520, sizeHint().height());
    ShowFile(std::filesystem::absolute(fileName).string());
}

void SisterFileScreen::ShowFile(const std::string& path) {
    path_ = path;
    const std::optional<SisterFileHead> head = ReadHead(path);
    controls_.file->setText(ToQt(path));
    controls_.ok->setEnabled(head.has_value());
    ShowHead(head.value_or(SisterFileHead()));
}

void SisterFileScreen::Browse() {
    const FilePickerRequest request{FromQt(windowTitle()), "txt (*.txt)|*.txt|All files (*.*)|*.*", path_};
    if (const std::optional<std::string> path = CurrentFilePicker().Open(this, request))
        ShowFile(*path);
}

void SisterFileScreen::OK() {
    const WaitPointer wait;
    const bool made = fNewSchema({.kind = kind_,
                                  .name = FromQt(controls_.name->text()),
                                  .description = FromQt(controls_.description->text()),
                                  .sisterFile = path_});
    if (made)
        accept();
    else if (controls_.name->text().isEmpty())
        controls_.name->setFocus();
}

}  // namespace vellumark
