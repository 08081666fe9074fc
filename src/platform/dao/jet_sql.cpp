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

// The quote that closes the one at `at`, or the end; a doubled quote stays inside.
std::size_t ClosingQuote(std::string_view sql, std::size_t at) {
    const char quote = sql[at];
    for (at = sql.find(quote, at + 1); at < sql.size(); at = sql.find(quote, at + 2))
        if (!sql.substr(at + 1).starts_with(quote))
            return at;
    return sql.size();
}

// End of the comment that starts at `at`, or `at` itself when none does.
std::size_t EndOfComment(std::string_view sql, std::size_t at) {
    const std::string_view start = sql.substr(at, 2);
    if (start != "--" && start != "/*")
        return at;
    const std::string_view close = start == "--" ? "\n" : "*/";
    const std::size_t end = sql.find(close, at + 2);
    return end == sql.npos ? sql.size() : end + close.size();
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
        const std::size_t behindComment = EndOfComment(sql_, at_);
        if (behindComment > at_)
            CopyComment(behindComment);
        else if (c == '\'' || c == '"')
            Literal(c);
        else if (c == '[')
            Copy(EndOfName());
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

    void CopyComment(std::size_t end) {
        out_.append(sql_.substr(at_, end - at_));
        at_ = end;
    }

    // In brackets; a bracket that isn't closed takes all.
    std::size_t EndOfName() const {
        const std::size_t close = sql_.find(']', at_);
        return close == std::string_view::npos ? sql_.size() : close + 1;
    }

    void Literal(char quote) {
        const std::size_t close = ClosingQuote(sql_, at_);
        const bool closed = close < sql_.size();
        const std::string_view inner = sql_.substr(at_ + 1, close - at_ - 1);
        AppendText(platform::Replace(inner, std::string(2, quote), std::string(1, quote)), closed);
        at_ = close + (closed ? 1 : 0);
    }

    void DateLiteral() {
        const std::size_t close = sql_.find('#', at_ + 1);
        if (close == std::string_view::npos)
            return Copy(at_ + 1);
        AppendText(std::string(sql_.substr(at_ + 1, close - at_ - 1)), true);
        at_ = close + 1;
    }

    void AppendText(std::string text, bool closed) {
        if (EqualsIgnoringCase(lastWord_, "like")) {
            std::ranges::replace(text, '*', '%');
            std::ranges::replace(text, '?', '_');
        }
        if (out_.ends_with('\''))  // two texts must not become one
            out_ += ' ';
        out_ += '\'' + platform::Replace(text, "'", "''") + (closed ? "'" : "");
        lastWord_ = {};
    }

    void Word() {
        std::size_t end = at_;
        while (end < sql_.size() && IsWordCharacter(sql_[end]))
            ++end;
        const std::string_view word = sql_.substr(at_, end - at_);
        if (EqualsIgnoringCase(word, "true"))
            out_ += out_.ends_with('-') ? " -1" : "-1";  // two dashes would start a comment
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
