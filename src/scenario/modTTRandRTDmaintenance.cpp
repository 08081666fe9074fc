#include "scenario/modTTRandRTDmaintenance.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <vector>

#include "platform/dao/database.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modColumnRuleDefaults.h"
#include "scenario/modDependencies.h"
#include "scenario/modRowCopy.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTableRuleRows.h"

namespace vellumark {

namespace {

// What a rule takes over from the System Scenario's rule for the same column. Its range and its quote
// character stay behind.
const std::vector<std::string_view> kInheritedColumnFields = {
    "Constant Value",
    "Flag Exclude",
    "Code Generate Data Type",
    "Flag column unique",
    "Flag compound column unique",
    "Fill the column",
    "generated value too large",
    "flag user defined foreign key",
    "Code Output Textfile in Quotes",
    "Range order",
    "Concat Value with Id",
    "date time increment",
    "Code Output Datetime Edit Pattern",
    "Sort Order",
};

// The connection is left out: a rule that reads another database gets one of its own.
const std::vector<std::string_view> kInheritedSourceFields = {
    "Status",
    "Type",
    "FK CAT Id",
    "Name and Path",
    "Start from Column",
    "End at Column",
    "Start from Row",
    "End at Row",
    "Delimited Field Number",
    "Delimiter",
    "File Read Interval",
    "Read File Order",
    "File Read Hold Frequency",
    "Code Input Value In Quotes",
    "If End of File",
    "Code Input Datetime Edit Pattern",
    "Sheet",
    "Sheet End of File",
};

void SetSisterPattern(dao::Recordset& rule, std::string_view dataType) {
    if (CurrentDBSSource != 'R' && CurrentDBSSource != 'T')
        return;
    if (dataType == "TimeStamp")
        rule.Set("Code Output Datetime Edit Pattern", "Y001M001D001H001I001S001N001");
    else if (dataType == "Time")
        rule.Set("Code Output Datetime Edit Pattern", "H001C009I001C009S001");
    else if (dataType == "Date")
        rule.Set("Code Output Datetime Edit Pattern", "D001C001M001C001Y001");
}

void SetDefaults(dao::Recordset& rule, const dao::Recordset& column) {
    const std::string dataType = column.Text("Vellumark Data Type");
    SetColumnRuleDefaults(rule, dataType);
    if (CurrentDBSSource == 'T' && column.Text("Name").starts_with("(GROUP_VIEW) "))
        rule.Set("Constant Value", "Drill down...");
    SetSisterPattern(rule, dataType);
}

// Copies the Value Source of the System Scenario's rule to the rule being made.
void InheritValueSource(const dao::Recordset& systemRule, int ruleId) {
    const dao::Recordset source = RepositoryDatabase.OpenRecordset(
        "select * from [Value Source] where [FK DBS Id] = ? and [FK TSO Id] = 0 and [FK TTR Id] = ? and [FK "
        "TCR Id] = ?"
        " and [FK TAB Id] = ? and [FK COL Id] = ?",
        {CurrentDBSId, systemRule.Long("FK TTR Id"), systemRule.Long("Id"), systemRule.Long("FK TAB Id"),
         systemRule.Long("FK COL Id")});
    if (source.IsEOF())
        return;
    dao::Recordset target = RepositoryDatabase.OpenForAppend("Value Source");
    target.AddNew();
    CopyFields(source, target, kInheritedSourceFields);
    target.Set("FK TCR Id", systemRule.Long("FK COL Id"))
        .Set("FK TTR Id", ruleId)
        .Set("FK COL Id", systemRule.Long("FK COL Id"))
        .Set("FK TAB Id", systemRule.Long("FK TAB Id"))
        .Set("FK DBS Id", CurrentDBSId)
        .Set("FK TSO Id", CurrentTSOId);
    target.Update();
}

// Goes to the System Scenario's rule of that column; false when it has none.
bool FindSystemRule(dao::Recordset& systemRules, int colId) {
    for (systemRules.MoveFirst(); !systemRules.IsEOF(); systemRules.MoveNext())
        if (systemRules.Long("FK COL Id") == colId)
            return true;
    return false;
}

void AddColumnRules(int ruleId, int tabId) {
    dao::Recordset columns = RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? order by [sort order] asc",
        {CurrentDBSId, tabId});
    dao::Recordset systemRules = RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Column Rule] where [FK DBS Id] = ? and [FK TSO Id] = 0 and [FK TAB Id] = "
        "?",
        {CurrentDBSId, tabId});
    dao::Recordset rules = RepositoryDatabase.OpenForAppend("TSO Insert Column Rule");
    for (; !columns.IsEOF(); columns.MoveNext()) {
        const int colId = columns.Long("Id");
        rules.AddNew();
        rules.Set("Id", colId)
            .Set("Sort Order", columns.Long("Sort Order"))
            .Set("Status", "")
            .Set("FK TSO Id", CurrentTSOId)
            .Set("FK TAB Id", tabId)
            .Set("FK DBS Id", CurrentDBSId)
            .Set("FK COL Id", colId)
            .Set("FK TTR Id", ruleId);
        if (CurrentTSOId == 0) {
            SetDefaults(rules, columns);
        } else if (FindSystemRule(systemRules, colId)) {
            CopyFields(systemRules, rules, kInheritedColumnFields);
            if (systemRules.Text("Code Generate Data Type") == "V")
                InheritValueSource(systemRules, ruleId);
        }
        rules.Update();
    }
}

