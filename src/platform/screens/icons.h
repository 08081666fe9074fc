#pragma once

#include <QIcon>
#include <string_view>

namespace vellumark {

// The line drawing `name` of this program's icons in the palette's text colour, sharp at any size; a name
// that isn't there gives an empty icon.
QIcon LineIcon(std::string_view name);

}  // namespace vellumark
