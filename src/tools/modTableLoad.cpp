#include "tools/modTableLoad.h"

#include "platform/dialogs.h"
#include "repository/modJetDatabaseServices.h"
#include "repository/modSequentialFileServices.h"

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

}  // namespace

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
