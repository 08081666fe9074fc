#include "input.h"
#include "repository/modVellumark.h"
#include "scenario/modPermittedValues.h"
#include "scene.h"
#include "schema/modCOOLGenFiles.h"
#include "schema/modCOOLGenModel.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

constexpr std::string_view kSeparator = "----";

// Foreign keys of columns that are not there.
int Dangling() {
    return dao::ToLong(RepositoryDatabase.Lookup(
        "select count(*) from [Column] c where c.[FK COL Id] <> 0 and not exists (select 1 from [Column] p "
        "where p.[FK DBS Id] = c.[FK DBS Id] and p.[FK TAB Id] = c.[FK COL TAB Id] and p.[Id] = c.[FK COL "
        "Id])"));
}

}  // namespace

// The database system, and the three files with a line of dashes between them.
void FuzzModelExtract(std::string_view bytes) {
    const Scene& scene = Scene::Get();
    CountingDialogs& dialogs = UseCountingDialogs();
    Input input(bytes);
    const std::string dbmsName(kCOOLGenDBMSNames[input.Choice(kCOOLGenDBMSNames.size())]);
    input.Line();
    std::vector<std::string_view> files = Parts(input.Rest(), kSeparator);
    files.resize(3);
    std::size_t place = 0;
    for (const std::string_view name : {kTableFile, kColumnFile, kPermittedValueFile})
        scene.Write("databases/Shop.dbs/" + std::string(name), files[place++]);

    const Untouched repository;
    const bool read = fReadCOOLGenModel({"", dbmsName, true}, true);
    Expect(read == (dialogs.shown == 0), "a model is read, or refused with a message");
    Expect(read || repository.Count("Table") + repository.Count("Column") == 0, "all of a model or nothing");
    Expect(!read || Dangling() == 0, "foreign keys refer to columns");
    if (!read)
        return;
    const ValuesScope values;
    const dao::Transaction neverCommitted(ValuesDatabase);
    const bool categories = fReadPermittedValues(dbmsName);
    Expect(categories == (dialogs.shown == 0), "values are read, or refused with a message");
}

}  // namespace vellumark::fuzz
