#include "repository/modRepositoryStores.h"

#include <filesystem>
#include <fstream>

#include "platform/error.h"
#include "platform/files.h"
#include "repository/modStoreTables.h"
#include "repository/modValuesStore.h"
#include "repository/modVellumark.h"
#include "starter_values.h"

namespace vellumark {

namespace fs = std::filesystem;

namespace {

void CreateTables(const dao::Database& database, const std::vector<StoreTable>& tables) {
    for (const StoreTable& table : tables) {
        dao::TableDef definition;
        definition.name = table.name;
        for (const StoreColumn& column : table.columns) {
            dao::Field field;
            field.name = column.name;
            field.type.daoType = column.type;
            field.type.daoSize = column.size;
            definition.fields.push_back(std::move(field));
        }
        database.CreateTable(definition);
        int number = 0;
        for (const std::string_view index : table.indexes) {
            const std::string name = table.name + " " + std::to_string(++number);
            database
                .Prepare("create index [" + name + "] on [" + table.name + "] (" + std::string(index) + ")")
                .Execute();
        }
    }
}

// What the file doesn't hold yet stands beside it, under a name that is lost with the move.
void WriteOut(const dao::Database& database) {
    if (dao::ToLong(database.Lookup("pragma wal_checkpoint(truncate)")) != 0)
        throw platform::Error(platform::kLocked, "The store is in use: '" + database.Path() + "'");
}

// A store is made under another name and then moved, so that a killed program leaves no half-made store.
template <typename Fill>
void CreateStore(const std::string& path, std::string_view password, const Fill& fill) {
    const std::string draft = path + ".new";
    for (const char* suffix : {"", "-wal", "-shm"})
        fs::remove(draft + suffix);
    dao::CreateDatabase(draft, password, true);
    {
        dao::Database database =
            dao::OpenDatabase(draft, ";pwd=" + std::string(password), {.ownStore = true});
        dao::Transaction transaction(database);
        fill(database);
        transaction.Commit();
        WriteOut(database);
    }
    fs::rename(draft, path);
}

void MakeFolder(const fs::path& folder, std::vector<std::string>& made) {
    if (fs::create_directories(folder))
        made.push_back(folder.string());
}

template <typename Create>
void MakeStore(const std::string& path, const Create& create, std::vector<std::string>& made) {
    if (fs::exists(path))
        return;
    MakeFolder(fs::path(path).parent_path(), made);
    create(path);
    made.push_back(path);
}

}  // namespace

void CreateRepository(const std::string& path) {
    CreateStore(path, kRepositoryPassword,
                [](const dao::Database& database) { CreateTables(database, RepositoryTables()); });
}

void CreateValuesDatabase(const std::string& path) {
    CreateStore(path, "", [](const dao::Database& database) {
        CreateTables(database, ValuesTables());
        for (const StarterCategory& starter : StarterCategories())
            AddCategory(database, starter.name, starter.dataType, starter.values);
        for (const StarterConversion& starter : StarterConversions())
            AddConversionCode(database, starter.name, starter.codes);
    });
}

std::vector<std::string> CreateMissingStores() {
    std::vector<std::string> made;
    for (const char* key : {"REPOSITORY", "VALUES"})
        if (GetINIValue(SettingsFilePath, key).empty())
            throw platform::Error(platform::kPathNotFound,
                                  std::string("The settings file has no value for ") + key + ".");
    try {
        MakeStore(RepositoryPath, CreateRepository, made);
        MakeStore(ValuesPath, CreateValuesDatabase, made);
        if (!DatabasesFolder.empty())
            MakeFolder(DatabasesFolder, made);
    } catch (const fs::filesystem_error& error) {
        throw platform::Error(platform::kPathAccessError, error.what());
    }
    return made;
}

bool CreateUserSettings(const std::string& path) {
    if (fs::exists(path))
        return false;
    const fs::path folder = fs::path(path).parent_path();
    std::error_code failure;
    if (fs::create_directories(folder, failure))
        fs::permissions(folder, fs::perms::owner_all, failure);
    platform::MakePrivateFile(path);
    std::ofstream file(path);
    file << "REPOSITORY=" << folder.string() << "\n"
         << "VM_DATABASES=" << (folder / "Databases").string() << "\n"
         << "VALUES=" << folder.string() << "\n";
    file.close();
    if (!file)
        throw platform::Error(platform::kPathAccessError, "Cannot write the settings file '" + path + "'.");
    return true;
}

}  // namespace vellumark
