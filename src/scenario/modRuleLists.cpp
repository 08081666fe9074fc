#include "scenario/modRuleLists.h"

#include <string_view>

#include "platform/error.h"
#include "platform/text.h"
#include "repository/modDescriptions.h"
#include "repository/modVellumark.h"
#include "scenario/modTTRandRTDmaintenance.h"

namespace vellumark {

namespace {

std::string NameWith(const std::string& name, const std::string& modelName) {
    return modelName.empty() ? name : name + " (" + platform::ToLower(modelName) + ")";
}

std::string RuleQuery(std::string_view table, std::string_view condition) {
    return "select r.*, t.[Name], t.[COOLGen Entity Name] from [" + std::string(table) +
           "] r left join [Table] t on t.[FK DBS Id] = r.[FK DBS Id] and t.[Id] = r.[FK TAB Id]"
           " where r.[FK DBS Id] = ? and r.[FK TSO Id] = ?" +
           std::string(condition) + " order by r.[Sort Order] asc";
}

template <class Label>
std::vector<TableRuleNode> ReadRules(const std::string& query, const dao::Parameters& parameters,
                                     Label label) {
    const RepositoryScope repository;
    std::vector<TableRuleNode> nodes;
    dao::Recordset rules = RepositoryDatabase.OpenRecordset(query, parameters);
    nodes.reserve(static_cast<std::size_t>(rules.RecordCount()));
    for (; !rules.IsEOF(); rules.MoveNext())
        nodes.push_back({rules.Long("Id"), rules.Long("FK TAB Id"), label(rules)});
    return nodes;
}

// A Values database that can't be read costs the Category's name alone.
std::string SourceText(const dao::Recordset& column) {
    const std::string type = column.Text("Type");
    try {
        return ValueSourceDescription(type, column.Text("Name and Path"), column.Long("FK CAT Id"),
                                      column.Text("Description"));
    } catch (const platform::Error&) {
        return "Category:";
    }
}

std::vector<ColumnRuleNode> ReadColumns(int scenarioId, int ruleId) {
    const RepositoryScope repository;
    dao::Recordset columns = RepositoryDatabase.OpenRecordset(
        "select r.[Id], r.[Code Generate Data Type], c.[Name], c.[COOLGen Attribute Name], c.[Role],"
        " c.[Flag Identifier], s.[Type], s.[Name and Path], s.[FK CAT Id], n.[Description]"
        " from [TSO Insert Column Rule] r"
        " left join [Column] c on c.[FK DBS Id] = r.[FK DBS Id] and c.[FK TAB Id] = r.[FK TAB Id]"
        " and c.[Id] = r.[FK COL Id]"
        " left join [Value Source] s on s.[FK DBS Id] = r.[FK DBS Id] and s.[FK TSO Id] = r.[FK TSO Id]"
        " and s.[FK TTR Id] = r.[FK TTR Id] and s.[FK TCR Id] = r.[Id]"
        " left join [Database Connection] n on n.[Id] = s.[FK CON Id]"
        " where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? and r.[FK TTR Id] = ? order by r.[Sort Order] asc",
        {CurrentDBSId, scenarioId, ruleId});
    std::vector<ColumnRuleNode> nodes;
    for (; !columns.IsEOF(); columns.MoveNext()) {
        ColumnRuleNode node;
        node.ruleId = columns.Long("Id");
        node.text = NameWith(columns.Text("Name"), columns.Text("COOLGen Attribute Name"));
        node.identifier = columns.Boolean("Flag Identifier");
        node.foreignKey = columns.Text("Role") == "Foreign Key";
        if (columns.Text("Code Generate Data Type") == "V")
            node.source = platform::Trim(SourceText(columns));
        nodes.push_back(std::move(node));
    }
    return nodes;
}

}  // namespace

std::vector<TableRuleNode> LoadDefaultRuleList() {
    return ReadRules(RuleQuery(CurrentTSOType == 'D' ? "TSO Delete Table Rule" : "TSO Insert Table Rule",
                               " and r.[FK TAB Id] in (select [FK TAB Id] from [resolver Test Scenario Table]"
                               " where [FK DBS Id] = ? and [FK TSO Id] = ?)"),
                     {CurrentDBSId, 0, CurrentDBSId, CurrentTSOId}, [](const dao::Recordset& rule) {
                         return NameWith(rule.Text("Name"), rule.Text("COOLGen Entity Name"));
                     });
}

std::vector<TableRuleNode> LoadScenarioRuleList() {
    return ReadRules(RuleQuery("TSO Insert Table Rule", " and r.[Flag use generated data] = True"),
                     {CurrentDBSId, CurrentTSOId}, [](const dao::Recordset& rule) {
                         return TableRuleLabel(rule.Text("Name"), rule.Long("Start Range"),
                                               rule.Long("End Range"));
                     });
}

std::vector<TableRuleNode> LoadDeleteRuleList() {
    return ReadRules(RuleQuery("TSO Delete Table Rule", ""), {CurrentDBSId, CurrentTSOId},
                     [](const dao::Recordset& rule) { return rule.Text("Name"); });
}

std::vector<ColumnRuleNode> LoadDefaultColumnNodes(int ruleId) {
    return ReadColumns(0, ruleId);
}

std::vector<ColumnRuleNode> LoadRuleColumnNodes(int ruleId) {
    return ReadColumns(CurrentTSOId, ruleId);
}

}  // namespace vellumark
