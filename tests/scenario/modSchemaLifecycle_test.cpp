#include "scenario/modSchemaLifecycle.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modNewSchema.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modConnectionString.h"
#include "session.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;

class LifecycleTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        dao::CreateDatabase(source);
        const dao::Database database = dao::OpenDatabase(source);
        database.Prepare("create table Parent (Id INTEGER primary key, Name VARCHAR(20))").Execute();
        database.Prepare("create table Child (Id INTEGER primary key, ParentId INTEGER references Parent)")
            .Execute();
    }

    NewSchemaDetails Details(const std::string& name) const {
        NewSchemaDetails details{.name = name};
        details.connection.mdbFile = source;
        fConnectionString(details.connection);
        return details;
    }

    std::string AllRows() {
        std::string counts;
        for (const char* table : {"Database", "Database Connection", "Table", "Column", "Test Scenario",
                                  "resolver Test Scenario Table", "TSO Insert Table Rule",
                                  "TSO Insert Column Rule", "TSO Delete Table Rule"})
            counts += std::to_string(Count(table)) + " ";
        return counts;
    }

    const std::string source = folder.Path("source.mdb");
};

TEST_F(LifecycleTest, OpeningFollowsTheRowsAndTheFolder) {
    ASSERT_TRUE(fNewSchema(Details("Shop")));
    const int id = CurrentDBSId;
    CloseDatabaseSchema();
    EXPECT_EQ(SessionState, kNotOpen);
    EXPECT_EQ(CurrentDBSId, 0);

    ASSERT_TRUE(OpenSelectedSchema(id));
    EXPECT_EQ(CurrentTSOName, "Scenario to create data");
    EXPECT_EQ(DeleteScenarioNames, std::vector<std::string>{"Scenario to delete data"});
    fs::remove_all(CurrentDBSFolder);
    EXPECT_FALSE(OpenSelectedSchema(id));
    EXPECT_FALSE(OpenSelectedSchema(99));
    EXPECT_EQ(recorder.Take(), "critical: Cannot find Database directory '" +
                                   folder.Path("databases/Shop.dbs") +
                                   "'|exclamation: Cannot open the Database identifier 99");
    EXPECT_EQ(SessionState, kNotOpen);
}

TEST_F(LifecycleTest, RereadingShowsWhatOthersChanged) {
    RereadDatabaseSchema();
    EXPECT_EQ(SessionState, kNotOpen);

    ASSERT_TRUE(fNewSchema(Details("Shop")));
    const auto others = [](const std::string& sql) {
        {
            const RepositoryScope repository;
            RepositoryDatabase.Execute(sql);
        }
        RereadDatabaseSchema();
    };
    others("insert into [Test Scenario] ([Id], [FK DBS Id], [Name], [Type]) values (9, 1, 'New', 'I')");
    EXPECT_EQ(InsertScenarioNames, (std::vector<std::string>{"Scenario to create data", "New"}));
    EXPECT_EQ(CurrentTSOName, "Scenario to create data");
    EXPECT_EQ(SessionState, kOpenWithScenario);

    others("update [Test Scenario] set [Name] = 'Other' where [Id] = 2");
    EXPECT_EQ(SessionState, kOpenNoScenario);
    EXPECT_EQ(CurrentTSOId, 0);
    others("update [Database] set [Description] = 'changed'");
    EXPECT_EQ(ShownSchemaDescription, "changed");
    EXPECT_EQ(recorder.Take(), "");

    others("delete from [Database]");
    EXPECT_EQ(SessionState, kNotOpen);
    EXPECT_EQ(recorder.Take(), "exclamation: Cannot open the Database identifier 1");
}

TEST_F(LifecycleTest, DeleteTakesEverythingOfThatSchemaOnly) {
    ASSERT_TRUE(fNewSchema(Details("Keep")));
    const std::string before = AllRows();
    ASSERT_TRUE(fNewSchema(Details("Drop")));
    const std::string dropped = CurrentDBSFolder;
    recorder.yesNoAnswers = {false, true};
    EXPECT_FALSE(fDeleteSchema(true));
    EXPECT_EQ(recorder.Take(), "question: Do you really want to delete the selected Database: Drop?");
    EXPECT_TRUE(fDeleteSchema(true));
    EXPECT_EQ(AllRows(), before);
    EXPECT_EQ(Rows("select [Name] from [Database]"), "Keep");
    EXPECT_FALSE(fs::exists(dropped));
    EXPECT_EQ(SessionState, kNotOpen);
}

}  // namespace
}  // namespace vellumark
