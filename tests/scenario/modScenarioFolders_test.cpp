#include "scenario/modScenarioFolders.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;

class ScenarioFoldersTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
        CreateSystemScenario();
        ASSERT_TRUE(CreateScenario("Fill"));
    }

    // What the schema's folder holds, with the files in it, after an open.
    std::string FoldersAfterOpen() {
        SelectedSchemaId = CurrentDBSId;
        EXPECT_TRUE(OpenDatabaseSchema());
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(CurrentDBSFolder))
            names.push_back(entry.path().lexically_relative(CurrentDBSFolder).string());
        std::ranges::sort(names);
        std::string text;
        for (const std::string& name : names)
            text += (text.empty() ? "" : " ") + name;
        return text;
    }

    // The change in a program that dies at once, which takes no destructor along.
    template <typename Change, typename... Paths>
    void CutOff(const Paths&... paths) {
        const pid_t process = fork();
        if (process == 0) {
            const Change change(paths...);
            _exit(0);
        }
        waitpid(process, nullptr, 0);
    }

    void RenameRow(const std::string& name) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Test Scenario] set [Name] = ? where [Id] = 1", {name});
    }
};

TEST_F(ScenarioFoldersTest, CutOffChangesFollowTheRowsAtTheNextOpen) {
    const std::string fill = ScenarioFolder("Fill"), pour = ScenarioFolder("Pour");
    std::ofstream(fill + "/kept.txt") << "x";
    const std::string whole = "Fill.tso Fill.tso/kept.txt";
    CutOff<MadeFolder>(pour);
    EXPECT_EQ(FoldersAfterOpen(), whole);
    CutOff<RenamedFolder>(fill, pour);
    EXPECT_EQ(FoldersAfterOpen(), whole);
    CutOff<RemovedFolder>(fill);
    EXPECT_EQ(FoldersAfterOpen(), whole);

    CutOff<RenamedFolder>(fill, pour);
    RenameRow("Pour");
    EXPECT_EQ(FoldersAfterOpen(), "Pour.tso Pour.tso/kept.txt");
    CutOff<RemovedFolder>(pour);
    CutOff<MadeFolder>(fill);
    RenameRow("Fill");
    EXPECT_EQ(FoldersAfterOpen(), "Fill.tso");
    CutOff<RenamedFolder>(fill, ScenarioFolder("FILL"));
    EXPECT_EQ(FoldersAfterOpen(), "Fill.tso");
}

TEST_F(ScenarioFoldersTest, ChangesWithoutCommitAreTakenBack) {
    const std::string fill = ScenarioFolder("Fill"), pour = ScenarioFolder("Pour");
    { const MadeFolder made(pour); }
    { const RenamedFolder renamed(fill, pour); }
    { const RemovedFolder removed(fill); }
    EXPECT_EQ(FoldersAfterOpen(), "Fill.tso");
    folder.Write("databases/Shop.dbs/Pour.tso", "a file");
    EXPECT_THROW(MadeFolder{pour}, platform::Error);
    EXPECT_EQ(FoldersAfterOpen(), "Fill.tso Pour.tso");
}

}  // namespace
}  // namespace vellumark
