#include "scenario/modDTRmaintenance.h"

#include "repository/modVellumark.h"

namespace vellumark {

int AddDeleteTableRule(int tabId, std::string_view whereClause) {
    RepositoryScope repository;
    const int id =
        NextId(RepositoryDatabase,
               "select max([Id]) from [TSO Delete Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ?",
               {CurrentDBSId, CurrentTSOId});
    dao::Recordset rules = RepositoryDatabase.OpenForAppend("TSO Delete Table Rule");
    rules.AddNew();
    rules.Set("Id", id)
        .Set("Sort Order", id)
        .Set("FK TSO Id", CurrentTSOId)
        .Set("FK TAB Id", tabId)
        .Set("FK DBS Id", CurrentDBSId)
        .Set("Where Clause", whereClause)
        .Set("Status", "");
    rules.Update();
    return id;
}

}  // namespace vellumark
