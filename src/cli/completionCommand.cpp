#include <iostream>
#include <map>

#include "cli/commandTree.h"
#include "cli/commands.h"
#include "platform/text.h"

namespace vellumark {

namespace {

// Both shells walk the same two lists of cases; they differ in how words and files are offered.
constexpr std::string_view kBashHead = R"(# Completion for bash, made by "vellumark-cli completion bash".

_vellumark_cli_offer() {
    local word
    for word in "$@"; do
        [[ $word == "$current"* ]] || continue
        [ -n "$quote" ] || printf -v word %q "$word"
        COMPREPLY+=("$word")
    done
}

_vellumark_cli_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
}

_vellumark_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} place= quote= i
    if [ "$current" = = ]; then
        current=
    elif [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $current in
        [\"\']*) quote=${current:0:1} current=${current:1} ;;
        *) current=${current//\\/} ;;
    esac
    for ((i = 1; i < COMP_CWORD; i++)); do
        case "$place ${COMP_WORDS[i]}" in
            PLACES) place+=" ${COMP_WORDS[i]}" ;;
        esac
    done
    COMPREPLY=()
)";

constexpr std::string_view kBashTail = R"(}

complete -F _vellumark_cli vellumark-cli
)";

constexpr std::string_view kZshHead = R"(#compdef vellumark-cli
# Completion for zsh, made by "vellumark-cli completion zsh".

_vellumark_cli_offer() { compadd -- "$@" }
_vellumark_cli_files() { _files }

_vellumark_cli() {
    local current=$words[CURRENT] previous=$words[CURRENT-1] place= i
    for ((i = 2; i < CURRENT; i++)); do
        case "$place $words[i]" in
            PLACES) place+=" $words[i]" ;;
        esac
    done
)";

constexpr std::string_view kZshTail = R"(}

_vellumark_cli "$@"
)";

std::string Quoted(std::string_view word) {
    return "'" + platform::Replace(word, "'", "'\\''") + "'";
}

std::string Joined(const std::vector<std::string>& words, std::string_view between) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : std::string(between)) + Quoted(word);
    return text;
}

std::string OfferFor(const WordOption& option) {
    if (option.TakesPath())
        return "_vellumark_cli_files";
    return option.choices.empty() ? "" : "_vellumark_cli_offer " + Joined(option.choices, " ");
}

// What stands behind an option that takes a value, by what is offered then: files, words or nothing. Options
// of the program itself go with every command.
std::string OptionCases(const WordCommand& command) {
    std::map<std::string, std::string> patterns;
    for (const WordOption& option : command.options)
        for (const std::string& name : option.names)
            if (!option.isPositional && !option.value.empty()) {
                std::string& pattern = patterns[OfferFor(option)];
                pattern += (pattern.empty() ? "" : " | ") + std::string(command.path.empty() ? "*" : "") +
                           Quoted(command.path + " " + name);
            }
    std::string text;
    for (const auto& [offer, pattern] : patterns)
        text += "        " + pattern + ") " + offer + (offer.empty() ? "" : "; ") + "return ;;\n";
    return text;
}

std::string WordCase(const WordCommand& command, const std::vector<std::string>& everywhere) {
    std::vector<std::string> words = command.subcommands;
    std::string files;
    for (const WordOption& option : command.options) {
        if (option.isPositional && option.TakesPath())
            files = "; [[ $current = -* ]] || _vellumark_cli_files";
        if (option.isPositional && !option.choices.empty())
            words.insert(words.end(), option.choices.begin(), option.choices.end());
        if (!option.isPositional)
            words.push_back(option.names.back());
    }
    if (!command.path.empty())
        words.insert(words.end(), everywhere.begin(), everywhere.end());
    return "        " + Quoted(command.path) + ") _vellumark_cli_offer " + Joined(words, " ") + files +
           " ;;\n";
}

std::vector<std::string> OptionsOfAll(const WordCommand& program) {
    std::vector<std::string> names;
    for (const WordOption& option : program.options)
        if (option.names.back() != "--help" && option.names.back() != "--version")
            names.push_back(option.names.back());
    return names;
}

std::string Completion(const CLI::App& app, std::string_view head, std::string_view tail) {
    const std::vector<WordCommand> commands = CommandTree(app);
    const std::vector<std::string> everywhere = OptionsOfAll(commands.front());
    std::vector<std::string> places;
    std::string behindOptions, words;
    for (const WordCommand& command : commands) {
        if (!command.path.empty())
            places.push_back(command.path);
        behindOptions += OptionCases(command);
        words += WordCase(command, everywhere);
    }
    return platform::Replace(head, "PLACES", Joined(places, " | ")) + "    case \"$place $previous\" in\n" +
           behindOptions + "    esac\n    case $place in\n" + words + "    esac\n" + std::string(tail);
}

bool Print(const std::string& text) {
    std::cout << text;
    return static_cast<bool>(std::cout.flush());
}

}  // namespace

void AddCompletionCommand(CLI::App& app, CommandLine& line) {
    CLI::App* completion = app.add_subcommand("completion", "Print what lets a shell complete these words");
    completion->require_subcommand(1);
    const auto add = [&](const char* shell, const char* help, std::string_view head, std::string_view tail) {
        completion->add_subcommand(shell, help)->callback([&app, &line, head, tail] {
            line.needsSession = false;
            line.run = [&app, head, tail] { return Print(Completion(app, head, tail)); };
        });
    };
    add("bash", "For bash: source it", kBashHead, kBashTail);
    add("zsh", "For zsh: put it into the fpath as _vellumark-cli", kZshHead, kZshTail);
}

}  // namespace vellumark
