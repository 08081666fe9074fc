#include <algorithm>

#include "input.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modConsistencyCheck.h"
#include "repository/modJetTextValues.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modValueValidation.h"
#include "scene.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

bool IsNumeric(DataType type) {
    return type >= DataType::Integer && type <= DataType::Double;
}

std::ptrdiff_t LettersIn(std::string_view text) {
    return std::ranges::count_if(text, [](char c) { return c != ' '; });
}

void CheckParts(std::string_view value, std::size_t at) {
    using platform::CharacterCount;
    const std::string_view left = platform::LeftCharacters(value, at);
    const std::string_view right = platform::MiddleCharacters(value, at + 1, value.size());
    ExpectSame(std::string(left) + std::string(right), value, "a text cut in two");
    Expect(CharacterCount(left) <= at, "no more characters than wanted");
    ExpectSame(platform::RightCharacters(value, CharacterCount(right)), right, "the right characters");
    ExpectSame(platform::ToLower(platform::ToUpper(value)), platform::ToLower(value), "letters");
    const std::string swapped = SwapParenthesised(value);
    Expect(LettersIn(swapped) == LettersIn(value), "swapping moves blanks only: " + swapped);
    StripOuterCharacters(value);
}

// A field of a text file for columns of every type.
void CheckConverters(std::string_view value) {
    for (const char* declared :
         {"YESNO", "BYTE", "SHORT", "LONG", "BIGINT", "CURRENCY", "SINGLE", "DOUBLE", "DECIMAL(10,2)", "DATE",
          "DATETIME", "TIME", "TEXT(10)", "MEMO", "LONGBINARY", "BINARY(4)", "GUID"}) {
        try {
            if (const TextConverter convert = ConverterFor(dao::ReadDeclaredType(declared)))
                convert(value);
        } catch (const platform::Error& error) {
            Expect(error.Number() == platform::kTypeMismatch || error.Number() == platform::kOverflow,
                   "only those two: " + error.Line());
        }
    }
}

}  // namespace

// Data type, what becomes of values too large, the three widths, and the value.
void FuzzValueCheck(std::string_view bytes) {
    CountingDialogs& dialogs = UseCountingDialogs();
    Input input(bytes);
    const auto type = static_cast<DataType>(input.Choice(14));
    const TooLargeRule rule{std::string(1, "BED"[input.Choice(3)]), "?", "7"};
    ColumnWidths widths;
    widths.maximumLength = input.Number();
    widths.precision = input.Number();
    widths.scale = input.Number();
    const std::string text(input.Rest());

    CheckParts(text, static_cast<std::size_t>(widths.precision % 16 + 16) % 16);
    CheckConverters(text);
    for (const bool showMessage : {false, true}) {
        fValidDate(text, showMessage);
        fValidTime(text, showMessage);
        fValidTimestamp(text, showMessage);
    }
    dialogs.shown = 0;
    std::string typed = text;
    const bool taken = fValidateValue(typed, widths, type, rule, true);
    Expect(taken == (dialogs.shown == 0), "a value is taken, or refused with one message");
    std::string value = text;
    Expect(fValidateValue(value, widths, type, rule, false), "a run takes every value");
    if (type == DataType::Character)
        Expect(platform::CharacterCount(value) <= static_cast<std::size_t>(std::max(widths.maximumLength, 0)),
               "no text is longer than its column");
    if (IsNumeric(type)) {
        Expect(value.find('E') != value.npos || fValidNumber(value, type, DecimalPointCharacter),
               "a number: '" + value + "'");
        std::string again = value;
        Expect(fCheckNumberRange(again, type, false), "in its range");
    }
}

}  // namespace vellumark::fuzz
