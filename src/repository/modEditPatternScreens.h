#pragma once

#include <string>
#include <string_view>
#include <vector>

// What the screens that build an Edit pattern go by, and the variables through which they and their callers
// speak.
namespace vellumark {

// Before the screen: the name of the button that calls it. Behind it: kPatternTaken or kPatternLeft.
inline std::string EditPatternCaller;
inline constexpr std::string_view kPatternTaken = "cmdUEPOk";
inline constexpr std::string_view kPatternLeft = "cmdUEPCancel";

// The pattern in stored form, in and out; the new one of a Value Source comes out by itself.
inline std::string EditPatternText;
inline std::string ValueSourcePatternText;

// The button that asks for a selection, and the token selected or empty text.
inline std::string EditPatternChoice;
inline std::string EditPatternToken;

// 'D', 'T' or 'S' for the buttons that are known; any other edits a timestamp.
char EditPatternKind(std::string_view caller);
bool IsValueSourceCaller(std::string_view caller);
// Names of months and weekdays can be written, but not read.
bool OffersNames(std::string_view caller);

// The tokens in stored form among which the button lets the user choose.
std::vector<std::string> EditPatternChoices(std::string_view button);

std::string WithoutLastToken(std::string_view pattern);

// The moment `now`, as LocalNow gives it, written in the pattern: "System date = '2001-05-31'".
std::string EditPatternExample(char kind, std::string_view pattern, std::string_view now);

}  // namespace vellumark
