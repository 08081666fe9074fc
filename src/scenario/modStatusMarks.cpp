#include "scenario/modStatusMarks.h"

#include <string>

#include "repository/modVellumark.h"

namespace vellumark {

namespace {

const std::string kScenario = " where [FK DBS Id] = ? and [FK TSO Id] = ?";
const std::string kMarkColumns = "update [TSO Insert Column Rule] set [Status] = \"T\"" + kScenario;

dao::Parameters Scenario(int times) {
    dao::Parameters parameters;
    for (; times > 0; --times)
        parameters.insert(parameters.end(), {CurrentDBSId, CurrentTSOId});
    return parameters;
}

// `side` is the end of the Dependency, "Child" or "Parent".
void MarkSide(const std::string& side) {
    RepositoryDatabase.Execute(kMarkColumns + " and [FK COL Id] in (select [FK " + side +
                                   " COL Id] from [resolver TTR dependency]" + kScenario + " and [FK " +
                                   side + " TAB Id] = [TSO Insert Column Rule].[FK TAB Id])",
                               Scenario(2));
}

}  // namespace

void fClearStatusMarks() {
    for (const char* table : {"TSO Insert Table Rule", "TSO Insert Column Rule"})
        RepositoryDatabase.Execute("update [" + std::string(table) + "] set [Status] = \"\"" + kScenario,
                                   Scenario(1));
}

void fSetStatusMarks() {
    MarkSide("Parent");
    MarkSide("Child");
    RepositoryDatabase.Execute(
        kMarkColumns + " and ([Flag Column Unique] = True or [Flag Compound Column Unique] = True)",
        Scenario(1));
    RepositoryDatabase.Execute("update [TSO Insert Table Rule] set [Status] = \"T\"" + kScenario +
                                   " and [FK TAB Id] in (select [FK TAB Id] from [TSO Insert Column Rule]" +
                                   kScenario + " and [Status] = \"T\")",
                               Scenario(2));
}

}  // namespace vellumark
