#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "platform/dialogs.h"
#include "repository/modOptionsMaintenance.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modTargetFormats.h"
#include "tools/modLoadFile.h"
#include "tools/modReports.h"
#include "tools/modVersionControlRun.h"
#include "tools/reportFile.h"

namespace vellumark {

namespace {

struct ReportWords {
    std::string schema;
    std::string folder;
    std::string sort = "table";
};

struct CarryWords {
    std::string source;
    std::string target;
    std::string log;
};

struct LoadFileWords {
    std::string schema;
    std::string scenario;
    int rule = 0;
    std::string format;
    std::string file;
    std::optional<std::string> delimiter;
};

std::string FolderOf(const ReportWords& words) {
    return words.folder.empty() ? ReportFolder() : words.folder;
}

bool PrintPath(const std::optional<std::string>& path) {
    if (path)
        std::cout << *path << "\n";
    return path.has_value();
}

bool ReportColumns(const ReportWords& words) {
    return OpenSchemaNamed(words.schema) && PrintPath(fDefinitionReport(FolderOf(words)));
}

bool ReportTables(const ReportWords& words) {
    const TableSort sort = words.sort == "entity" ? TableSort::Entity : TableSort::Table;
    return OpenSchemaNamed(words.schema) && PrintPath(fTablesReport(FolderOf(words), sort));
}

bool CarrySchema(const CarryWords& words, VersionControlMode mode) {
    const int target = FindSchema(words.target);
    if (target == 0 || !OpenSchemaNamed(words.source) || !fTargetOK(target) || !fFileReplaceOK(words.log))
        return false;
    if (!fApplyVersionControl({target, mode, words.log}))
        return false;
    std::cout << words.log << "\n";
    return true;
}

std::optional<TargetFormat> LoadFormatNamed(const std::string& name) {
    const std::optional<TargetFormat> format = ParseTargetFormat(name);
    std::string known;
    for (const std::string& word : FillDBMSList("CreateLoadFile")) {
        if (format && word == TargetFormatName(*format))
            return format;
        known += "\n  " + word;
    }
    platform::ShowExclamation("There is no load file format '" + name + "'. The formats are:" + known);
    return std::nullopt;
}

bool CreateLoadFile(const LoadFileWords& words) {
    const std::optional<TargetFormat> format = LoadFormatNamed(words.format);
    if (!format || !OpenInsertScenario(words.schema, words.scenario))
        return false;
    const std::string delimiter = words.delimiter ? *words.delimiter : ReadOptions().outputDelimiter;
    if (!fCreateLoadFile({words.rule, *format, delimiter, words.file}))
        return false;
    std::cout << words.file << "\n";
    return true;
}

CLI::App* AddReport(CLI::App& group, CommandLine& line, const char* name, const char* help,
                    bool (*report)(const ReportWords&), const std::shared_ptr<ReportWords>& words) {
    CLI::App* command = group.add_subcommand(name, help);
    command->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    command->add_option("--output", words->folder, "Folder of the report (default: that of the options)")
        ->type_name("FOLDER");
    command->callback([&line, words, report] { line.run = [words, report] { return report(*words); }; });
    return command;
}

void AddReports(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<ReportWords>();
    CLI::App* group = app.add_subcommand("report", "Write an HTML report of a schema");
    group->require_subcommand(1);
    AddReport(*group, line, "columns", "The columns of every table, in VMColDef.htm", ReportColumns, words);
    AddReport(*group, line, "tables", "The list of tables, in VMTables.htm", ReportTables, words)
        ->add_option("--sort", words->sort, "What the list is sorted by")
        ->check(CLI::IsMember({"table", "entity"}))
        ->capture_default_str();
}

void AddCarry(CLI::App& app, CommandLine& line, const char* name, const char* help, VersionControlMode mode) {
    const auto words = std::make_shared<CarryWords>();
    CLI::App* command = app.add_subcommand(name, help);
    command->add_option("SOURCE", words->source, "Name of the Database schema with the changes")->required();
    command->add_option("TARGET", words->target, "Name of the Database schema that gets them")->required();
    command->add_option("--log", words->log, "File that tells every change")->type_name("FILE")->required();
    command->callback(
        [&line, words, mode] { line.run = [words, mode] { return CarrySchema(*words, mode); }; });
}

void AddLoadFile(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<LoadFileWords>();
    CLI::App* command =
        app.add_subcommand("load-file", "Write a bulk loader's control file for a rule's delimited text");
    command->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    command->add_option("SCENARIO", words->scenario, "Name of the Insert Scenario")->required();
    command->add_option("RULE", words->rule, "Id of the Table rule")->required();
    command->add_option("--format", words->format, "Whose loader, for example Oracle")->required();
    command->add_option("--file", words->file, "Write to this file")->type_name("PATH")->required();
    command
        ->add_option("--delimiter", words->delimiter, "Of the delimited text (default: that of the options)")
        ->type_name("CHARACTER");
    command->callback([&line, words] { line.run = [words] { return CreateLoadFile(*words); }; });
}

}  // namespace

void AddToolCommands(CLI::App& app, CommandLine& line) {
    AddReports(app, line);
    AddCarry(app, line, "version-control", "Make a schema like another one, with its Scenarios",
             VersionControlMode::VersionControl);
    AddCarry(app, line, "merge", "Add to a schema what another one has, with its Scenarios",
             VersionControlMode::Merge);
    AddLoadFile(app, line);
}

}  // namespace vellumark
