#include "scenario/modSettingsReload.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modOptionsMaintenance.h"
#include "repository/modRepositoryStores.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"

namespace vellumark {

namespace {

struct SettingsInUse {
    std::string repository = RepositoryPath;
    std::string values = ValuesPath;
    std::string databases = DatabasesFolder;

    void Restore() const {
        RepositoryPath = repository;
        ValuesPath = values;
        DatabasesFolder = databases;
    }
};

void CheckUsable(const std::string& path) {
    dao::OpenDatabase(path, kRepositoryConnect, {.ownStore = true}).Lookup("select count(*) from [Schema]");
}

}  // namespace

bool fReloadSettings() {
    const SettingsInUse before;
    LoadSettings();
    const bool otherRepository = RepositoryPath != before.repository;
    try {
        if (otherRepository)
            CheckUsable(RepositoryPath);
    } catch (const platform::Error& error) {
        before.Restore();
        return platform::Refuse(
            "The Repository of the settings file cannot be used, so the settings stay as they were.\n\n" +
            error.Line());
    }
    if (otherRepository || DatabasesFolder != before.databases)
        CloseDatabaseSchema();
    if (otherRepository) {
        CheckRepository();
        EnsureOptions();
    }
    return true;
}

}  // namespace vellumark
