#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Text is UTF-8. A character is a Unicode code point; a byte that is no valid UTF-8 counts as one.
namespace vellumark::platform {

std::size_t CharacterCount(std::string_view text);
std::string_view LeftCharacters(std::string_view text, std::size_t count);
std::string_view RightCharacters(std::string_view text, std::size_t count);
// `count` characters from the character at `first`, counted from 1; less when the text is shorter.
std::string_view MiddleCharacters(std::string_view text, std::size_t first, std::size_t count);

// Case is ASCII case, as in the stores.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
bool LessIgnoringCase(std::string_view a, std::string_view b);
bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix);
bool ContainsIgnoringCase(std::string_view text, std::string_view part);
constexpr char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

// Blanks only, at both ends.
std::string_view Trim(std::string_view text);
std::vector<std::string_view> Split(std::string_view text, char separator);
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

// The whole text as a 32-bit integer, or nothing.
std::optional<int> ParseLong(std::string_view text);

}  // namespace vellumark::platform
