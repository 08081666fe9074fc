#include <iostream>
#include <sstream>
#include <unistd.h>

#include "cli/commands.h"
#include "cli/secretWords.h"
#include "platform/error.h"
#include "repository/modRepositoryStores.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kUsage = 2 };

void DescribeProgram(CLI::App& app, CommandLine& line) {
    app.set_version_flag("--version", [] {
        LoadProgramPaths();
        return "vellumark-cli " + VersionString;
    });
    app.add_option("--settings", line.settings, "Settings file (default: the user's own)")->type_name("FILE");
    app.add_flag("--yes,-y", line.yes, "Answer every question with Yes");
    app.require_subcommand(1);
    app.fallthrough();
    app.get_formatter()->column_width(36);
    app.add_subcommand("init", "Make the settings file and both stores where missing, and start")
        ->callback([&line] {
            line.init = true;
            line.run = [] { return true; };
        });
}

void MakeNamedStores(const CommandLine& line) {
    if (!line.init || line.settings.empty())
        return;
    SettingsFilePath = line.settings;
    LoadProgramPaths();
    LoadSettings();
    for (const std::string& path : CreateMissingStores())
        std::cout << "made " << path << "\n";
}

int Execute(const CommandLine& line) {
    try {
        if (line.needsSession) {
            MakeNamedStores(line);
            StartSession(line.settings);
        }
        return line.run() ? kDone : kFailed;
    } catch (const platform::ProgramEnd&) {
        return kFailed;
    } catch (const platform::Error& error) {
        platform::ShowExclamation(error.Line());
        return kFailed;
    }
}

// The library's own messages repeat words that it doesn't know.
int EndParsing(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& words) {
    std::ostringstream out, messages;
    const int status = app.exit(error, out, messages);
    std::cout << out.str();
    std::cerr << WithoutSecrets(messages.str(), words);
    return status == 0 ? kDone : kUsage;
}

void AddCommands(CLI::App& app, CommandLine& line, ConsoleDialogs& dialogs) {
    AddSchemaCommands(app, line);
    AddConnectionCommands(app, line);
    AddReadCommand(app, line);
    AddDescribeCommand(app, line);
    AddScenarioCommands(app, line);
    AddRuleCommands(app, line);
    AddSourceCommands(app, line);
    AddRunCommands(app, line, dialogs);
    AddSQLCommand(app, line);
    AddToolCommands(app, line);
    AddCompletionCommand(app, line);
    AddManualCommand(app, line);
}

int Main(int argc, char** argv) {
    const std::vector<std::string> words = TakeWords(argc, argv);
    ConsoleDialogs dialogs(isatty(STDERR_FILENO) != 0);
    platform::UseDialogs(dialogs);
    CommandLine line;
    CLI::App app("Vellumark fills relational databases with test data and removes it again.",
                 "vellumark-cli");
    DescribeProgram(app, line);
    AddCommands(app, line, dialogs);
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::ParseError& error) {
        return EndParsing(app, error, words);
    }
    dialogs.AnswerYes(line.yes);
    const int status = Execute(line);
    dialogs.Transient("");
    return status;
}

}  // namespace

}  // namespace vellumark

int main(int argc, char** argv) {
    return vellumark::Main(argc, argv);
}
