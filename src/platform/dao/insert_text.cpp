#include "platform/dao/insert_text.h"

#include <charconv>

#include "platform/text.h"

namespace vellumark::dao {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

class HeadReader {
 public:
    explicit HeadReader(std::string_view statement) : all_(statement), rest_(statement) {}

    std::optional<InsertHead> Read() {
        InsertHead head;
        if (!TakeWord("insert") || !TakeWord("into") || !TakeName(head.table))
            return std::nullopt;
        if (Take('(') && !TakeColumns(head.columns))
            return std::nullopt;
        if (!TakeWord("values") || !Take('('))
            return std::nullopt;
        head.text = all_.substr(0, all_.size() - rest_.size());
        return head;
    }

 private:
    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size())); }

    bool Take(char wanted) {
        SkipBlanks();
        if (!rest_.starts_with(wanted))
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool TakeWord(std::string_view wanted) {
        SkipBlanks();
        const std::size_t end = std::min(rest_.find_first_of(" \t\r\n(["), rest_.size());
        if (!platform::EqualsIgnoringCase(rest_.substr(0, end), wanted))
            return false;
        rest_.remove_prefix(end);
        return true;
    }

    bool TakeColumns(std::vector<std::string_view>& columns) {
        do {
            if (!TakeName(columns.emplace_back()))
                return false;
        } while (Take(','));
        return Take(')');
    }

    // A name between brackets or quotes, or up to what can't be part of one.
    bool TakeName(std::string_view& name) {
        SkipBlanks();
        const char first = rest_.empty() ? '\0' : rest_.front();
        const bool isQuoted = first == '[' || first == '"';
        if (isQuoted)
            rest_.remove_prefix(1);
        const std::size_t end =
            isQuoted ? rest_.find(first == '[' ? ']' : '"') : rest_.find_first_of(" \t\r\n(),'\"[];");
        if (end == rest_.npos || end == 0)
            return false;
        name = rest_.substr(0, end);
        rest_.remove_prefix(end + (isQuoted ? 1 : 0));
        return true;
    }

    std::string_view all_;
    std::string_view rest_;
};

}  // namespace

std::optional<InsertHead> ParseInsertHead(std::string_view statement) {
    return HeadReader(statement).Read();
}

bool LiteralReader::Read(Literal& literal) {
    int depth = 0;
    while (Take('('))
        ++depth;
    if (!ReadBare(literal))
        return false;
    for (; depth > 0; --depth)
        if (!Take(')'))
            return false;
    return true;
}

bool LiteralReader::TakeEnd() {
    if (!Take(')'))
        return false;
    SkipBlanks();
    return rest_.empty();
}

void LiteralReader::SkipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

bool LiteralReader::Take(char wanted) {
    SkipBlanks();
    if (!rest_.starts_with(wanted))
        return false;
    rest_.remove_prefix(1);
    return true;
}

bool LiteralReader::ReadBare(Literal& literal) {
    if (rest_.starts_with('\''))
        return ReadText(literal);
    return ReadNumber(literal) || ReadWord(literal);
}

bool LiteralReader::ReadText(Literal& literal) {
    literal.kind = Literal::Kind::Text;
    literal.hasDoubledQuote = false;
    std::size_t end = 1;
    while ((end = rest_.find('\'', end)) != rest_.npos && rest_.substr(end, 2) == "''") {
        literal.hasDoubledQuote = true;
        end += 2;
    }
    if (end == rest_.npos)
        return false;
    literal.text = rest_.substr(1, end - 1);
    rest_.remove_prefix(end + 1);
    return true;
}

bool LiteralReader::ReadNumber(Literal& literal) {
    const std::string_view start = rest_.substr(0, rest_.find_first_of(",) \t\r\n"));
    const std::size_t sign = start.starts_with('-') || start.starts_with('+') ? 1 : 0;
    if (start.size() <= sign || !(IsDigit(start[sign]) || start[sign] == '.'))
        return false;
    const char* const first = start.data() + (start.front() == '+' ? 1 : 0);
    const char* const last = start.data() + start.size();
    literal.kind = Literal::Kind::Integer;
    const auto integer = std::from_chars(first, last, literal.integer);
    if (integer.ec != std::errc{} || integer.ptr != last) {
        literal.kind = Literal::Kind::Real;
        const auto real = std::from_chars(first, last, literal.real);
        if (real.ec != std::errc{} || real.ptr != last)
            return false;
    }
    rest_.remove_prefix(start.size());
    return true;
}

bool LiteralReader::ReadWord(Literal& literal) {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(",) \t\r\n"));
    const bool isTrue = platform::EqualsIgnoringCase(word, "true");
    if (platform::EqualsIgnoringCase(word, "null")) {
        literal.kind = Literal::Kind::Null;
    } else if (isTrue || platform::EqualsIgnoringCase(word, "false")) {
        literal.kind = Literal::Kind::Integer;
        literal.integer = isTrue ? -1 : 0;
    } else {
        return false;
    }
    rest_.remove_prefix(word.size());
    return true;
}

}  // namespace vellumark::dao
