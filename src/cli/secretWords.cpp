#include "cli/secretWords.h"

#include <array>
#include <cstring>

#include "platform/connection_string.h"
#include "platform/text.h"

namespace vellumark {

namespace {

constexpr std::array<std::string_view, 2> kSecretOptions = {"--password", "--connection-string"};

// Where in the word at `at` a secret starts: behind its option's "=", at 0 when the option stands before it,
// or npos. A mistyped option may hold one as well.
std::size_t SecretAt(const std::vector<std::string>& words, std::size_t at) {
    for (const std::string_view option : kSecretOptions) {
        if (at > 0 && words[at - 1] == option)
            return 0;
        if (words[at].starts_with(option) && words[at].substr(option.size(), 1) == "=")
            return option.size() + 1;
    }
    return platform::MaskPasswords(words[at]) == words[at] ? std::string::npos : 0;
}

}  // namespace

std::vector<std::string> TakeWords(int argc, char** argv) {
    std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::size_t at = SecretAt(words, i);
        if (at != std::string::npos)
            std::memset(argv[i + 1] + at, '*', words[i].size() - at);
    }
    return words;
}

std::string WithoutSecrets(std::string text, const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::size_t at = SecretAt(words, i);
        if (at != std::string::npos && at < words[i].size())
            text = platform::Replace(text, std::string_view(words[i]).substr(at), "***");
    }
    return text;
}

}  // namespace vellumark
