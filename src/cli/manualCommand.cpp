#include <iostream>

#include "cli/commandTree.h"
#include "cli/commands.h"
#include "platform/text.h"

namespace vellumark {

namespace {

std::string Escaped(std::string_view text) {
    std::string escaped = platform::Replace(platform::Replace(text, "\\", "\\e"), "-", "\\-");
    return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

std::string Bold(std::string_view text) {
    return "\\fB" + Escaped(text) + "\\fR";
}

std::string Italic(std::string_view text) {
    return "\\fI" + Escaped(text) + "\\fR";
}

std::string Sentence(std::string_view text) {
    return text.empty() ? "" : Escaped(text) + ".\n";
}

std::string ChoiceText(const WordOption& option) {
    std::string text;
    for (const std::string& choice : option.choices)
        text += (text.empty() ? "One of " : ", ") + Bold(choice) +
                (choice == option.preset ? " (the default)" : "");
    return text.empty() ? "" : text + ".\n";
}

std::string OptionText(const WordOption& option) {
    std::string head;
    for (const std::string& name : option.names)
        head += (head.empty() ? "" : ", ") + (option.isPositional ? Italic(name) : Bold(name));
    if (!option.isPositional && !option.value.empty())
        head += " " + Italic(option.choices.empty() ? option.value : "WORD");
    return ".TP\n" + head + "\n" + Sentence(option.help) + ChoiceText(option);
}

bool IsWorthTelling(const WordOption& option) {
    return option.names.back() != "--help";
}

std::string CommandText(const WordCommand& command) {
    std::string head = Bold(command.path.substr(1)), options;
    for (const WordOption& option : command.options) {
        if (option.isPositional)
            head += " " + Italic(option.names.back());
        if (IsWorthTelling(option))
            options += OptionText(option);
    }
    return ".SS " + head + "\n" + Sentence(command.help) + options;
}

bool PrintManual(const CLI::App& app) {
    const std::vector<WordCommand> commands = CommandTree(app);
    std::cout << ".SH OPTIONS\nThese go with every command.\n";
    for (const WordOption& option : commands.front().options)
        std::cout << OptionText(option);
    std::cout << ".SH COMMANDS\n";
    for (const WordCommand& command : commands)
        if (!command.path.empty() && command.subcommands.empty())
            std::cout << CommandText(command);
    return static_cast<bool>(std::cout.flush());
}

}  // namespace

void AddManualCommand(CLI::App& app, CommandLine& line) {
    // An empty group keeps it out of the help: only the build of the manual page asks for it.
    app.add_subcommand("manual", "Print options and commands as a manual page has them")
        ->group("")
        ->callback([&app, &line] {
            line.needsSession = false;
            line.run = [&app] { return PrintManual(app); };
        });
}

}  // namespace vellumark
