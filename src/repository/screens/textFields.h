#pragma once

#include <QLineEdit>

#include "repository/modTargetFormats.h"

namespace vellumark {

// Keeps everything but the keys of fNumericKey out of a field, whether typed, pasted or dropped; what would
// bring in another character is not done at all. Can be called again when the type changes.
void NumericKeys(QLineEdit& field, DataType type);

// From here on each text field on the screen selects its whole text when it gets the focus.
void SelectTextOnFocus(QWidget& screen);

}  // namespace vellumark
