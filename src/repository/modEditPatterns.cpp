#include "repository/modEditPatterns.h"

#include <array>
#include <cstddef>
#include <iterator>

#include "platform/text.h"
#include "repository/modConsistencyCheck.h"

namespace vellumark {

namespace {

constexpr std::size_t kTokenLength = 4;

struct TokenEntry {
    std::string_view stored;
    std::string_view readable;
};

// In the order of the enumerators. A separator's readable text is the character itself.
constexpr std::array<TokenEntry, 19> kTokens = {{
    {"Y001", "YYYY"}, {"Y002", "YY"}, {"M001", "MM"}, {"M002", "MMM"}, {"D001", "DD"},
    {"D002", "DDD"},  {"H001", "HH"}, {"I001", "MI"}, {"S001", "SS"},  {"N001", "NNNNNN"},
    {"C001", "/"},    {"C002", "-"},  {"C003", "."},  {"C004", ","},   {"C005", ";"},
    {"C006", " "},    {"C007", "_"},  {"C008", "\\"}, {"C009", ":"},
}};

std::string_view ReadableText(EditToken token) {
    return kTokens[static_cast<std::size_t>(token)].readable;
}

std::optional<EditToken> FindToken(std::string_view stored) {
    for (std::size_t i = 0; i < kTokens.size(); ++i)
        if (kTokens[i].stored == stored)
            return static_cast<EditToken>(i);
    return std::nullopt;
}

// Gathers short pieces before they go out together, since rows without number pass here.
class Pieces {
 public:
    explicit Pieces(std::string& out) : out_(out) {}
    ~Pieces() { Flush(); }
    Pieces(const Pieces&) = delete;
    Pieces& operator=(const Pieces&) = delete;

    void Character(char c) {
        MakeRoom();
        *at_++ = c;
    }
    void TwoDigits(int value) {
        MakeRoom();
        *at_++ = static_cast<char>('0' + value / 10);
        *at_++ = static_cast<char>('0' + value % 10);
    }
    void Text(std::string_view text) {
        Flush();
        out_ += text;
    }

 private:
    static constexpr std::ptrdiff_t kLongestPiece = 2;

    void MakeRoom() {
        if (std::end(pieces_) - at_ < kLongestPiece)
            Flush();
    }
    void Flush() {
        out_.append(pieces_, static_cast<std::size_t>(at_ - pieces_));
        at_ = pieces_;
    }

