#include "scenario/modDependencyDiagram.h"

#include "repository/modVellumark.h"
#include "scenario/modTTRandRTDmaintenance.h"

namespace vellumark {

namespace {

// The parents that a child's foreign keys name, each with the rule that it is tied to, if any, and the
// default rule of its table.
constexpr std::string_view kParents =
    "select c.[Name] as [Column], t.[Name] as [Parent], p.[Name] as [Parent Column],"
    " d.[FK Parent TTR Id] as [Rule],"
    " r.[Start Range], r.[End Range], r.[Quantity], r.[Flag Use Generated Data],"
    " s.[Start Range] as [Default Start], s.[End Range] as [Default End],"
    " s.[Quantity] as [Default Quantity]"
    " from [Column] c"
    " join [Table] t on t.[FK DBS Id] = c.[FK DBS Id] and t.[Id] = c.[FK COL TAB Id]"
    " left join [Column] p on p.[FK DBS Id] = t.[FK DBS Id] and p.[FK TAB Id] = t.[Id]"
    " and p.[Id] = c.[FK COL Id]"
    " left join [resolver TTR dependency] d on d.[FK DBS Id] = c.[FK DBS Id] and d.[FK TSO Id] = ?"
    " and d.[FK Child TTR Id] = ? and d.[FK Child TAB Id] = c.[FK TAB Id]"
    " and d.[FK Child COL Id] = c.[Id]"
    " left join [TSO Insert Table Rule] r on r.[FK DBS Id] = c.[FK DBS Id]"
    " and r.[FK TSO Id] = d.[FK TSO Id] and r.[Id] = d.[FK Parent TTR Id]"
    " left join [TSO Insert Table Rule] s on s.[FK DBS Id] = c.[FK DBS Id] and s.[FK TSO Id] = 0"
    " and s.[FK TAB Id] = t.[Id]"
    " where c.[FK DBS Id] = ? and c.[FK TAB Id] = ? and c.[Role] = 'Foreign Key'"
    " group by c.[Id] order by c.[Sort Order] asc";

}  // namespace

std::vector<ChildRule> ListChildRules() {
    const RepositoryScope repository;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select r.*, t.[Name] as [Table Name] from [TSO Insert Table Rule] r"
        " join [Table] t on t.[FK DBS Id] = r.[FK DBS Id] and t.[Id] = r.[FK TAB Id]"
        " where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? and r.[Flag use generated data] = True"
        " order by r.[Sort Order] asc",
        {CurrentDBSId, CurrentTSOId});
    std::vector<ChildRule> rules;
    for (; !rows.IsEOF(); rows.MoveNext()) {
        const int start = rows.Long("Start Range"), end = rows.Long("End Range");
        const std::string table = rows.Text("Table Name");
        rules.push_back({rows.Long("Id"), rows.Long("FK TAB Id"), table, TableRuleLabel(table, start, end),
                         start, end, rows.Long("Quantity")});
    }
    return rules;
}

std::vector<ParentBox> ListParentBoxes(const ChildRule& child) {
    const RepositoryScope repository;
    dao::Recordset rows =
        RepositoryDatabase.OpenRecordset(kParents, {CurrentTSOId, child.id, CurrentDBSId, child.tableId});
    std::vector<ParentBox> boxes;
    for (; !rows.IsEOF(); rows.MoveNext()) {
        const bool set = !rows.IsNull("Quantity");
        ParentBox box{rows.Text("Column"),
                      rows.Text("Parent"),
                      rows.Text("Parent Column"),
                      rows.Long(set ? "Start Range" : "Default Start"),
                      rows.Long(set ? "End Range" : "Default End"),
                      rows.Long(set ? "Quantity" : "Default Quantity"),
                      set ? rows.Long("Rule") : 0,
                      set && rows.Boolean("Flag Use Generated Data")};
        boxes.push_back(std::move(box));
    }
    return boxes;
}

int StoredQuantity(int ruleId) {
    const RepositoryScope repository;
    return dao::ToLong(
        RepositoryDatabase.Lookup("select [Quantity] from [TSO Insert Table Rule] where [FK DBS Id] = ? and "
                                  "[FK TSO Id] = ? and [Id] = ?",
                                  {CurrentDBSId, CurrentTSOId, ruleId}));
}

}  // namespace vellumark
