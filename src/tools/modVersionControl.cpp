#include "tools/modVersionControl.h"

#include <string>
#include <string_view>

#include "repository/modVellumark.h"
#include "scenario/modColumnRuleDefaults.h"
#include "scenario/modTableRuleRows.h"

namespace vellumark {

namespace {

constexpr int kSystemScenario = 0;

struct DefaultRange {
    int start = 1;
    int end = 100;
};

DefaultRange ReadDefaultRange() {
    const dao::Recordset options = RepositoryDatabase.OpenRecordset("select * from [Options]");
    if (options.IsEOF())
        return {};
    return {options.Long("Start Range"), options.Long("End Range")};
}

void MakeAvailable(int schemaId, int scenarioId, int tableId) {
    dao::Recordset available = RepositoryDatabase.OpenForAppend("resolver Test Scenario Table");
    available.AddNew();
    available.Set("FK DBS Id", schemaId).Set("FK TSO Id", scenarioId).Set("FK TAB Id", tableId);
    available.Update();
}

void DeleteFrom(std::string_view table, std::string_view where, const dao::Parameters& parameters) {
    RepositoryDatabase.Execute(
        "delete * from [" + std::string(table) + "] where [FK DBS Id] = ?" + std::string(where), parameters);
}

// Those of the Value Sources that are about to go.
void DeleteConnections(std::string_view where, const dao::Parameters& parameters) {
    RepositoryDatabase.Execute(
        "delete from [Database Connection] where [Id] in (select [FK CON Id] from [Value Source]"
        " where [FK CON Id] > 0 and [FK DBS Id] = ?" +
            std::string(where) + ")",
        parameters);
}

std::string CorrectedIncrement(std::string_view dataType, const std::string& increment) {
    const auto oneOf = [&increment](std::string_view codes) {
        return increment.size() == 1 && codes.find(increment) != std::string_view::npos;
    };
    if (dataType == "Time" && !oneOf("HNS"))
        return "N";
    if (dataType == "Date" && !oneOf("YMD"))
        return "D";
    return increment;
}

void CorrectType(dao::Recordset& rule, const std::string& dataType) {
    rule.Set("Constant Value", dataType == "Blob" ? kObjectNote : "")
        .Set("date time increment", CorrectedIncrement(dataType, rule.Text("date time increment")));
    if (dataType == "Blob")
        rule.Set("Flag Exclude", true);
}

// Changes the current row where the column's present type and optionality ask for it.
void CorrectRule(dao::Recordset& rule, const dao::Recordset& column, bool typeChanged) {
    const bool nullForbidden =
        rule.Text("Code Generate Data Type") == "N" && !column.Boolean("Flag Optional");
    if (!nullForbidden && !typeChanged)
        return;
    rule.Edit();
    if (nullForbidden)
        rule.Set("Code Generate Data Type", "D");
    if (typeChanged)
        CorrectType(rule, column.Text("Vellumark Data Type"));
    rule.Update();
}

dao::Recordset ColumnRow(const ColumnKey& column) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Id] = ?",
        {column.schemaId, column.tableId, column.columnId});
}

}  // namespace

void AddTableToScenarios(int schemaId, int tableId) {
    const DefaultRange range = ReadDefaultRange();
    dao::Recordset scenarios =
        RepositoryDatabase.OpenRecordset("select * from [Test Scenario] where [FK DBS Id] = ?", {schemaId});
    for (; !scenarios.IsEOF(); scenarios.MoveNext()) {
        const int scenarioId = scenarios.Long("Id");
        const std::string type = scenarios.Text("Type");
        MakeAvailable(schemaId, scenarioId, tableId);
        if (type == "I" || scenarioId == kSystemScenario)
            AddInsertRuleRow({schemaId, scenarioId, tableId, range.start, range.end});
        if (type == "D" || scenarioId == kSystemScenario)
            AddDeleteRuleRow(schemaId, scenarioId, tableId, "");
    }
}

void DeleteTableRules(int schemaId, int tableId) {
    DeleteConnections(" and [FK TAB Id] = ?", {schemaId, tableId});
    for (const char* table : {"Column", "resolver Test Scenario Table", "TSO Delete Table Rule",
                              "TSO Insert Table Rule", "Value Source", "TSO Insert Column Rule"})
        DeleteFrom(table, " and [FK TAB Id] = ?", {schemaId, tableId});
    for (const char* side : {" and [FK Child TAB Id] = ?", " and [FK Parent TAB Id] = ?"})
        DeleteFrom("resolver TTR dependency", side, {schemaId, tableId});
}

void AddColumnToRules(const ColumnKey& key) {
    const dao::Recordset column = ColumnRow(key);
    dao::Recordset tableRules = RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TAB Id] = ?",
        {key.schemaId, key.tableId});
    dao::Recordset rules = RepositoryDatabase.OpenForAppend("TSO Insert Column Rule");
    for (; !tableRules.IsEOF(); tableRules.MoveNext()) {
        rules.AddNew();
        rules.Set("Id", key.columnId)
            .Set("FK DBS Id", key.schemaId)
            .Set("FK TAB Id", key.tableId)
            .Set("FK TSO Id", tableRules.Long("FK TSO Id"))
            .Set("FK TTR Id", tableRules.Long("Id"))
            .Set("FK COL Id", key.columnId)
            .Set("Sort Order", column.Long("Sort Order"))
            .Set("Status", "");
        SetColumnRuleDefaults(rules, column.Text("Vellumark Data Type"));
        rules.Update();
    }
}

void DeleteColumnRules(const ColumnKey& column) {
    constexpr std::string_view ofColumn = " and [FK TAB Id] = ? and [FK COL Id] = ?";
    const dao::Parameters keys{column.schemaId, column.tableId, column.columnId};
    DeleteConnections(ofColumn, keys);
    for (const char* table : {"Value Source", "TSO Insert Column Rule"})
        DeleteFrom(table, ofColumn, keys);
    DeleteColumnDependencies(column);
}

void DeleteColumnDependencies(const ColumnKey& column) {
    for (const char* side : {" and [FK Child TAB Id] = ? and [FK Child COL Id] = ?",
                             " and [FK Parent TAB Id] = ? and [FK Parent COL Id] = ?"})
        DeleteFrom("resolver TTR dependency", side, {column.schemaId, column.tableId, column.columnId});
}

void CorrectColumnRules(const ColumnKey& key, bool typeChanged) {
    const dao::Recordset column = ColumnRow(key);
    if (column.IsEOF())
        return;
    dao::Recordset rules = RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Column Rule] where [FK DBS Id] = ? and [FK TAB Id] = ? and [FK COL Id] = "
        "?",
        {key.schemaId, key.tableId, key.columnId});
    for (; !rules.IsEOF(); rules.MoveNext())
        CorrectRule(rules, column, typeChanged);
}

void OrderColumnRules(int schemaId, int tableId) {
    RepositoryDatabase.Execute(
        "update [TSO Insert Column Rule] as r set [Sort Order] = c.[Sort Order] from [Column] c"
        " where r.[FK DBS Id] = ? and r.[FK TAB Id] = ? and c.[FK DBS Id] = r.[FK DBS Id]"
        " and c.[FK TAB Id] = r.[FK TAB Id] and c.[Id] = r.[FK COL Id]",
        {schemaId, tableId});
}

}  // namespace vellumark
