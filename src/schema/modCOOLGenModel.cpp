#include "schema/modCOOLGenModel.h"

#include <array>
#include <filesystem>
#include <vector>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "schema/modCOOLGenExtract.h"
#include "schema/modCOOLGenFiles.h"
#include "schema/modCOOLGenTables.h"
#include "schema/modFormatCodes.h"

namespace vellumark {

namespace {

constexpr std::array kFormats = {
    FormatCode{"F", DataType::Double, true, 8},      FormatCode{"P", DataType::Double, true, 8},
    FormatCode{"I", DataType::LongInteger, true, 0}, FormatCode{"S", DataType::Integer, true, 0},
    FormatCode{"T", DataType::Time, false, 8},       FormatCode{"Q", DataType::TimeStamp, false, 8},
    FormatCode{"D", DataType::Date, false, 8},       FormatCode{"G", DataType::Blob, false, 0},
    FormatCode{"U", DataType::Blob, false, 0},
};

// The fields of a line of column.txt.
enum ColumnField : std::size_t {
    kTable = 1,
    kColumn = 2,
    kAttribute = 3,
    kFormat = 4,
    kIdentifier = 8,
    kParentEntity = 9,
    kParentAttribute = 10,
    kMandatory = 12,
};

struct ForeignKey {
    int tableId;
    std::string column;
    std::string parentEntity;
    std::string parentAttribute;
};

void StoreModelName(const std::string& name) {
    RepositoryDatabase.Execute("update [Database] set [COOLGen Model Name] = ? where [Id] = ?",
                               {name, CurrentDBSId});
}

bool fReadTables(std::string_view dbmsCode, COOLGenTables& tables) {
    platform::ShowStatus("Processing tables");
    std::optional<ExtractFile> file = OpenExtractFile(kTableFile, dbmsCode);
    if (!file)
        return false;
    StoreModelName(file->ModelName());
    while (file->fNextLine())
        tables.AddTable(file->Line().Field(1), file->Line().Field(2));
    return true;
}

SchemaColumn ColumnOf(const FieldFile& line) {
    SchemaColumn column;
    column.name = line.Field(kColumn);
    column.attribute = line.Field(kAttribute);
    SetFormat(column, kFormats, line, kFormat);
    column.identifier = line.Field(kIdentifier).find('Y') != std::string_view::npos;
    column.optional = line.Field(kMandatory) != "M";
    return column;
}

bool IsForeignKey(const FieldFile& line) {
    return !line.Field(kParentEntity).empty() && !line.Field(kParentAttribute).empty();
}

bool fReadColumns(std::string_view dbmsCode, COOLGenTables& tables, std::vector<ForeignKey>& foreignKeys) {
    platform::ShowStatus("Processing columns");
    std::optional<ExtractFile> file = OpenExtractFile(kColumnFile, dbmsCode);
    if (!file)
        return false;
    const FieldFile& line = file->Line();
    while (file->fNextLine()) {
        const int tableId = tables.TableId(line.Field(kTable));
        tables.AddColumn(tableId, ColumnOf(line));
        if (IsForeignKey(line))
            foreignKeys.push_back({tableId, std::string(line.Field(kColumn)),
                                   std::string(line.Field(kParentEntity)),
                                   std::string(line.Field(kParentAttribute))});
    }
    return true;
}

bool fReadFiles(std::string_view dbmsCode) {
    const RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    COOLGenTables tables;
    std::vector<ForeignKey> foreignKeys;
    if (!fReadTables(dbmsCode, tables) || !fReadColumns(dbmsCode, tables, foreignKeys))
        return false;
    platform::ShowStatus("Processing foreign keys");
    for (const ForeignKey& key : foreignKeys)
        fSetCOOLGenForeignKey(tables, key.column, key.tableId, key.parentEntity, key.parentAttribute);
    AddSchemaRows(RepositoryDatabase, CurrentDBSId, tables.Rows());
    transaction.Commit();
    return true;
}

void DeleteExtractedFiles() {
    std::error_code ignored;
    for (const std::string_view file : {kTableFile, kColumnFile, kPermittedValueFile})
        std::filesystem::remove(JoinPath(CurrentDBSFolder, file), ignored);
}

std::string FolderOf(const std::string& modelFile) {
    std::string folder, fileName;
    fSplitPath(platform::PlatformPath(modelFile), folder, fileName);
    return folder;
}

}  // namespace

bool fReadCOOLGenModel(const COOLGenDetails& details, bool filesAreThere) {
    const std::string_view dbmsCode = fDBMSCode(details.dbmsName);
    try {
        return (filesAreThere || fExtractCOOLGenModel(FolderOf(details.modelFile), dbmsCode)) &&
               fReadFiles(dbmsCode);
    } catch (const platform::Error& error) {
        platform::ShowExclamation(error.Line());
        if (!filesAreThere)
            DeleteExtractedFiles();
        return false;
    }
}

}  // namespace vellumark
