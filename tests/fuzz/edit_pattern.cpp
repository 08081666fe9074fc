#include <algorithm>
#include <initializer_list>

#include "input.h"
#include "platform/text.h"
#include "repository/modConsistencyCheck.h"
#include "repository/modEditPatternScreens.h"
#include "repository/modEditPatterns.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

bool IsCanonical(char kind, std::string_view value) {
    if (kind == 'D')
        return fValidDate(value, false);
    return kind == 'T' ? fValidTime(value, false) : fValidTimestamp(value, false);
}

bool BelongsTo(char kind, EditToken token) {
    if (token > EditToken::Microseconds)
        return true;
    if (token == EditToken::Microseconds)
        return kind == 'S';
    return token >= EditToken::Hour ? kind != 'D' : kind != 'T';
}

// What such a pattern writes can be read back without loss.
bool KeepsAll(char kind, const EditPattern& pattern) {
    const auto has = [&](EditToken token) { return std::ranges::count(pattern.tokens, token) > 0; };
    if (has(EditToken::ShortYear) || has(EditToken::MonthName) || has(EditToken::WeekdayName))
        return false;
    using enum EditToken;
    for (const EditToken token : {Year, Month, Day, Hour, Minute, Second, Microseconds})
        if (BelongsTo(kind, token) != has(token))
            return false;
    return true;
}

}  // namespace

// Kind, the year 2000 option, pattern and value, each a line; the value is written by the pattern and read by
// it.
void FuzzEditPattern(std::string_view bytes) {
    Input input(bytes);
    const char kind = "DTS"[input.Choice(3)];
    const int year2000 = input.Number();
    const std::string pattern(input.Line());
    const std::string text(input.Rest());

    const EditPattern compiled = CompileEditPattern(pattern);
    Expect(compiled.tokens.size() <= pattern.size() / 4, "each token has four characters");
    Expect(EditPatternToText(pattern).size() <= compiled.tokens.size() * 6, "readable tokens are short");
    Expect(pattern.empty() || WithoutLastToken(pattern).size() < pattern.size(), "a token goes");
    EditPatternExample(kind, pattern, text);
    FormatWithEditPattern(kind, text, pattern);

    const std::string value = ParseWithEditPattern(kind, text, pattern, year2000);
    Expect(IsCanonical(kind, value), "what was read is a value: '" + value + "'");
    const std::string written = FormatWithEditPattern(kind, value, pattern);
    if (KeepsAll(kind, compiled))
        ExpectSame(ParseWithEditPattern(kind, written, pattern, year2000), value, "a value written and read");
}

}  // namespace vellumark::fuzz
