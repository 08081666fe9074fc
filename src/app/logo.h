#pragma once

#include <QIcon>

namespace vellumark {

// The program's own picture.
QIcon LogoIcon();

}  // namespace vellumark
