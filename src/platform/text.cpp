#include "platform/text.h"

#include <algorithm>
#include <charconv>

namespace vellumark::platform {

namespace {

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Bytes of the character at `at`; 1 when the bytes there are no valid sequence.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
    if (at + length > text.size())
        return 1;
    for (std::size_t i = 1; i < length; ++i)
        if (!IsContinuation(text[at + i]))
            return 1;
    return length;
}

// Byte offset behind `count` characters from `from`.
std::size_t Advance(std::string_view text, std::size_t from, std::size_t count) {
    std::size_t at = from;
    for (; count > 0 && at < text.size(); --count)
        at += CharacterLength(text, at);
    return at;
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
        at += CharacterLength(text, at);
    return count;
}

std::string_view LeftCharacters(std::string_view text, std::size_t count) {
    return text.substr(0, Advance(text, 0, count));
}

std::string_view RightCharacters(std::string_view text, std::size_t count) {
    const std::size_t total = CharacterCount(text);
    return total <= count ? text : text.substr(Advance(text, 0, total - count));
}

std::string_view MiddleCharacters(std::string_view text, std::size_t first, std::size_t count) {
    const std::size_t from = Advance(text, 0, first > 0 ? first - 1 : 0);
    return text.substr(from, Advance(text, from, count) - from);
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, LowerCase, LowerCase);
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::lexicographical_compare(a, b, {}, LowerCase, LowerCase);
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return EqualsIgnoringCase(text.substr(0, prefix.size()), prefix);
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
    const auto same = [](char a, char b) { return LowerCase(a) == LowerCase(b); };
    return part.empty() ||
           std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

std::string ToUpper(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), UpperCase);
    return result;
}

std::string ToLower(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), LowerCase);
    return result;
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == std::string_view::npos)
            return parts;
        text.remove_prefix(at + 1);
    }
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    for (std::size_t at; (at = text.find(from)) != std::string_view::npos;
         text.remove_prefix(at + from.size()))
        result.append(text.substr(0, at)).append(to);
    return result.append(text);
}

std::optional<int> ParseLong(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || text.empty())
        return std::nullopt;
    return value;
}

}  // namespace vellumark::platform
