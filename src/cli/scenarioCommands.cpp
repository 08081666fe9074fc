#include <iostream>
#include <memory>
#include <optional>

#include "cli/commands.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"

namespace vellumark {

namespace {

struct ScenarioWords {
    std::string schema;
    std::string name;
    std::string newName;
    std::string kind = "insert";
};

struct RuleWords {
    std::string schema;
    std::string scenario;
    std::string table;
    std::optional<int> start;
    std::optional<int> end;
    std::optional<std::string> where;
};

bool ListScenarios(const std::string& schema) {
    if (!OpenSchemaNamed(schema))
        return false;
    for (const std::string& name : InsertScenarioNames)
        std::cout << "I\t" << name << "\n";
    for (const std::string& name : DeleteScenarioNames)
        std::cout << "D\t" << name << "\n";
    return true;
}

bool NewScenario(const ScenarioWords& words) {
    if (!OpenSchemaNamed(words.schema) || !fScenarioNameOK(words.name))
        return false;
    CurrentScenarioTab = words.kind == "delete" ? ScenarioTab::Delete : ScenarioTab::Insert;
    return CreateScenario(words.name);
}

bool CopyScenario(const ScenarioWords& words) {
    return OpenSchemaNamed(words.schema) && OpenScenarioNamed(words.name) && fScenarioNameOK(words.newName) &&
           SaveScenarioAs(words.newName);
}

bool RenameScenarioTo(const ScenarioWords& words) {
    return OpenSchemaNamed(words.schema) && OpenScenarioNamed(words.name) && fScenarioNameOK(words.newName) &&
           RenameScenario(words.newName);
}

bool DeleteScenarioNamed(const ScenarioWords& words) {
    return OpenSchemaNamed(words.schema) && OpenScenarioNamed(words.name) && fConfirmDeleteScenario() &&
           DeleteScenario();
}

// The System Scenario's rule for the table: a new rule starts from it.
dao::Recordset DefaultRule(const char* ruleTable, int tabId) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [" + std::string(ruleTable) +
            "] where [FK DBS Id] = ? and [FK TSO Id] = 0 and [FK TAB Id] = ?",
        {CurrentDBSId, tabId});
}

int AddInsertRule(const RuleWords& words, int tabId) {
    const dao::Recordset defaults = DefaultRule("TSO Insert Table Rule", tabId);
    const int start = words.start.value_or(defaults.IsEOF() ? 1 : defaults.Long("Start Range"));
    const int end = words.end.value_or(defaults.IsEOF() ? 0 : defaults.Long("End Range"));
    return fValidTableRange(start, end) ? AddTableRule(tabId, start, end, true) : 0;
}

int AddDeleteRule(const RuleWords& words, int tabId) {
    const dao::Recordset defaults = DefaultRule("TSO Delete Table Rule", tabId);
    return AddDeleteTableRule(tabId,
                              words.where.value_or(defaults.IsEOF() ? "" : defaults.Text("Where Clause")));
}

bool fHasColumns(int tabId, const std::string& name) {
    const dao::Value columns = RepositoryDatabase.Lookup(
        "select count(*) from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ?", {CurrentDBSId, tabId});
    if (dao::ToLong(columns) > 0)
        return true;
    return platform::Refuse("The table '" + name +
                            "' has no columns, so there is nothing to generate for it.");
}

bool AddRule(const RuleWords& words) {
    if (!OpenSchemaNamed(words.schema) || !OpenScenarioNamed(words.scenario))
        return false;
    RepositoryScope repository;
    const int tabId = FindTable(words.table);
    if (tabId == 0 || !fHasColumns(tabId, words.table))
        return false;
    const int ruleId = CurrentTSOType == 'D' ? AddDeleteRule(words, tabId) : AddInsertRule(words, tabId);
    if (ruleId == 0)
        return false;
    std::cout << ruleId << "\n";
    return true;
}

using ScenarioAction = bool (*)(const ScenarioWords&);

CLI::App* AddScenarioCommand(CLI::App& parent, CommandLine& line, const char* name, const char* help,
                             ScenarioAction action, const std::shared_ptr<ScenarioWords>& words) {
    CLI::App* command = parent.add_subcommand(name, help);
    command->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    command->add_option("NAME", words->name, "Name of the Scenario")->required();
    command->callback([&line, words, action] { line.run = [words, action] { return action(*words); }; });
    return command;
}

void AddScenarioGroup(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<ScenarioWords>();
    CLI::App* group = app.add_subcommand("scenario", "Create, copy, rename or delete a Scenario");
    group->require_subcommand(1);
    AddScenarioCommand(*group, line, "new", "Create a Scenario", NewScenario, words)
        ->add_option("--kind", words->kind, "What it does to the database")
        ->check(CLI::IsMember({"insert", "delete"}))
        ->capture_default_str();
    AddScenarioCommand(*group, line, "copy", "Copy a Scenario with all its rules", CopyScenario, words)
        ->add_option("NEWNAME", words->newName, "Name of the copy")
        ->required();
    AddScenarioCommand(*group, line, "rename", "Rename a Scenario", RenameScenarioTo, words)
        ->add_option("NEWNAME", words->newName, "The new name")
        ->required();
    AddScenarioCommand(*group, line, "delete", "Delete a Scenario with all its rules", DeleteScenarioNamed,
                       words);
}

void AddRuleGroup(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<RuleWords>();
    CLI::App* group = app.add_subcommand("rule", "Edit the Table rules of a Scenario");
    group->require_subcommand(1);
    CLI::App* add = group->add_subcommand("add", "Add a rule for a table and print its Id");
    add->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    add->add_option("SCENARIO", words->scenario, "Name of the Scenario")->required();
    add->add_option("TABLE", words->table, "Name of the table")->required();
    add->add_option("--start", words->start,
                    "First number of the range (default: as the table's default rule)");
    add->add_option("--end", words->end, "Last number of the range; 0 for the first alone");
    add->add_option("--where", words->where, "Where clause of a delete rule, with its word where");
    add->callback([&line, words] { line.run = [words] { return AddRule(*words); }; });
}

}  // namespace

bool OpenScenarioNamed(const std::string& name) {
    if (OpenScenario(name))
        return true;
    return platform::Refuse("There is no Scenario '" + name + "' in the Database schema '" + CurrentDBSName +
                            "'.");
}

bool OpenInsertScenario(const std::string& schema, const std::string& scenario) {
    if (!OpenSchemaNamed(schema) || !OpenScenarioNamed(scenario))
        return false;
    if (CurrentTSOType == 'I')
        return true;
    return platform::Refuse("'" + CurrentTSOName + "' is a Delete Scenario.");
}

void AddScenarioCommands(CLI::App& app, CommandLine& line) {
    const auto schema = std::make_shared<std::string>();
    CLI::App* list =
        app.add_subcommand("scenarios", "List the Scenarios of a schema: I or D, a tab, the name");
    list->add_option("SCHEMA", *schema, "Name of the Database schema")->required();
    list->callback([&line, schema] { line.run = [schema] { return ListScenarios(*schema); }; });
    AddScenarioGroup(app, line);
    AddRuleGroup(app, line);
}

}  // namespace vellumark
