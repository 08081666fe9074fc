#include "tools/modTableLoad.h"

#include "engine/modGenerateChoice.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modJetDatabaseServices.h"
#include "repository/modOptionsMaintenance.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"

namespace vellumark {

namespace {

struct Place {
    std::string folder;
    std::string fileName;
};

Place PlaceOf(const std::string& path) {
    Place place;
    fSplitPath(path, place.folder, place.fileName);
    if (place.folder.empty())
        place.folder = ".";
    return place;
}

TableLoadField Refuse(TableLoadField field, const std::string& message) {
    platform::ShowExclamation(message);
    return field;
}

std::optional<ConnectionDetails> ReadTarget() {
    const dao::Recordset schema = RepositoryDatabase.OpenRecordset(
        "select [FK CON Id Target] from [Database] where [Id] = ?", {CurrentDBSId});
    if (schema.IsEOF()) {
        platform::ShowExclamation("Cannot open the Database identifier " + std::to_string(CurrentDBSId));
        return std::nullopt;
    }
    std::optional<ConnectionDetails> target = ReadConnection(schema.Long("FK CON Id Target"));
    if (!target)
        platform::ShowExclamation("Cannot open the Database Connnection Target");
    return target;
}

std::string TableOfScenario() {
    return dao::ToText(RepositoryDatabase.Lookup(
        "select t.[Name] from [TSO Insert Table Rule] r join [Table] t on t.[FK DBS Id] = r.[FK DBS Id]"
        " and t.[Id] = r.[FK TAB Id] where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? order by r.[Sort Order]",
        {CurrentDBSId, CurrentTSOId}));
}

void TakeTarget(TableLoad& load) {
    const std::optional<ConnectionDetails> target = ReadTarget();
    if (!target)
        return;
    load.database = target->mdbFile;
    if (CurrentDBSSource == 'T' || CurrentDBSSource == 'R')
        load.table = target->table.empty() ? TableOfScenario() : target->table;
}

}  // namespace

TableLoad ReadTableLoadDefaults() {
    TableLoad load;
    load.file = LastTextFile;
    try {
        const RepositoryScope repository;
        load.delimiter = ReadOptions().outputDelimiter;
        if (CurrentDBSId != 0)
            TakeTarget(load);
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the Target Connection", error);
    }
    return load;
}

std::optional<TableLoadField> FindLoadFault(const TableLoad& load) {
    using Field = TableLoadField;
    if (load.database.empty())
        return Refuse(Field::Database, "Please enter the name and path of the database file");
    if (load.table.empty())
        return Refuse(Field::Table, "Please enter the name of the table to be loaded with data");
    if (load.file.empty())
        return Refuse(Field::File, "Please enter the name and path of the delimited text data file");
    if (load.delimiter.empty())
        return Refuse(Field::Delimiter,
                      "Please enter the delimiter that is used in the delimited text data file");
    if (!fFileExists(load.file))
        return Refuse(Field::File, "Cannot open the file: " + load.file);
    if (!fFileExists(load.database))
        return Refuse(Field::Database, "Cannot open the file: " + load.database);
    return std::nullopt;
}

std::optional<int> fLoadTable(const TableLoad& load) {
    if (FindLoadFault(load))
        return std::nullopt;
    const Place database = PlaceOf(load.database), text = PlaceOf(load.file);
    int rows = 0;
    const bool loaded = fLoadTextIntoJetTable(
        {database.fileName, database.folder, load.table, text.folder, text.fileName, load.delimiter}, &rows);
    if (!loaded) {
        platform::ShowExclamation("Table not loaded");
        return std::nullopt;
    }
    platform::ShowInformation("Table loaded");
    return rows;
}

}  // namespace vellumark
