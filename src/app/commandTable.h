#pragma once

#include <QWidget>
#include <span>
#include <string_view>
#include <vector>

// The commands of the main window: what they are called, when they can be used, where they stand, and what
// runs them.
namespace vellumark {

enum class Availability {
    Always,
    SchemaOpen,
    ScenarioSelected,
    Disconnected,  // a schema is open, its Target is not
    Connected,
    Statistics,  // a schema is open; with a Scenario selected only in front of the Insert tab
};

struct Command {
    std::string_view key;
    std::string_view caption;
    Availability availability = Availability::Always;
    // Null for the four views, which the window switches itself, and for a command that does nothing.
    void (*run)(QWidget* main) = nullptr;
    std::string_view icon = {};
    std::string_view shortcut = {};
};

std::span<const Command> Commands();

// Whether the command can be used in the present state of the session.
bool IsAvailable(Availability availability);

inline constexpr std::string_view kSeparator = "-";

// A menu or toolbar: keys of commands, separators, and the key of a submenu.
struct CommandBar {
    std::string_view key;  // the object name
    std::string_view caption;
    std::vector<std::string_view> entries;
};

// The menus of the menu bar in their order.
const std::vector<CommandBar>& Menus();
const CommandBar& GridWeaverMenu();
// The entries of the two toolbars.
const std::vector<CommandBar>& ToolBars();
// What a right click on the Scenarios offers.
const std::vector<std::string_view>& ScenarioMenu();

}  // namespace vellumark
