#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/calendar.h"

// The small language that says how dates, times and timestamps are written. A stored pattern is a run of
// four-character tokens. Kinds are 'D' date, 'T' time and 'S' timestamp; canonical texts are "YYYY-MM-DD",
// "HH:MM:SS" and "YYYY-MM-DD HH:MM:SS.NNNNNN". Nothing here shows an error.
namespace vellumark {

enum class EditToken : unsigned char {
    Year,
    ShortYear,
    Month,
    MonthName,
    Day,
    WeekdayName,
    Hour,
    Minute,
    Second,
    Microseconds,
    Slash,
    Dash,
    Point,
    Comma,
    Semicolon,
    Blank,
    Underscore,
    Backslash,
    Colon,
};

// A pattern read once, for use on many rows.
struct EditPattern {
    std::vector<EditToken> tokens;
};

// Unknown tokens are left out.
EditPattern CompileEditPattern(std::string_view pattern);

// What a value consists of; tokens of an absent part add nothing.
struct DateTimeParts {
    std::optional<platform::Date> date;
    std::optional<platform::Time> time;
    std::string_view microseconds;
};

void AppendFormatted(std::string& out, const EditPattern& pattern, const DateTimeParts& parts);

// Takes `text` apart and appends the canonical text; a result that is no valid value becomes "2000-01-01",
// "00:00:00" or both with ".000000". Two-digit years up to `year2000Conversion` belong to 20xx.
void AppendParsed(std::string& out, char kind, std::string_view text, const EditPattern& pattern,
                  int year2000Conversion);

// The form that people read, such as "YYYY-MM-DD".
std::string EditPatternToText(std::string_view pattern);

// A value that is none of its kind is given back as it stands.
std::string FormatWithEditPattern(char kind, std::string_view value, std::string_view pattern);

std::string ParseWithEditPattern(char kind, std::string_view text, std::string_view pattern,
                                 int year2000Conversion);

}  // namespace vellumark
