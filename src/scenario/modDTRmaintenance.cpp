#include "scenario/modDTRmaintenance.h"

#include "platform/dialogs.h"
#include "repository/modVellumark.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTableRuleRows.h"

namespace vellumark {

namespace {

dao::Recordset SelectedRow() {
    return RepositoryDatabase.OpenRecordset(
        "select * from [TSO Delete Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? and [Id] = ?",
        {CurrentDBSId, RuleScenarioId, CurrentTTRId});
}

}  // namespace

int AddDeleteTableRule(int tabId, std::string_view whereClause) {
    const RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    const int id = AddDeleteRuleRow(CurrentDBSId, CurrentTSOId, tabId, whereClause);
    transaction.Commit();
    return id;
}

void RemoveDeleteTableRule(int ruleId) {
    const RepositoryScope repository;
    RepositoryDatabase.Execute(
        "delete * from [TSO Delete Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? and [Id] = ?",
        {CurrentDBSId, CurrentTSOId, ruleId});
}

std::optional<DTRDetails> displayDTRDetails() {
    const RepositoryScope repository;
    const dao::Recordset rule = SelectedRow();
    if (rule.IsEOF())
        return std::nullopt;
    const dao::Value owner =
        RepositoryDatabase.Lookup("select [Owner] from [Table] where [FK DBS Id] = ? and [Id] = ?",
                                  {CurrentDBSId, rule.Long("FK TAB Id")});
    return DTRDetails{dao::ToText(owner), rule.Text("Where Clause")};
}

bool updateDTRDetails(std::string_view whereClause) {
    try {
        const RepositoryScope repository;
        dao::Recordset rule = SelectedRow();
        rule.Edit();
        rule.Set("Where Clause", whereClause);
        rule.Update();
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("storing the where clause", error);
        return false;
    }
}

}  // namespace vellumark
