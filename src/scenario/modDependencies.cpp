#include "scenario/modDependencies.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "repository/storeChange.h"
#include "scenario/modTTRandRTDmaintenance.h"

namespace vellumark {

namespace {

constexpr std::string_view kScenario = " where [FK DBS Id] = ? and [FK TSO Id] = ?";

dao::Parameters InScenario(std::initializer_list<dao::Parameter> more = {}) {
    dao::Parameters parameters{CurrentDBSId, CurrentTSOId};
    parameters.insert(parameters.end(), more);
    return parameters;
}

std::string Select(std::string_view table, std::string_view condition) {
    return "select * from [" + std::string(table) + "]" + std::string(kScenario) + std::string(condition);
}

dao::Recordset RuleRow(int ruleId) {
    return RepositoryDatabase.OpenRecordset(Select("TSO Insert Table Rule", " and [Id] = ?"),
                                            InScenario({ruleId}));
}

dao::Recordset DependencyRow(const DependencyDetails& details) {
    return RepositoryDatabase.OpenRecordset(
        Select("resolver TTR dependency",
               " and [FK Child TTR Id] = ? and [FK Child TAB Id] = ? and [FK Child COL Id] = ?"
               " and [FK Parent TAB Id] = ? and [FK Parent COL Id] = ?"),
        InScenario({details.childRuleId, details.childTableId, details.childColumnId, details.parentTableId,
                    details.parentColumnId}));
}

void TakeParentRule(DependencyDetails& details, const dao::Recordset& rule) {
    details.parentRuleId = rule.Long("Id");
    details.parentStart = rule.Long("Start Range");
    details.parentEnd = rule.Long("End Range");
    details.generateParent = rule.Boolean("Flag Use Generated Data");
}

void StoreRange(int ruleId, int start, int end, const bool* generate) {
    dao::Recordset rule = RuleRow(ruleId);
    const int quantity = fTTRQuantity(ruleId, start, end);
    rule.Edit();
    rule.Set("Start Range", start).Set("End Range", end).Set("Quantity", quantity);
    if (generate != nullptr)
        rule.Set("Flag Use Generated Data", *generate);
    rule.Update();
}

void SetNumbers(dao::Recordset& row, const DependencyDetails& details) {
    row.Set("FK Parent TTR Id", details.parentRuleId)
        .Set("Increment parent count", details.increment)
        .Set("Quantity children per parent", details.quantityPerParent);
}

void AddDependency(const DependencyDetails& details) {
    const int id =
        NextId(RepositoryDatabase, "select max([Id]) from [resolver TTR dependency]" + std::string(kScenario),
               InScenario());
    dao::Recordset row = RepositoryDatabase.OpenForAppend("resolver TTR dependency");
    row.AddNew();
    row.Set("Id", id)
        .Set("FK DBS Id", CurrentDBSId)
        .Set("FK TSO Id", CurrentTSOId)
        .Set("FK Child TTR Id", details.childRuleId)
        .Set("FK Child TAB Id", details.childTableId)
        .Set("FK Child COL Id", details.childColumnId)
        .Set("FK Parent TAB Id", details.parentTableId)
        .Set("FK Parent COL Id", details.parentColumnId);
    SetNumbers(row, details);
    row.Update();
}

void StoreDependency(DependencyDetails& details) {
    dao::Recordset row = DependencyRow(details);
    if (details.parentRuleId == 0)
        details.parentRuleId = AddTableRule(details.parentTableId, details.parentStart,
                                            details.parentEnd == 0 ? details.parentStart : details.parentEnd,
                                            details.generateParent);
    else
        StoreRange(details.parentRuleId, details.parentStart, details.parentEnd, &details.generateParent);
    if (row.IsEOF()) {
        AddDependency(details);
    } else {
        row.Edit();
        SetNumbers(row, details);
        row.Update();
    }
    StoreRange(details.childRuleId, details.childStart, details.childEnd, nullptr);
}

// The rule goes when no Dependency needs it and it makes no rows of its own.
void DropUnusedParent(const DependencyDetails& details) {
    const dao::Recordset others = RepositoryDatabase.OpenRecordset(
        Select("resolver TTR dependency", " and [FK Parent TTR Id] = ? and [FK Parent TAB Id] = ?"),
        InScenario({details.parentRuleId, details.parentTableId}));
    const dao::Recordset rule = RuleRow(details.parentRuleId);
    if (!others.IsEOF() || rule.IsEOF() || rule.Boolean("Flag Use Generated Data"))
        return;
    fDeleteRuleDetails(details.parentRuleId);
    RepositoryDatabase.Execute(
        "delete * from [TSO Insert Table Rule]" + std::string(kScenario) + " and [Id] = ?",
        InScenario({details.parentRuleId}));
}

}  // namespace

bool fReadDependency(int childRuleId, std::string_view columnName, DependencyDetails& details) {
    RepositoryScope repository;
    const dao::Recordset rule = RuleRow(childRuleId);
    if (rule.IsEOF())
        return platform::Refuse("There is no Table rule " + std::to_string(childRuleId) +
                                " in this Scenario.");
    const dao::Recordset column = RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Name] = ? and [Role] = "
        "'Foreign Key'",
        {CurrentDBSId, rule.Long("FK TAB Id"), columnName});
    if (column.IsEOF())
        return platform::Refuse("The rule's table has no foreign-key column '" + std::string(columnName) +
                                "'.");
    details = {};
    details.childRuleId = childRuleId;
    details.childTableId = rule.Long("FK TAB Id");
    details.childColumnId = column.Long("Id");
    details.parentTableId = column.Long("FK COL TAB Id");
    details.parentColumnId = column.Long("FK COL Id");
    details.childStart = details.parentStart = rule.Long("Start Range");
    details.childEnd = details.parentEnd = rule.Long("End Range");
    const dao::Recordset row = DependencyRow(details);
    if (row.IsEOF())
        return true;
    details.increment = row.Long("Increment parent count");
    details.quantityPerParent = row.Long("Quantity children per parent");
    if (const dao::Recordset parent = RuleRow(row.Long("FK Parent TTR Id")); !parent.IsEOF())
        TakeParentRule(details, parent);
    return true;
}

