#include "input.h"

#include <algorithm>

#include "platform/text.h"

namespace vellumark::fuzz {

void Expect(bool kept, const std::string& promise) {
    if (!kept)
        throw Broken(promise);
}

void ExpectSame(std::string_view a, std::string_view b, const std::string& promise) {
    if (a != b)
        throw Broken(promise + ": '" + std::string(a) + "' and '" + std::string(b) + "'");
}

unsigned char Input::Byte() {
    const std::string_view byte = Bytes(1);
    return byte.empty() ? 0 : static_cast<unsigned char>(byte[0]);
}

std::size_t Input::Choice(std::size_t count) {
    const int place = Byte() - '0';
    return static_cast<std::size_t>(place < 0 ? place + 256 : place) % count;
}

std::string_view Input::Line() {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string_view line = Bytes(end);
    Bytes(1);
    return line;
}

int Input::Number() {
    return platform::ParseLong(Line()).value_or(0);
}

std::string_view Input::Bytes(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
}

std::vector<std::string_view> Parts(std::string_view text, std::string_view separator) {
    const std::string line = std::string(separator) + "\n";
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t at = text.find(line);
        parts.push_back(text.substr(0, at));
        if (at == text.npos)
            return parts;
        text.remove_prefix(at + line.size());
    }
}

}  // namespace vellumark::fuzz
