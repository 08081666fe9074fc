#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace vellumark {

// One option or positional of a command, as its help tells it.
struct WordOption {
    std::vector<std::string> names;  // with their dashes; a positional has one name without
    std::string value;               // the kind of value it takes; empty for a flag
    std::vector<std::string> choices;
    std::string preset;
    std::string help;
    bool isPositional = false;
    bool isRequired = false;

    bool TakesPath() const { return value == "FILE" || value == "FOLDER" || value == "PATH"; }
};

struct WordCommand {
    std::string path;  // " rule add": each word behind a blank; empty for the program itself
    std::string help;
    std::vector<WordOption> options;
    std::vector<std::string> subcommands;
};

// The program and all its commands, each ahead of its subcommands, without those that are hidden.
std::vector<WordCommand> CommandTree(const CLI::App& app);

}  // namespace vellumark
