#include "engine/modForeignKeys.h"

#include <algorithm>
#include <cstdlib>

#include "platform/dao/jet_sql.h"
#include "platform/error.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

struct Side {
    std::string table;
    std::string column;
};

dao::Recordset ParentRule(int ruleId) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? and [Id] = ?",
        {CurrentDBSId, CurrentTSOId, ruleId});
}

Side SideOf(int tableId, int columnId) {
    const dao::Recordset table = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, tableId});
    const dao::Value column = RepositoryDatabase.Lookup(
        "select [Name] from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Id] = ?",
        {CurrentDBSId, tableId, columnId});
    return {dao::Bracketed(WorkingTableName(table.Text("Owner"), table.Text("Name"))),
            dao::Bracketed(dao::ToText(column))};
}

// The highest parent row that a child of that many rows comes to.
int LastParentRow(int childRows, int increment, int parentQuantity) {
    const int turns = (childRows - 1) / increment + 1;
    return std::min(turns, std::max(parentQuantity, 1));
}

void CheckParents(int childRows, int increment, int parentQuantity, const WorkingRows& parents) {
    if (increment == 0 && childRows > 1)
        throw platform::Error(platform::kDivisionByZero, "Division by zero");
    const int last = increment == 0 ? 1 : LastParentRow(childRows, std::abs(increment), parentQuantity);
    if (last > parents.count)
        throw platform::Error(platform::kNoCurrentRecord, "No current record.");
}

// One statement for all rows of the child.
void CopyParentValues(const WorkingDatabase& database, const Side& child, const WorkingRows& children,
                      const Side& parent, const WorkingRows& parents, int increment, int parentQuantity) {
    dao::Statement update = database.Store().Prepare(
        "update " + child.table + " set " + child.column + " = (select p." + parent.column + " from " +
        parent.table + " p where p.rowid = ?1 + ((" + child.table +
        ".[Vellumark Id] - 1) / ?2) % ?3) where rowid between ?4 and ?5");
    update.BindInteger(0, parents.firstKey);
    update.BindInteger(1, std::max(std::abs(increment), 1));
    update.BindInteger(2, std::max(parentQuantity, 1));
    update.BindInteger(3, children.firstKey);
    update.BindInteger(4, children.firstKey + children.count - 1);
    update.Execute();
}

void Resolve(const WorkingDatabase& database, const dao::Recordset& dependency) {
    const WorkingRows children = database.RowsOf(dependency.Long("FK Child TTR Id")).value_or(WorkingRows{});
    if (children.count == 0)
        return;
    const int parentRule = dependency.Long("FK Parent TTR Id");
    const int parentQuantity = ParentRule(parentRule).Long("Quantity");
    const int increment = dependency.Long("Increment parent count");
    const WorkingRows parents = database.RowsOf(parentRule).value_or(WorkingRows{});
    CheckParents(children.count, increment, parentQuantity, parents);
    CopyParentValues(database, SideOf(dependency.Long("FK Child TAB Id"), dependency.Long("FK Child COL Id")),
                     children,
                     SideOf(dependency.Long("FK Parent TAB Id"), dependency.Long("FK Parent COL Id")),
                     parents, increment, parentQuantity);
}

}  // namespace

void ResolveForeignKeys(const WorkingDatabase& database) {
    dao::Recordset dependencies = RepositoryDatabase.OpenRecordset(
        "select d.* from [resolver TTR dependency] d join [TSO Insert Table Rule] r on r.[FK DBS Id] = d.[FK "
        "DBS Id]"
        " and r.[FK TSO Id] = d.[FK TSO Id] and r.[Id] = d.[FK Child TTR Id] where d.[FK DBS Id] = ? and"
        " d.[FK TSO Id] = ? and r.[Flag Use Generated Data] = True order by r.[Sort Order] asc, d.rowid asc",
        {CurrentDBSId, CurrentTSOId});
    for (; !dependencies.IsEOF(); dependencies.MoveNext())
        Resolve(database, dependencies);
}

}  // namespace vellumark