bool fValidateDependency(const DependencyDetails& details) {
    if (details.childEnd != 0 && details.childStart > details.childEnd)
        return platform::Refuse("Child start range must be less than or equal to Child end range");
    if (details.childStart <= 0)
        return platform::Refuse("Please enter a Child start range greater than zero");
    if (details.parentEnd != 0 && details.parentStart > details.parentEnd)
        return platform::Refuse("Parent start range must be less than or equal to Parent end range");
    if (details.parentStart <= 0 && details.generateParent)
        return platform::Refuse("Please enter a Parent start range greater than zero");
    if (details.quantityPerParent < 1)
        return platform::Refuse("Please enter a generation quantity greater than zero");
    if (details.increment < 1)
        return platform::Refuse("Please enter an increment quantity greater than zero");
    return true;
}

bool fApplyDependency(DependencyDetails& details) {
    if (!fValidateDependency(details))
        return false;
    return fChangeRepository("setting the foreign key", [&details] { StoreDependency(details); });
}

bool fChooseParentRule(DependencyDetails& details, int ruleId) {
    RepositoryScope repository;
    const dao::Recordset rule = RuleRow(ruleId);
    if (rule.IsEOF() || rule.Long("FK TAB Id") != details.parentTableId)
        return platform::Refuse("Table rule " + std::to_string(ruleId) +
                                " is no rule of the table that the foreign key refers to.");
    TakeParentRule(details, rule);
    return true;
}

void fClearDependency(const DependencyDetails& details) {
    RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    RepositoryDatabase.Execute(
        "delete * from [resolver TTR dependency]" + std::string(kScenario) +
            " and [FK Child TTR Id] = ? and [FK Child TAB Id] = ? and [FK Child COL Id] = ?",
        InScenario({details.childRuleId, details.childTableId, details.childColumnId}));
    DropUnusedParent(details);
    transaction.Commit();
}

void fClearAllDependencies() {
    RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    RepositoryDatabase.Execute("delete * from [resolver TTR dependency]" + std::string(kScenario),
                               InScenario());
    dao::Recordset parents = RepositoryDatabase.OpenRecordset(
        Select("TSO Insert Table Rule", " and [Flag Use Generated Data] = False"), InScenario());
    for (; !parents.IsEOF(); parents.MoveNext())
        fDeleteRuleDetails(parents.Long("Id"));
    RepositoryDatabase.Execute("delete * from [TSO Insert Table Rule]" + std::string(kScenario) +
                                   " and [Flag Use Generated Data] = False",
                               InScenario());
    transaction.Commit();
}

void fDeleteRuleDetails(int ruleId) {
    RepositoryScope repository;
    const std::string ofRule = std::string(kScenario) + " and [FK TTR Id] = ?";
    RepositoryDatabase.Execute("delete * from [TSO Insert Column Rule]" + ofRule, InScenario({ruleId}));
    RepositoryDatabase.Execute(
        "delete * from [Database Connection] where [Id] in (select [FK CON Id] from "
        "[Value Source]" +
            ofRule + " and [FK CON Id] > 0)",
        InScenario({ruleId}));
    RepositoryDatabase.Execute("delete * from [Value Source]" + ofRule, InScenario({ruleId}));
}

bool fColumnHasDependency(int scenarioId, int ruleId, int tableId, int columnId) {
    RepositoryScope repository;
    return !RepositoryDatabase
                .OpenRecordset(
                    Select("resolver TTR dependency",
                           " and [FK Child TTR Id] = ? and [FK Child TAB Id] = ? and [FK Child COL Id] = ?"),
                    {CurrentDBSId, scenarioId, ruleId, tableId, columnId})
                .IsEOF();
}

int fTTRQuantity(int ruleId, int start, int end) {
    RepositoryScope repository;
    dao::Recordset dependencies = RepositoryDatabase.OpenRecordset(
        Select("resolver TTR dependency", " and [FK Child TTR Id] = ?"), InScenario({ruleId}));
    if (dependencies.IsEOF())
        return RangeQuantity(start, end);
    std::int64_t largest = 1;
    for (; !dependencies.IsEOF(); dependencies.MoveNext()) {
        const dao::Recordset parent = RuleRow(dependencies.Long("FK Parent TTR Id"));
        if (!parent.IsEOF())
            largest = std::max(largest, std::int64_t{parent.Long("Quantity")} *
                                            dependencies.Long("Quantity children per parent"));
    }
    if (largest > std::numeric_limits<int>::max())
        throw platform::Error(platform::kOverflow, "Overflow");
    return static_cast<int>(largest);
}

}  // namespace vellumark
