#include "platform/connection_string.h"

#include <algorithm>

#include "platform/text.h"

namespace vellumark::platform {

namespace {

// Takes the text up to the next semicolon off the front, and the semicolon.
std::string TakePlainValue(std::string_view& text) {
    const std::size_t end = text.find(';');
    const std::string value(Trim(text.substr(0, end)));
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    return value;
}

// Behind the brace that closes, or npos.
std::size_t EndOfBraces(std::string_view text, std::size_t at) {
    while ((at = text.find('}', at)) != text.npos && text.substr(at, 2) == "}}")
        at += 2;
    return at == text.npos ? at : at + 1;
}

std::string TakeBracedValue(std::string_view& text) {
    std::string value;
    std::size_t at = 1;
    for (; at < text.size(); ++at) {
        if (text[at] == '}' && text.substr(at, 2) != "}}")
            break;
        if (text[at] == '}')
            ++at;
        value += text[at];
    }
    text.remove_prefix(std::min(at + 1, text.size()));
    TakePlainValue(text);
    return value;
}

// The value as it stands in `text`, which may end with a semicolon. A brace left open would take in whatever
// is put behind it.
std::string WrittenIn(std::string_view text, std::string_view value) {
    if (text.starts_with('{') && EndOfBraces(text, 1) == text.npos)
        return WrittenValue(value);
    text.remove_suffix(text.ends_with(';') ? 1 : 0);
    return std::string(Trim(text));
}

// The places behind a password's key where its value starts and ends; both at the end when there is no key
// any more.
struct Stretch {
    std::size_t begin;
    std::size_t end;
};

Stretch FindPassword(std::string_view text, std::string_view lower, std::size_t from) {
    for (; from < text.size(); ++from) {
        const std::string_view rest = lower.substr(from);
        const std::size_t key = rest.starts_with("pwd") ? 3 : rest.starts_with("password") ? 8 : 0;
        if (key == 0)
            continue;
        std::size_t at = std::min(text.find_first_not_of(' ', from + key), text.size());
        if (text.substr(at, 1) != "=")
            continue;
        at = std::min(text.find_first_not_of(' ', at + 1), text.size());
        if (text.substr(at, 1) == "{")
            return {at, std::min(EndOfBraces(text, at + 1), text.size())};
        return {at, std::min(text.find_first_of(";\n", at), text.size())};
    }
    return {text.size(), text.size()};
}

bool IsPasswordKey(std::string_view key) {
    return EqualsIgnoringCase(key, "PWD") || EqualsIgnoringCase(key, "Password");
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) {
    while (!text.empty()) {
        const std::size_t keyEnd = text.find_first_of("=;");
        if (keyEnd == text.npos)
            return;
        const std::string key(Trim(text.substr(0, keyEnd)));
        const bool hasValue = text[keyEnd] == '=';
        text.remove_prefix(keyEnd + 1);
        if (!hasValue)
            continue;
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        const std::string_view rest = text;
        std::string value = text.starts_with('{') ? TakeBracedValue(text) : TakePlainValue(text);
        std::string written = WrittenIn(rest.substr(0, rest.size() - text.size()), value);
        parts_.push_back({key, std::move(value), std::move(written)});
    }
}

const std::string& ConnectionString::Value(std::string_view key) const {
    static const std::string missing;
    const auto found =
        std::ranges::find_if(parts_, [&](const Part& part) { return EqualsIgnoringCase(part.key, key); });
    return found == parts_.end() ? missing : found->value;
}

std::string WrittenValue(std::string_view value) {
    const bool plain = value.find_first_of(";{}") == value.npos && Trim(value) == value;
    return plain ? std::string(value) : '{' + Replace(value, "}", "}}") + '}';
}

std::string MaskPasswords(std::string_view text) {
    const std::string lower = ToLower(text);
    std::string masked;
    for (std::size_t from = 0; from < text.size();) {
        const Stretch password = FindPassword(text, lower, from);
        masked.append(text.substr(from, password.begin - from));
        if (password.end > password.begin)
            masked.append("***");
        from = password.end;
    }
    return masked;
}

std::string MaskPasswords(std::string_view text, std::string_view connectionString) {
    constexpr std::size_t kShortestTold = 4;
    const ConnectionString parts(connectionString);
    std::string masked(text);
    for (const ConnectionString::Part& part : parts.Parts())
        if (IsPasswordKey(part.key))
            for (const std::string& secret : {part.written, part.value})
                if (secret.size() >= kShortestTold)
                    masked = Replace(masked, secret, "***");
    return MaskPasswords(masked);
}

}  // namespace vellumark::platform
