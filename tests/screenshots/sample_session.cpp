#include "sample_session.h"

#include <filesystem>

#include "platform/dao/value.h"
#include "repository/modOptionsMaintenance.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"
#include "scenario/modTestScenarioMaintenance.h"

namespace vellumark::test {

SampleSession::SampleSession(const std::string& demoFolder) {
    std::filesystem::copy(demoFolder, folder_.Path(), std::filesystem::copy_options::recursive);
    LoadProgramPaths();
    SettingsFilePath = folder_.Path("Vellumark.INI");
    RepositoryPath = folder_.Path("Vellumark.mdb");
    ValuesPath = folder_.Path("Vellumark Values.mdb");
    DatabasesFolder = folder_.Path("databases");
    EnsureOptions();
}

void SampleSession::Reopen() const {
    int id = 0;
    {
        const RepositoryScope repository;
        id = dao::ToLong(RepositoryDatabase.Lookup("select [Id] from [Database] where [Name] = 'Shop'"));
    }
    OpenSelectedSchema(id);
    OpenScenario("A busy week");
}

}  // namespace vellumark::test
