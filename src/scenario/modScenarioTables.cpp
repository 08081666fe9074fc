#include "scenario/modScenarioTables.h"

#include "platform/text.h"
#include "repository/modVellumark.h"
#include "repository/storeChange.h"

namespace vellumark {

namespace {

std::vector<ScenarioTable> ReadTables(std::string_view sql) {
    const RepositoryScope repository;
    std::vector<ScenarioTable> tables;
    for (dao::Recordset rows = RepositoryDatabase.OpenRecordset(sql, {CurrentDBSId, CurrentTSOId});
         !rows.IsEOF(); rows.MoveNext())
        tables.push_back(
            {rows.Long("Id"), rows.Text("Name"), platform::ToLower(rows.Text("COOLGen Entity Name"))});
    return tables;
}

// Runs the statement for each table: for all, or on a failure for none.
bool fForTables(std::string_view sql, const std::vector<int>& tables) {
    return fChangeRepository("moving the tables", [&] {
        for (const int table : tables)
            RepositoryDatabase.Execute(sql, {CurrentDBSId, CurrentTSOId, table});
    });
}

}  // namespace

std::string ScenarioTableText(const ScenarioTable& table, bool entityFirst) {
    if (table.entity.empty())
        return table.name;
    const std::string entity = "(" + table.entity + ")";
    return entityFirst ? entity + " " + table.name : table.name + " " + entity;
}

std::vector<ScenarioTable> TablesOutsideScenario() {
    return ReadTables(
        "select * from [Table] where [FK DBS Id] = ?1 and [Id] not in (select [FK TAB Id] from [resolver "
        "Test "
        "Scenario Table] where [FK DBS Id] = ?1 and [FK TSO Id] = ?2) order by [Id]");
}

std::vector<ScenarioTable> TablesOfScenario() {
    return ReadTables(
        "select t.* from [resolver Test Scenario Table] as r inner join [Table] as t on t.[FK DBS Id] = "
        "r.[FK "
        "DBS Id] and t.[Id] = r.[FK TAB Id] where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? order by r.rowid");
}

bool fOfferTables(const std::vector<int>& tables) {
    return fForTables(
        "insert into [resolver Test Scenario Table] ([FK DBS Id], [FK TSO Id], [FK TAB Id]) values (?, ?, ?)",
        tables);
}

bool fWithdrawTables(const std::vector<int>& tables) {
    return fForTables(
        "delete from [resolver Test Scenario Table] where [FK DBS Id] = ? and [FK TSO Id] = ? and [FK TAB "
        "Id] "
        "= ?",
        tables);
}

}  // namespace vellumark
