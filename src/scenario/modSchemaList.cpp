#include "scenario/modSchemaList.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"

namespace vellumark {

namespace {

std::string SourceWords(const std::string& code) {
    if (code == "C")
        return "COOL:Gen model";
    if (code == "M")
        return "Manual";
    if (code == "T")
        return "Case Weaver";
    if (code == "R")
        return "Sheet Weaver";
    return code == "D" ? "Database" : code;
}

}  // namespace

std::vector<SchemaEntry> ListSchemas() {
    std::vector<SchemaEntry> entries;
    try {
        const RepositoryScope repository;
        dao::Recordset rows = RepositoryDatabase.OpenRecordset(
            "select * from [Database] order by [DateTime Last Accessed] desc, [Id] desc");
        for (; !rows.IsEOF(); rows.MoveNext())
            entries.push_back({rows.Long("Id"), rows.Text("Name"), rows.Text("Description"),
                               SourceWords(rows.Text("Source")), rows.Text("COOLGen Model Name"),
                               rows.Text("DateTime Last Accessed")});
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the Database schemas", error);
    }
    return entries;
}

bool fDeleteSelectedSchema(int schemaId) {
    CloseDatabaseSchema();
    CurrentDBSId = schemaId;
    const bool deleted = fDeleteSchema(true);
    if (!deleted)
        CloseDatabaseSchema();
    return deleted;
}

}  // namespace vellumark
