#include "platform/dao/jet_sql.h"

#include <algorithm>

#include "platform/text.h"

namespace vellumark::dao {

namespace {

using platform::EqualsIgnoringCase;

bool IsWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

// End of the piece that starts with a quote at `at`; a doubled quote stays inside.
std::size_t EndOfQuoted(std::string_view sql, std::size_t at, char close) {
    for (std::size_t i = at + 1; i < sql.size(); ++i) {
        if (sql[i] != close)
            continue;
        if (close != ']' && i + 1 < sql.size() && sql[i + 1] == close) {
            ++i;
            continue;
        }
        return i + 1;
    }
    return sql.size();
}

class Translator {
 public:
    explicit Translator(std::string_view sql) : sql_(sql) {}

    std::string Run() {
        while (at_ < sql_.size())
            Step();
        return std::move(out_);
    }

 private:
    void Step() {
        const char c = sql_[at_];
        if (c == '\'' || c == '"')
            Literal(c);
        else if (c == '[')
            Copy(EndOfQuoted(sql_, at_, ']'));
        else if (c == '#')
            DateLiteral();
        else if (IsWordCharacter(c))
            Word();
        else if (c == '*' && EqualsIgnoringCase(lastWord_, "delete"))
            ++at_;
        else
            Copy(at_ + 1);
    }

    void Copy(std::size_t end) {
        if (sql_[at_] != ' ' && sql_[at_] != '\r' && sql_[at_] != '\n' && sql_[at_] != '\t')
            lastWord_ = {};
        out_.append(sql_.substr(at_, end - at_));
        at_ = end;
    }

    void Literal(char quote) {
        const std::size_t end = EndOfQuoted(sql_, at_, quote);
        const bool closed = end > at_ + 1 && sql_[end - 1] == quote;
        const std::string_view inner = sql_.substr(at_ + 1, end - at_ - (closed ? 2 : 1));
        std::string text = platform::Replace(inner, std::string(2, quote), std::string(1, quote));
        if (EqualsIgnoringCase(lastWord_, "like")) {
            std::ranges::replace(text, '*', '%');
            std::ranges::replace(text, '?', '_');
        }
        out_ += '\'' + platform::Replace(text, "'", "''") + (closed ? "'" : "");
        at_ = end;
        lastWord_ = {};
    }

    void DateLiteral() {
        const std::size_t close = sql_.find('#', at_ + 1);
        if (close == std::string_view::npos)
            return Copy(at_ + 1);
        out_.append("'").append(sql_.substr(at_ + 1, close - at_ - 1)).append("'");
        at_ = close + 1;
        lastWord_ = {};
    }

    void Word() {
        std::size_t end = at_;
        while (end < sql_.size() && IsWordCharacter(sql_[end]))
            ++end;
        const std::string_view word = sql_.substr(at_, end - at_);
        if (EqualsIgnoringCase(word, "true"))
            out_ += "-1";
        else if (EqualsIgnoringCase(word, "false"))
            out_ += "0";
        else
            out_.append(word);
        lastWord_ = word;
        at_ = end;
    }

    std::string_view sql_;
    std::size_t at_ = 0;
    std::string_view lastWord_;
    std::string out_;
};

}  // namespace

std::string TranslateJetSql(std::string_view sql) {
    return Translator(sql).Run();
}

std::string Bracketed(std::string_view name) {
    // A closing bracket can't be escaped between brackets; double quotes can carry any name.
    if (name.find(']') != std::string_view::npos)
        return '"' + platform::Replace(name, "\"", "\"\"") + '"';
    return '[' + std::string(name) + ']';
}

}  // namespace vellumark::dao
