#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include "cli/consoleDialogs.h"

namespace vellumark {

// What the words on the command line ask for. Parsing fills `run`; it is called once the session has started
// and returns whether the command did what it should.
struct CommandLine {
    std::string settings;
    bool yes = false;
    bool init = false;  // makes missing stores before the session starts
    bool needsSession = true;
    std::function<bool()> run;
};

void AddSchemaCommands(CLI::App& app, CommandLine& line);
void AddConnectionCommands(CLI::App& app, CommandLine& line);
void AddReadCommand(CLI::App& app, CommandLine& line);
void AddDescribeCommand(CLI::App& app, CommandLine& line);
void AddScenarioCommands(CLI::App& app, CommandLine& line);
void AddRuleCommands(CLI::App& app, CommandLine& line);
void AddSourceCommands(CLI::App& app, CommandLine& line);
void AddRunCommands(CLI::App& app, CommandLine& line, ConsoleDialogs& dialogs);
void AddSQLCommand(CLI::App& app, CommandLine& line);
void AddToolCommands(CLI::App& app, CommandLine& line);
void AddCompletionCommand(CLI::App& app, CommandLine& line);
void AddManualCommand(CLI::App& app, CommandLine& line);

// The Id of the Database schema of that name, or 0 behind a message.
int FindSchema(const std::string& name);
// Opens it as the desktop's open screen does.
bool OpenSchemaNamed(const std::string& name);
bool OpenScenarioNamed(const std::string& name);
// Opens both; a Delete Scenario is refused.
bool OpenInsertScenario(const std::string& schema, const std::string& scenario);

// The Id of a table of the open schema, or 0 behind a message.
int FindTable(const std::string& name);

}  // namespace vellumark
