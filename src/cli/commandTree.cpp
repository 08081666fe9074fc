#include "cli/commandTree.h"

#include "platform/text.h"

namespace vellumark {

namespace {

std::vector<std::string> Texts(std::string_view joined, char separator) {
    const std::vector<std::string_view> parts = platform::Split(joined, separator);
    return {parts.begin(), parts.end()};
}

// A value is told as "KIND", "KIND:{one,other}" or "one|other".
void ReadValue(const std::string& text, WordOption& option) {
    const std::size_t brace = text.find(":{");
    option.value = text.substr(0, brace);
    if (brace != text.npos)
        option.choices = Texts(std::string_view(text).substr(brace + 2, text.size() - brace - 3), ',');
    else if (text.find('|') != text.npos)
        option.choices = Texts(text, '|');
}

WordOption ReadOption(const CLI::Option& told) {
    WordOption option;
    for (const std::string& name : told.get_snames())
        option.names.push_back("-" + name);
    for (const std::string& name : told.get_lnames())
        option.names.push_back("--" + name);
    option.isPositional = option.names.empty();
    if (option.isPositional)
        option.names.push_back(told.get_name(true));
    if (told.get_type_size() != 0)
        ReadValue(told.get_type_name(), option);
    option.preset = told.get_default_str();
    option.help = told.get_description();
    option.isRequired = told.get_required();
    return option;
}

using Children = std::vector<const CLI::App*>;

// A group of options is a child without a name.
Children ChildrenOf(const CLI::App& app, bool named) {
    return app.get_subcommands([named](const CLI::App* child) {
        return child->get_name().empty() != named && (!named || !child->get_group().empty());
    });
}

void ReadOptions(const CLI::App& app, WordCommand& command) {
    for (const CLI::Option* option : app.get_options({}))
        if (!option->get_group().empty() && (!app.get_name().empty() || option != app.get_help_ptr()))
            command.options.push_back(ReadOption(*option));
    for (const CLI::App* group : ChildrenOf(app, false))
        ReadOptions(*group, command);
}

void ReadCommand(const CLI::App& app, const std::string& path, std::vector<WordCommand>& commands) {
    WordCommand command{path, app.get_description(), {}, {}};
    ReadOptions(app, command);
    const Children children = ChildrenOf(app, true);
    for (const CLI::App* child : children)
        command.subcommands.push_back(child->get_name());
    commands.push_back(std::move(command));
    for (const CLI::App* child : children)
        ReadCommand(*child, path + " " + child->get_name(), commands);
}

}  // namespace

std::vector<WordCommand> CommandTree(const CLI::App& app) {
    std::vector<WordCommand> commands;
    ReadCommand(app, "", commands);
    return commands;
}

}  // namespace vellumark