    std::string& out_;
    char pieces_[64];
    char* at_ = pieces_;
};

void AddDateToken(Pieces& pieces, EditToken token, const platform::Date& date) {
    switch (token) {
        case EditToken::Year:
            pieces.TwoDigits(date.year / 100);
            [[fallthrough]];
        case EditToken::ShortYear:
            return pieces.TwoDigits(date.year % 100);
        case EditToken::Month:
            return pieces.TwoDigits(date.month);
        case EditToken::MonthName:
            return pieces.Text(platform::ShortMonthName(date.month));
        case EditToken::Day:
            return pieces.TwoDigits(date.day);
        default:
            return pieces.Text(platform::ShortWeekdayName(date));
    }
}

void AddTimeToken(Pieces& pieces, EditToken token, const platform::Time& time) {
    pieces.TwoDigits(token == EditToken::Hour     ? time.hour
                     : token == EditToken::Minute ? time.minute
                                                  : time.second);
}

// Empty text is an absent part; false when there is text that is no date or no time.
bool ReadParts(std::string_view date, std::string_view time, DateTimeParts& parts) {
    parts.date = platform::ParseDate(date);
    parts.time = platform::ParseTime(time);
    return (parts.date || date.empty()) && (parts.time || time.empty());
}

bool ReadValue(char kind, std::string_view value, DateTimeParts& parts) {
    if (kind == 'D')
        return ReadParts(value, {}, parts);
    if (kind == 'T')
        return ReadParts({}, value, parts);
    parts.microseconds = platform::MiddleCharacters(value, 21, 6);
    return ReadParts(platform::MiddleCharacters(value, 1, 10), platform::MiddleCharacters(value, 12, 8),
                     parts);
}

// The parts of a value as they are read, before anyone knows whether they make sense.
struct ParsedFields {
    std::string_view century;
    std::string_view year = "2000";
    std::string_view month = "01";
    std::string_view day = "01";
    std::string_view hour = "00";
    std::string_view minute = "00";
    std::string_view second = "00";
    std::string_view microseconds = "000000";
};

// Takes characters off the left, or as many as there are.
std::string_view Take(std::string_view& text, std::size_t count) {
    const std::string_view taken = platform::LeftCharacters(text, count);
    text.remove_prefix(taken.size());
    return taken;
}

bool ReadShortYear(ParsedFields& fields, std::string_view& text, int year2000Conversion) {
    fields.year = Take(text, 2);
    const auto number = platform::ParseLong(platform::Trim(fields.year));
    if (!number)
        return false;
    fields.century = *number <= year2000Conversion ? "20" : "19";
    return true;
}

// False when the text cannot be read on.
bool ReadToken(ParsedFields& fields, EditToken token, std::string_view& text, int year2000Conversion) {
    switch (token) {
        case EditToken::Year:
            fields.century = {};
            fields.year = Take(text, 4);
            break;
        case EditToken::ShortYear:
            return ReadShortYear(fields, text, year2000Conversion);
        case EditToken::Month:
            fields.month = Take(text, 2);
            break;
        case EditToken::Day:
            fields.day = Take(text, 2);
            break;
        case EditToken::Hour:
            fields.hour = Take(text, 2);
            break;
        case EditToken::Minute:
            fields.minute = Take(text, 2);
            break;
        case EditToken::Second:
            fields.second = Take(text, 2);
            break;
        case EditToken::Microseconds:
            fields.microseconds = Take(text, 6);
            break;
        case EditToken::MonthName:
        case EditToken::WeekdayName:  // output only
            break;
        default:
            Take(text, 1);  // a separator, whatever stands there
    }
    return true;
}

void AppendDateFields(std::string& out, const ParsedFields& fields) {
    out.append(fields.century).append(fields.year).append("-");
    out.append(fields.month).append("-").append(fields.day);
}

void AppendTimeFields(std::string& out, const ParsedFields& fields) {
    out.append(fields.hour).append(":").append(fields.minute).append(":").append(fields.second);
}

void AppendFields(std::string& out, char kind, const ParsedFields& fields) {
    if (kind != 'T')
        AppendDateFields(out, fields);
    if (kind == 'S')
        out += ' ';
    if (kind != 'D')
        AppendTimeFields(out, fields);
    if (kind == 'S')
        out.append(".").append(fields.microseconds);
}

bool IsValid(char kind, std::string_view value) {
    if (kind == 'D')
        return fValidDate(value, false);
    return kind == 'T' ? fValidTime(value, false) : fValidTimestamp(value, false);
}

std::string_view FallbackValue(char kind) {
    if (kind == 'D')
        return "2000-01-01";
    return kind == 'T' ? "00:00:00" : "2000-01-01 00:00:00.000000";
}

}  // namespace

EditPattern CompileEditPattern(std::string_view pattern) {
    EditPattern compiled;
    while (!pattern.empty())
        if (const auto token = FindToken(Take(pattern, kTokenLength)))
            compiled.tokens.push_back(*token);
    return compiled;
}

void AppendFormatted(std::string& out, const EditPattern& pattern, const DateTimeParts& parts) {
    Pieces pieces(out);
    for (const EditToken token : pattern.tokens) {
        if (token > EditToken::Microseconds)
            pieces.Character(ReadableText(token)[0]);
        else if (token == EditToken::Microseconds)
            pieces.Text(parts.microseconds);
        else if (token >= EditToken::Hour) {
            if (parts.time)
                AddTimeToken(pieces, token, *parts.time);
        } else if (parts.date) {
            AddDateToken(pieces, token, *parts.date);
        }
    }
}

void AppendParsed(std::string& out, char kind, std::string_view text, const EditPattern& pattern,
                  int year2000Conversion) {
    ParsedFields fields;
    for (const EditToken token : pattern.tokens) {
        if (!ReadToken(fields, token, text, year2000Conversion)) {
            out += FallbackValue(kind);
            return;
        }
    }
    const std::size_t start = out.size();
    AppendFields(out, kind, fields);
    if (!IsValid(kind, std::string_view(out).substr(start)))
        out.replace(start, std::string::npos, FallbackValue(kind));
}

std::string EditPatternToText(std::string_view pattern) {
    std::string text;
    for (const EditToken token : CompileEditPattern(pattern).tokens)
        text += ReadableText(token);
    return text;
}

std::string FormatWithEditPattern(char kind, std::string_view value, std::string_view pattern) {
    DateTimeParts parts;
    if (!pattern.empty() && !ReadValue(kind, value, parts))
        return std::string(value);
    std::string text;
    AppendFormatted(text, CompileEditPattern(pattern), parts);
    return text;
}

std::string ParseWithEditPattern(char kind, std::string_view text, std::string_view pattern,
                                 int year2000Conversion) {
    std::string value;
    AppendParsed(value, kind, text, CompileEditPattern(pattern), year2000Conversion);
    return value;
}

}  // namespace vellumark
