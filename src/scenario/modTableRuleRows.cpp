#include "scenario/modTableRuleRows.h"

#include <string>

#include "repository/modVellumark.h"
#include "scenario/modTTRandRTDmaintenance.h"

namespace vellumark {

namespace {

dao::Recordset StartRule(const std::string& rules, int id, int schemaId, int scenarioId, int tableId) {
    dao::Recordset row = RepositoryDatabase.OpenForAppend(rules);
    row.AddNew();
    row.Set("Id", id)
        .Set("Sort Order", id)
        .Set("FK DBS Id", schemaId)
        .Set("FK TSO Id", scenarioId)
        .Set("FK TAB Id", tableId)
        .Set("Status", "");
    return row;
}

int NextRuleId(const std::string& rules, int schemaId, int scenarioId) {
    return NextId(RepositoryDatabase,
                  "select max([Id]) from [" + rules + "] where [FK DBS Id] = ? and [FK TSO Id] = ?",
                  {schemaId, scenarioId});
}

}  // namespace

int AddInsertRuleRow(const InsertRuleRow& row) {
    const std::string rules = "TSO Insert Table Rule";
    const int id = NextRuleId(rules, row.schemaId, row.scenarioId);
    dao::Recordset rule = StartRule(rules, id, row.schemaId, row.scenarioId, row.tableId);
    rule.Set("Start Range", row.startRange)
        .Set("End Range", row.endRange)
        .Set("Quantity", RangeQuantity(row.startRange, row.endRange))
        .Set("Flag Use Generated Data", row.useGenerated)
        .Set("Retry Count Data Unique", kRetryCount);
    rule.Update();
    return id;
}

int AddDeleteRuleRow(int schemaId, int scenarioId, int tableId, std::string_view whereClause) {
    const std::string rules = "TSO Delete Table Rule";
    const int id = NextRuleId(rules, schemaId, scenarioId);
    dao::Recordset rule = StartRule(rules, id, schemaId, scenarioId, tableId);
    rule.Set("Where Clause", whereClause);
    rule.Update();
    return id;
}

}  // namespace vellumark
