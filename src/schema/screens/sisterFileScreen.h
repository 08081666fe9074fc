#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <optional>
#include <string>

#include "platform/screens/screen.h"
#include "scenario/modNewSchema.h"
#include "schema/modSisterFiles.h"

namespace vellumark {

// What the screens that read a sister tool's file have in common.
class SisterFileScreen : public Screen {
 protected:
    struct Controls {
        QLineEdit* name;
        QLineEdit* description;
        QLineEdit* file;
        QPushButton* browse;
        QPushButton* ok;
        QPushButton* cancel;
    };

    SisterFileScreen(NewSchemaKind kind, QWidget* parent) : Screen(parent), kind_(kind) {}

    // Connects the controls and shows the file of that name in the current folder.
    void Start(const Controls& controls, std::string_view fileName);

    // Nothing behind a message.
    virtual std::optional<SisterFileHead> ReadHead(const std::string& path) const = 0;
    virtual void ShowHead(const SisterFileHead& head) = 0;

 private:
    void ShowFile(const std::string& path);
    void Browse();
    void OK();

    NewSchemaKind kind_;
    Controls controls_{};
    std::string path_;
};

}  // namespace vellumark
