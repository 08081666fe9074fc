#pragma once

#include <string>
#include <string_view>

#include "repository/modTargetFormats.h"

// Whether a value suits its column, and what becomes of it if not.
namespace vellumark {

struct ColumnWidths {
    int maximumLength = 0;  // characters
    int precision = 0;      // digits before the decimal point
    int scale = 0;          // digits behind it
};

// What stands in for a value that is too long: by `code` "B" its beginning, "E" its end, "D" the default.
struct TooLargeRule {
    std::string code;
    std::string_view defaultText = "*";
    std::string_view defaultNumber = "1";
};

// Brings the value into its column's bounds and returns true. With `showMessages` a value out of bounds stays
// as it is; what is wrong is shown and the result is false.
bool fValidateValue(std::string& value, const ColumnWidths& widths, DataType type,
                    const TooLargeRule& tooLarge, bool showMessages);

// The last step of it: a value without a digit becomes "0", one out of the type's range its nearest bound.
bool fCheckNumberRange(std::string& value, DataType type, bool showMessages);

}  // namespace vellumark