dao::Recordset RuleRow(int scenarioId, int ruleId) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? and [Id] = ?",
        {CurrentDBSId, scenarioId, ruleId});
}

// Takes the Dependencies of the rule away and returns its parents.
std::vector<int> RemoveDependencies(int ruleId) {
    const std::string_view ofScenario =
        "from [resolver TTR dependency] where [FK DBS Id] = ? and [FK TSO Id] = ? and ";
    const dao::Parameters key{CurrentDBSId, CurrentTSOId, ruleId};
    std::vector<int> parents;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select [FK Parent TTR Id] " + std::string(ofScenario) + "[FK Child TTR Id] = ?", key);
    for (; !rows.IsEOF(); rows.MoveNext())
        parents.push_back(rows.Long("FK Parent TTR Id"));
    for (const char* side : {"[FK Parent TTR Id] = ?", "[FK Child TTR Id] = ?"})
        RepositoryDatabase.Execute("delete * " + std::string(ofScenario) + side, key);
    return parents;
}

// True for a rule that makes no rows of its own and that no Dependency needs any more.
bool StandsIdle(int ruleId) {
    const dao::Recordset rule = RuleRow(CurrentTSOId, ruleId);
    if (rule.IsEOF() || rule.Boolean("Flag Use Generated Data"))
        return false;
    return dao::ToLong(RepositoryDatabase.Lookup(
               "select count(*) from [resolver TTR dependency] where [FK DBS Id] = ? and [FK TSO Id] = ?"
               " and [FK Parent TTR Id] = ?",
               {CurrentDBSId, CurrentTSOId, ruleId})) == 0;
}

}  // namespace

int AddTableRule(int tabId, int startRange, int endRange, bool useGenerated) {
    RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    const int id = AddInsertRuleRow({CurrentDBSId, CurrentTSOId, tabId, startRange, endRange, useGenerated});
    AddColumnRules(id, tabId);
    const dao::Value name = RepositoryDatabase.Lookup(
        "select [Name] from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, tabId});
    LastTableRuleLabel = TableRuleLabel(dao::ToText(name), startRange, endRange);
    transaction.Commit();
    return id;
}

void RemoveTableRule(int ruleId) {
    const RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    const std::vector<int> parents = RemoveDependencies(ruleId);
    fDeleteRuleDetails(ruleId);
    RepositoryDatabase.Execute(
        "delete * from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? and [Id] = ?",
        {CurrentDBSId, CurrentTSOId, ruleId});
    for (const int parent : parents)
        if (StandsIdle(parent))
            RemoveTableRule(parent);
    transaction.Commit();
}

std::optional<TTRDetails> displayTTRDetails() {
    const RepositoryScope repository;
    const dao::Recordset rule = RuleRow(RuleScenarioId, CurrentTTRId);
    if (rule.IsEOF())
        return std::nullopt;
    TTRDetails details;
    details.startRange = rule.Long("Start Range");
    details.endRange = rule.Long("End Range");
    details.quantity = rule.Long("Quantity");
    const dao::Recordset table = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, rule.Long("FK TAB Id")});
    if (!table.IsEOF()) {
        details.tableName = table.Text("Name");
        details.owner = table.Text("Owner");
    }
    return details;
}

bool updateTTRDetails(TTRDetails& details) {
    try {
        const RepositoryScope repository;
        dao::Recordset rule = RuleRow(RuleScenarioId, CurrentTTRId);
        // The defaults have no Dependencies.
        details.quantity = RuleScenarioId == 0
                               ? RangeQuantity(details.startRange, details.endRange)
                               : fTTRQuantity(CurrentTTRId, details.startRange, details.endRange);
        rule.Edit();
        rule.Set("Start Range", details.startRange)
            .Set("End Range", details.endRange)
            .Set("Quantity", details.quantity);
        rule.Update();
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("storing the Table rule", error);
        return false;
    }
}

std::optional<int> fRangeNumber(std::string_view text) {
    int number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc::result_out_of_range)
        return number;
    platform::ShowExclamation("Please enter a number of at most 2147483647");
    return std::nullopt;
}

bool fValidTableRange(int start, int end) {
    if (end != 0 && start > end)
        return platform::Refuse("Start number must be less than or equal to end number");
    if (start <= 0)
        return platform::Refuse("Please enter a start number greater than zero");
    return true;
}

int RangeQuantity(int start, int end) {
    if (end == 0)
        return 1;
    const std::int64_t quantity = std::int64_t{end} - start + 1;
    if (quantity > std::numeric_limits<int>::max() || quantity < std::numeric_limits<int>::min())
        throw platform::Error(platform::kOverflow, "Overflow");
    return static_cast<int>(quantity);
}

std::string TableRuleLabel(std::string_view tableName, int start, int end) {
    const std::string from = std::string(tableName) + " (" + std::to_string(start);
    return end == 0 || end == start ? from + ")" : from + "-" + std::to_string(end) + ")";
}

}  // namespace vellumark
