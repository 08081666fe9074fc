#include "tools/plainSelect.h"

#include <algorithm>

#include "platform/text.h"

namespace vellumark {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

class Words {
 public:
    explicit Words(std::string_view text) : text_(text) { SkipBlanks(); }

    std::size_t Place() const { return at_; }
    std::string_view Rest() const { return text_.substr(at_); }

    bool Take(std::string_view word) {
        if (!platform::StartsWithIgnoringCase(Rest(), word))
            return false;
        at_ += word.size();
        SkipBlanks();
        return true;
    }

    // A name as it stands in the database; nothing when there is none.
    std::optional<std::string> TakeName() {
        for (const std::string_view quotes : {"[]", "\"\"", "``"})
            if (Rest().starts_with(quotes.front()))
                return TakeQuoted(quotes.back());
        const std::size_t end = text_.find_first_of(" \t\r\n.,;()", at_);
        return TakeUntil(std::min(end, text_.size()), 0);
    }

 private:
    std::optional<std::string> TakeQuoted(char close) {
        ++at_;
        const std::size_t end = text_.find(close, at_);
        return end == text_.npos ? std::nullopt : TakeUntil(end, 1);
    }

    std::optional<std::string> TakeUntil(std::size_t end, std::size_t behind) {
        if (end == at_)
            return std::nullopt;
        std::string name(text_.substr(at_, end - at_));
        at_ = end + behind;
        SkipBlanks();
        return name;
    }

    void SkipBlanks() { at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size()); }

    std::string_view text_;
    std::size_t at_ = 0;
};

// Whether what follows the table only chooses and sorts its rows.
bool OnlyChooses(std::string_view rest) {
    if (rest.empty() || rest == ";")
        return true;
    for (const std::string_view word : {"union", "intersect", "except", "group by", "having", " into "})
        if (platform::ContainsIgnoringCase(rest, word))
            return false;
    return platform::StartsWithIgnoringCase(rest, "where") ||
           platform::StartsWithIgnoringCase(rest, "order by") ||
           platform::StartsWithIgnoringCase(rest, "limit");
}

}  // namespace

std::optional<PlainSelect> ReadPlainSelect(std::string_view sql) {
    Words words(sql);
    PlainSelect select;
    if (!words.Take("select"))
        return std::nullopt;
    select.listAt = words.Place();
    if (!words.Take("*") || !words.Take("from"))
        return std::nullopt;
    std::optional<std::string> name = words.TakeName();
    if (name && words.Take(".")) {
        select.owner = *name;
        name = words.TakeName();
    }
    if (!name || !OnlyChooses(words.Rest()))
        return std::nullopt;
    select.table = *name;
    return select;
}

}  // namespace vellumark
