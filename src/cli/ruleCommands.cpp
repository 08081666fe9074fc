#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <vector>

#include "cli/commands.h"
#include "platform/dialogs.h"
#include "platform/text.h"
#include "repository/modDescriptions.h"
#include "repository/modVellumark.h"
#include "scenario/modColumnRules.h"
#include "scenario/modDependencies.h"
#include "scenario/modTTRandRTDmaintenance.h"

namespace vellumark {

namespace {

constexpr const char* kNewParent = "new";

struct DependWords {
    std::string schema;
    std::string scenario;
    std::string child;
    std::string parent;
    std::optional<int> generate;
    std::optional<int> increment;
    bool generateParent = false;
    bool clear = false;
    bool clearAll = false;
};

struct ColumnWords {
    std::string schema;
    std::string scenario;
    int rule = 0;
    std::string column;
    std::vector<std::string> settings;
};

bool ReadChild(const std::string& child, DependencyDetails& details) {
    const std::size_t point = child.find('.');
    const std::optional<int> rule = platform::ParseLong(child.substr(0, point));
    if (rule && point != std::string::npos)
        return fReadDependency(*rule, child.substr(point + 1), details);
    return platform::Refuse("The child is given as RULE.COLUMN, with the rule's Id, for example 2.AlbumId.");
}

bool ChooseParent(const std::string& parent, DependencyDetails& details) {
    if (parent == kNewParent)
        return true;
    if (const std::optional<int> rule = platform::ParseLong(parent))
        return fChooseParentRule(details, *rule);
    return platform::Refuse("The parent is the Id of a Table rule, or \"new\" to make one.");
}

bool ClearAllDependencies(const DependWords& words) {
    if (!OpenInsertScenario(words.schema, words.scenario) ||
        !platform::AskYesNo("Do you really want to delete all the Foreign Key settings for all the tables "
                            "for this scenario?"))
        return false;
    fClearAllDependencies();
    return true;
}

bool Depend(const DependWords& words) {
    DependencyDetails details;
    if (!OpenInsertScenario(words.schema, words.scenario) || !ReadChild(words.child, details))
        return false;
    if (words.clear) {
        if (!platform::AskYesNo("Do you really want to delete all the settings for this Foreign Key?"))
            return false;
        fClearDependency(details);
        return true;
    }
    if (!ChooseParent(words.parent, details))
        return false;
    details.quantityPerParent = words.generate.value_or(details.quantityPerParent);
    details.increment = words.increment.value_or(details.increment);
    details.generateParent = details.generateParent || words.generateParent;
    if (!fApplyDependency(details))
        return false;
    std::cout << details.parentRuleId << "\n";
    return true;
}

bool SetColumn(const ColumnWords& words) {
    if (!OpenInsertScenario(words.schema, words.scenario))
        return false;
    std::optional<ColumnRuleDetails> details = ReadColumnRule(words.rule, words.column);
    if (!details)
        return false;
    for (const std::string& setting : words.settings) {
        const std::size_t equals = setting.find('=');
        if (equals == std::string::npos)
            return platform::Refuse("'" + setting + "' is not of the form FIELD=VALUE.");
        if (!fSetColumnField(*details, setting.substr(0, equals), setting.substr(equals + 1)))
            return false;
    }
    return fUpdateColumnRule(*details);
}

std::string RangeOf(const dao::Recordset& rule) {
    const int start = rule.Long("Start Range"), end = rule.Long("End Range");
    return std::to_string(start) + (end == 0 || end == start ? "" : "-" + std::to_string(end));
}

bool ListRules(const std::string& schema, const std::string& scenario) {
    if (!OpenSchemaNamed(schema) || !OpenScenarioNamed(scenario))
        return false;
    RepositoryScope repository;
    const bool deletes = CurrentTSOType == 'D';
    dao::Recordset rules = RepositoryDatabase.OpenRecordset(
        "select r.*, t.[Name] as [Table] from [" +
            std::string(deletes ? "TSO Delete Table Rule" : "TSO Insert Table Rule") +
            "] r join [Table] t on t.[FK DBS Id] = r.[FK DBS Id] and t.[Id] = r.[FK TAB Id]"
            " where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? order by r.[Sort Order] asc",
        {CurrentDBSId, CurrentTSOId});
    for (; !rules.IsEOF(); rules.MoveNext()) {
        std::cout << rules.Long("Id") << "\t" << rules.Text("Table");
        if (deletes)
            std::cout << "\t" << rules.Text("Where Clause") << "\n";
        else
            std::cout << "\t" << RangeOf(rules) << "\t" << rules.Long("Quantity") << "\t"
                      << (rules.Boolean("Flag Use Generated Data") ? "generated" : "existing rows") << "\n";
    }
    return true;
}

// The parent of a column as "Table rule 3", or the source it takes its values from, or nothing.
std::string OriginOf(int ruleId, const dao::Recordset& columnRule) {
    const dao::Value parent = RepositoryDatabase.Lookup(
        "select [FK Parent TTR Id] from [resolver TTR dependency] where [FK DBS Id] = ? and [FK TSO Id] = ?"
        " and [FK Child TTR Id] = ? and [FK Child TAB Id] = ? and [FK Child COL Id] = ?",
        {CurrentDBSId, CurrentTSOId, ruleId, columnRule.Long("FK TAB Id"), columnRule.Long("FK COL Id")});
    if (!dao::IsNull(parent))
        return "from Table rule " + dao::ToText(parent);
    if (columnRule.Text("Code Generate Data Type") != "V")
        return "";
    const dao::Recordset source = RepositoryDatabase.OpenRecordset(
        "select s.*, c.[Description] as Connection from [Value Source] s left join [Database Connection] c"
        " on c.[Id] = s.[FK CON Id] where s.[FK DBS Id] = ? and s.[FK TSO Id] = ? and s.[FK TTR Id] = ?"
        " and s.[FK TCR Id] = ?",
        {CurrentDBSId, CurrentTSOId, ruleId, columnRule.Long("Id")});
    if (source.IsEOF())
        return "";
    return ValueSourceDescription(source.Text("Type"), source.Text("Name and Path"), source.Long("FK CAT Id"),
                                  source.Text("Connection"));
}

// Fields of a rule that nobody has touched.
constexpr std::array kPlainSettings = {
    "Code Generate Data Type=D",
    "generated value too large=B",
    "Fill the column=N",
    "Concat Value with Id=N",
    "Range order=S",
    "Code Output Textfile in Quotes=D",
};

// What differs from a plain included column, as "Field=Value" texts.
std::string SettingsOf(const dao::Recordset& columnRule) {
    std::string text;
    for (const std::string_view field : ColumnFieldNames()) {
        const std::string value = columnRule.Text(field);
        const std::string setting = std::string(field) + "=" + (value == "-1" ? "True" : value);
        if (!value.empty() && value != "0" &&
            std::ranges::find(kPlainSettings, setting) == kPlainSettings.end())
            text += (text.empty() ? "" : "; ") + setting;
    }
    return text;
}

bool ShowRule(const std::string& schema, const std::string& scenario, int ruleId) {
    if (!OpenInsertScenario(schema, scenario))
        return false;
    RepositoryScope repository;
    dao::Recordset columns = RepositoryDatabase.OpenRecordset(
        "select r.*, c.[Name] as [Column Name], c.[Vellumark Data Type] as [Data Type] from [TSO Insert "
        "Column Rule] r"
        " join [Column] c on c.[FK DBS Id] = r.[FK DBS Id] and c.[FK TAB Id] = r.[FK TAB Id] and c.[Id] = "
        "r.[FK COL Id]"
        " where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? and r.[FK TTR Id] = ? order by r.[Sort Order] asc",
        {CurrentDBSId, CurrentTSOId, ruleId});
    if (columns.IsEOF())
        return platform::Refuse("There is no Table rule " + std::to_string(ruleId) + " in this Scenario.");
    for (; !columns.IsEOF(); columns.MoveNext())
        std::cout << columns.Text("Column Name") << "\t" << columns.Text("Data Type") << "\t"
                  << OriginOf(ruleId, columns) << "\t" << SettingsOf(columns) << "\n";
    return true;
}

void AddDependCommand(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<DependWords>();
    CLI::App* depend = app.add_subcommand(
        "depend", "Feed a foreign-key column from a parent rule and print the parent's Id");
    depend->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    depend->add_option("SCENARIO", words->scenario, "Name of the Scenario")->required();
    CLI::Option* child =
        depend->add_option("--child", words->child, "The child rule's Id, a point, the column")
            ->type_name("RULE.COLUMN");
    CLI::Option* parent =
        depend->add_option("--parent", words->parent, "The parent rule's Id, or new to make one")
            ->type_name("RULE");
    depend->add_flag("--clear", words->clear, "Take the child's Dependency away again")->excludes(parent);
    depend->add_flag("--clear-all", words->clearAll, "Take all Dependencies of the Scenario away")
        ->excludes(parent)
        ->excludes(child);
    depend->add_option("--generate", words->generate, "Child rows for each parent row");
    depend->add_option("--increment", words->increment,
                       "Child rows after which the next parent's turn comes");
    depend->add_flag("--generate-parent", words->generateParent, "The parent rule makes rows too");
    depend->callback([&line, words] {
        if (!words->clearAll && words->child.empty())
            throw CLI::RequiredError("--child");
        if (!words->clearAll && !words->clear && words->parent.empty())
            throw CLI::RequiredError("--parent");
        line.run = [words] { return words->clearAll ? ClearAllDependencies(*words) : Depend(*words); };
    });
}

void AddColumnCommand(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<ColumnWords>();
    CLI::App* column = app.add_subcommand("column", "Set fields of a Column rule");
    column->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    column->add_option("SCENARIO", words->scenario, "Name of the Scenario")->required();
    column->add_option("RULE", words->rule, "Id of the Table rule")->required();
    column->add_option("COLUMN", words->column, "Name of the column")->required();
    column->add_option("SETTINGS", words->settings, "Settings by the fields' stored names")
        ->type_name("FIELD=VALUE...")
        ->required();
    std::string names = "Fields:";
    for (const std::string_view name : ColumnFieldNames())
        names += "\n  " + std::string(name);
    column->footer(names);
    column->callback([&line, words] { line.run = [words] { return SetColumn(*words); }; });
}

}  // namespace

void AddRuleCommands(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<ColumnWords>();
    CLI::App* rules = app.add_subcommand("rules", "List the rules of a Scenario: Id, table, range, rows");
    CLI::App* show = app.add_subcommand("show", "List the columns of a rule: name, type, origin, settings");
    for (CLI::App* command : {rules, show}) {
        command->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
        command->add_option("SCENARIO", words->scenario, "Name of the Scenario")->required();
    }
    show->add_option("RULE", words->rule, "Id of the Table rule")->required();
    rules->callback(
        [&line, words] { line.run = [words] { return ListRules(words->schema, words->scenario); }; });
    show->callback([&line, words] {
        line.run = [words] { return ShowRule(words->schema, words->scenario, words->rule); };
    });
    AddColumnCommand(app, line);
    AddDependCommand(app, line);
}

}  // namespace vellumark
