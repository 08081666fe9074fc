#include "repository/modJetDatabaseServices.h"

#include <algorithm>
#include <fstream>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/output_file.h"
#include "platform/text.h"
#include "repository/modJetTextDriver.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kTempTable = "TempTable";
constexpr std::string_view kSchemaIni = "schema.ini";

// The store's own files beside the database would be taken for the new one's.
void DeleteDatabase(const std::string& path) {
    if (platform::IsFileOpen(path))
        throw platform::Error(platform::kPermissionDenied, "Permission denied: '" + path + "' is open.");
    platform::DeleteFile(path);
    for (const char* suffix : {"-wal", "-shm", "-journal"})
        if (platform::FileExists(path + suffix))
            platform::DeleteFile(path + suffix);
}

bool IsFieldType(int type) {
    return (type >= dao::dbBoolean && type <= dao::dbMemo) ||
           (type >= dao::dbGUID && type <= dao::dbTimeStamp);
}

bool CheckField(const TableRequest& request, int type) {
    if (!IsFieldType(type)) {
        platform::ShowCritical("procedure Table_Create: invalid NewField_Type value: " + request.fieldType);
        return false;
    }
    if ((type == dao::dbText || type == dao::dbChar) && request.fieldSize <= 0) {
        platform::ShowCritical("procedure Table_Create: invalid NewField_Size value: " +
                               std::to_string(request.fieldSize) + " for " + request.fieldName);
        return false;
    }
    return true;
}

bool AddField(const dao::Database& database, dao::TableDef& tableDef, const TableRequest& request) {
    const int type = platform::ParseLong(request.fieldType).value_or(0);
    if (!CheckField(request, type))
        return false;
    dao::Field field;
    field.name = request.fieldName;
    field.type = dao::ReadDeclaredType(dao::DeclarationOf(type, type == dao::dbText ? request.fieldSize : 0));
    field.type.daoType = type;
    field.ordinalPosition = static_cast<int>(tableDef.fields.size());
    dao::TableDef extended = tableDef;
    extended.fields.push_back(field);
    if (extended.fields.size() == 1)
        database.CreateTable(extended);
    else
        database.AddField(extended.name, field);
    tableDef = std::move(extended);
    return true;
}

void WriteSchemaIni(const std::string& path, const std::string& content) {
    platform::OutputFile file(path);
    file.Buffer() = content;
    file.Flush();
    file.Close();
}

int LoadText(const TextLoad& load) {
    const std::string folder = platform::PlatformPath(platform::Trim(load.textFolder));
    const std::string textPath = JoinPath(folder, load.textFile);
    const std::string mdbFolder = platform::PlatformPath(platform::Trim(load.mdbFolder));
    const dao::Database database = dao::OpenDatabase(JoinPath(mdbFolder, platform::Trim(load.mdbName)));
    database.CheckWritable();
    dao::Transaction transaction(database);
    DeleteTableIfPresent(database, kTempTable);
    const dao::TableDef table = database.TableDefinition(load.tableName);
    if (platform::EqualsIgnoringCase(load.textFile, kSchemaIni))
        throw platform::Error(platform::kBadFileName, "The data can't be in a file named schema.ini.");
    std::ifstream text(textPath, std::ios::binary);
    if (!text || !platform::FileExists(textPath))
        throw platform::Error(platform::kFileNotFound, "File not found: '" + textPath + "'");
    WriteSchemaIni(JoinPath(folder, kSchemaIni), SchemaIni(table, load.textFile, load.delimiter));
    const int rows = AppendDelimitedText(database, table, text, load.delimiter);
    transaction.Commit();
    return rows;
}

}  // namespace

bool fCreateJetDatabase(const std::string& path) {
    try {
        if (platform::FileExists(path))
            DeleteDatabase(path);
        dao::CreateDatabase(path);
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("creating Jet database", error);
        return false;
    }
}

bool Table_Create(const dao::Database& database, dao::TableDef& tableDef, const TableRequest& request) {
    if (request.request == kCreateTable) {
        DeleteTableIfPresent(database, request.tableName);
        tableDef = {request.tableName, {}, {}};
        return true;
    }
    if (request.request == kAddField)
        return AddField(database, tableDef, request);
    platform::ShowCritical("procedure Table_Create: invalid Request value: " + std::string(request.request));
    return false;
}

void DeleteTableIfPresent(const dao::Database& database, std::string_view tableName) {
    const std::vector<std::string> names = database.TableNames();
    if (std::ranges::find(names, tableName) != names.end())
        database.DropTable(tableName);
}

bool fLoadTextIntoJetTable(const TextLoad& load, int* rows) {
    try {
        const int loaded = LoadText(load);
        if (rows != nullptr)
            *rows = loaded;
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("loading Jet table", error);
        return false;
    }
}

}  // namespace vellumark
