#pragma once

#include <string_view>

#include "repository/modTargetFormats.h"

// Tells whether texts are well-formed dates, times, timestamps and numbers in the stored forms.
namespace vellumark {

// An empty text is all digits.
bool fAllDigits(std::string_view text);

// Blanks around the text do not count. With `showMessage` a failure shows its message.
bool fValidDate(std::string_view text, bool showMessage);
bool fValidTime(std::string_view text, bool showMessage);
bool fValidTimestamp(std::string_view text, bool showMessage);

// Never shows a message. An empty text passes; any other needs at least one digit.
bool fValidNumber(std::string_view text, DataType type, char decimalPoint);

}  // namespace vellumark
