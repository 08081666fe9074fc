#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "cli/consoleProgress.h"
#include "engine/modGenerateChoice.h"
#include "platform/dialogs.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modTargetFormats.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

struct GenerateWords {
    std::string schema;
    std::string scenario;
    std::string file;
    std::string format;
    bool database = false;
};

std::optional<TargetFormat> FormatNamed(const std::string& name) {
    const std::optional<TargetFormat> format = ParseTargetFormat(name);
    if (format)
        return format;
    std::string known;
    for (const std::string& word : FillDBMSList("All"))
        known += "\n  " + word;
    platform::ShowExclamation("There is no Target format '" + name + "'. The formats are:" + known);
    return std::nullopt;
}

// A connection to one of the known systems fixes the format; "Other" leaves it to the user.
std::optional<TargetFormat> FormatForDatabase(const std::string& named) {
    if (DBMSType != kDbmsOther)
        return FormatNamed(DBMSType);
    if (!named.empty())
        return FormatNamed(named);
    platform::ShowExclamation("The Target Connection's system is \"Other\": please name the Target format.");
    return std::nullopt;
}

std::optional<OutputChoice> ChooseDatabase(const GenerateWords& words) {
    if (!fDatabaseRunOK(true))
        return std::nullopt;
    const std::optional<TargetFormat> format = FormatForDatabase(words.format);
    if (!format)
        return std::nullopt;
    return OutputChoice{true, "", *format};
}

std::optional<OutputChoice> ChooseFile(const GenerateWords& words) {
    const std::optional<TargetFormat> format =
        OnlyDelimitedText() ? TargetFormat::Delimited : FormatNamed(words.format);
    if (!format || !fFileReplaceOK(words.file))
        return std::nullopt;
    if (CurrentTSOType == 'D' && *format == TargetFormat::Delimited) {
        platform::ShowExclamation("A Delete Scenario can't be written as delimited text.");
        return std::nullopt;
    }
    return OutputChoice{false, words.file, *format};
}

bool Generate(const GenerateWords& words, ConsoleDialogs& dialogs) {
    if (!OpenSchemaNamed(words.schema) || !OpenScenarioNamed(words.scenario))
        return false;
    const std::optional<OutputChoice> choice = words.database ? ChooseDatabase(words) : ChooseFile(words);
    if (!choice)
        return false;
    ConsoleProgress progress(dialogs);
    const bool done = fRunScenario(*choice, progress);
    if (done && !choice->toDatabase)
        std::cout << choice->textFile << "\n";
    return done;
}

std::string FormatWords() {
    std::string words;
    for (const std::string& word : FillDBMSList("All"))
        words += (words.empty() ? "" : "|") + word;
    return words;
}

}  // namespace

void AddRunCommands(CLI::App& app, CommandLine& line, ConsoleDialogs& dialogs) {
    const auto words = std::make_shared<GenerateWords>();
    CLI::App* generate = app.add_subcommand("generate", "Run a Scenario into a file or the target database");
    generate->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    generate->add_option("SCENARIO", words->scenario, "Name of the Scenario")->required();
    CLI::App* output = generate->add_option_group("output");
    CLI::Option* file = output->add_option("--file", words->file, "Write to this file")->type_name("PATH");
    output->add_flag("--database", words->database, "Run against the schema's Target Connection");
    output->require_option(1);
    CLI::Option* format =
        generate->add_option("--format", words->format, "Target format")->type_name(FormatWords());
    file->needs(format);
    generate->callback(
        [&line, &dialogs, words] { line.run = [words, &dialogs] { return Generate(*words, dialogs); }; });
}

}  // namespace vellumark
