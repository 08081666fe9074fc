#include "scenario/modSettingsReload.h"

#include <filesystem>

#include "repository/modRepositoryStores.h"
#include "repository/modVellumark.h"
#include "session.h"

namespace vellumark {
namespace {

class SettingsReloadTest : public test::SessionTest {
 protected:
    // Reads settings of those folders again with the schema "Shop" open.
    bool Reload(const std::string& repository, const std::string& databases) {
        MakeSchema("Shop");
        SettingsFilePath =
            folder.Write("Vellumark.INI", "REPOSITORY=" + folder.Path(repository) +
                                              "\nVALUES=" + folder.Path() + "\nVM_DATABASES=" + databases);
        return fReloadSettings();
    }
};

TEST_F(SettingsReloadTest, OtherPathsCloseTheSchema) {
    EXPECT_TRUE(Reload("", DatabasesFolder));
    EXPECT_EQ(CurrentDBSName, "Shop");

    EXPECT_TRUE(Reload("", folder.Path("elsewhere")));
    EXPECT_EQ(DatabasesFolder, folder.Path("elsewhere"));
    EXPECT_EQ(SessionState, kNotOpen);
    EXPECT_EQ(CurrentDBSId, 0);
}

TEST_F(SettingsReloadTest, AnotherRepositoryIsMadeReady) {
    std::filesystem::create_directory(folder.Path("other"));
    CreateRepository(folder.Path("other/Vellumark.mdb"));
    EXPECT_TRUE(Reload("other", DatabasesFolder));
    EXPECT_EQ(SessionState, kNotOpen);
    EXPECT_EQ(Count("Options"), 1);
    EXPECT_EQ(Rows("select [Number of Executions] from [Schema]"), "1");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(SettingsReloadTest, AnUnusableRepositoryLeavesTheSettings) {
    folder.Write("empty/Vellumark.mdb", "");
    folder.Write("text/Vellumark.mdb", std::string(9000, 'x'));
    const std::string repository = RepositoryPath, databases = DatabasesFolder;
    for (const char* other : {"missing", "empty", "text"}) {
        EXPECT_FALSE(Reload(other, folder.Path("elsewhere"))) << other;
        EXPECT_TRUE(recorder.Take().starts_with(
            "exclamation: The Repository of the settings file cannot be used, so the settings stay as they "
            "were.\n\nError: "))
            << other;
        EXPECT_EQ(RepositoryPath, repository);
        EXPECT_EQ(DatabasesFolder, databases);
        EXPECT_EQ(CurrentDBSName, "Shop");
    }
}

}  // namespace
}  // namespace vellumark
