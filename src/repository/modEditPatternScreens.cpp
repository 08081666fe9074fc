#include "repository/modEditPatternScreens.h"

#include "platform/text.h"
#include "repository/modEditPatterns.h"

namespace vellumark {

namespace {

constexpr std::size_t kTokenLength = 4;

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> words) {
    for (const std::string_view word : words)
        if (text == word)
            return true;
    return false;
}

}  // namespace

char EditPatternKind(std::string_view caller) {
    if (IsOneOf(caller, {"cmdITFDate", "cmdOTFDate", "cmdVSDateEdPatD"}))
        return 'D';
    return IsOneOf(caller, {"cmdITFTime", "cmdOTFTime", "cmdVSDateEdPatT"}) ? 'T' : 'S';
}

bool IsValueSourceCaller(std::string_view caller) {
    return IsOneOf(caller, {"cmdVSDateEdPatD", "cmdVSDateEdPatT", "cmdVSDateEdPatP"});
}

bool OffersNames(std::string_view caller) {
    return IsOneOf(caller, {"cmdOTFDate", "cmdOTFTstamp", "cmdColEditPat"});
}

std::vector<std::string> EditPatternChoices(std::string_view button) {
    if (button == "cmdYear")
        return {"Y001", "Y002"};
    if (button == "cmdMonth")
        return {"M001", "M002"};
    if (button == "cmdDay")
        return {"D001", "D002"};
    if (button == "cmdSeparator")
        return {"C001", "C002", "C003", "C004", "C005", "C006", "C007", "C008", "C009"};
    return {};
}

std::string WithoutLastToken(std::string_view pattern) {
    const std::size_t length = platform::CharacterCount(pattern);
    return std::string(platform::LeftCharacters(pattern, length < kTokenLength ? 0 : length - kTokenLength));
}

std::string EditPatternExample(char kind, std::string_view pattern, std::string_view now) {
    const std::string date(platform::MiddleCharacters(now, 1, 10));
    const std::string time(platform::MiddleCharacters(now, 12, 8));
    if (kind == 'D')
        return "System date = '" + FormatWithEditPattern('D', date, pattern) + "'";
    if (kind == 'T')
        return "System time = '" + FormatWithEditPattern('T', time, pattern) + "'";
    const std::string timestamp = date + "-" + time + ".000000";
    return "System timestamp = '" + FormatWithEditPattern('S', timestamp, pattern) + "'";
}

}  // namespace vellumark
