#include "app/logo.h"

// The linker drops what only registers itself; the macro wants to stand outside of any namespace.
static void LoadLogoResource() {
    Q_INIT_RESOURCE(logo);
}

namespace vellumark {

QIcon LogoIcon() {
    LoadLogoResource();
    return QIcon(":/app/vellumark.svg");
}

}  // namespace vellumark
