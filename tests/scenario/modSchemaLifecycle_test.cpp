#include "scenario/modSchemaLifecycle.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "repository/modVellumark.h"
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

    ConnectionDetails Details(const std::string& name) const {
        ConnectionDetails details;
        details.schemaName = name;
        details.schemaDescription = "about it";
        details.mdbFile = source;
        fConnectionString(details);
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

TEST_F(LifecycleTest, NewSchemaIsReadyToUse) {
    ASSERT_TRUE(fNewSchema(Details("Shop")));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(recorder.statuses, (std::vector<std::string>{
                                     "Reading Database Definition", "Reading in database tables and columns",
                                     "Setting defaults", "Creating default Insert Scenario", ""}));
    EXPECT_EQ(Rows("select [Id], [Name], [Description], [Source], [FK CON Id Source], [FK CON Id Target] "
                   "from [Database]"),
              "1|Shop|about it|D|1|2");
    EXPECT_EQ(Rows("select [Description] from [Database Connection]"),
              "Shop (Source) - DBMS: 'Jet' MDB: 'source.mdb'\nShop (Target) - DBMS: 'Jet' MDB: 'source.mdb'");
    EXPECT_EQ(Rows("select [Name] from [Table] order by [Id]"), "Parent\nChild");
    EXPECT_EQ(Rows("select [Id], [Name], [Type] from [Test Scenario]"),
              "0|System|0\n1|Scenario to delete data|D\n2|Scenario to create data|I");
    EXPECT_EQ(CurrentTSOName, "Scenario to create data");
    EXPECT_EQ(CurrentTSOType, 'I');
    EXPECT_EQ(SessionState, kOpenWithScenario);
    EXPECT_EQ(ShownSchemaDescription, "about it");
    EXPECT_EQ(TargetConnectionState, 'D');
    EXPECT_TRUE(fs::is_directory(CurrentDBSFolder + "/Scenario to delete data.tso"));
}

TEST_F(LifecycleTest, RefusalsLeaveNoTrace) {
    ASSERT_TRUE(fNewSchema(Details("Shop")));
    const std::string before = AllRows();
    EXPECT_FALSE(fNewSchema(Details("SHOP")));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Database name already exists in Vellumark.\n\nPlease enter a different "
              "Name and try again.");

    ConnectionDetails broken = Details("Broken");
    broken.mdbFile = folder.Path("none.mdb");
    fConnectionString(broken);
    for (const char protocol : {'A', 'D'}) {
        broken.protocol = protocol;
        fConnectionString(broken);
        EXPECT_FALSE(fNewSchema(broken));
        EXPECT_NE(recorder.Take().find("Cannot connect to source database."), std::string::npos);
    }
    EXPECT_FALSE(fNewSchema(Details("")));
    EXPECT_FALSE(fNewSchema(Details("a/b")));
    EXPECT_EQ(AllRows(), before);
    EXPECT_FALSE(fs::exists(folder.Path("databases/Broken.dbs")));
    EXPECT_EQ(SessionState, kNotOpen);
}

TEST_F(LifecycleTest, FolderThatIsThereIsAskedAboutAndKept) {
    fs::create_directory(folder.Path("databases/Shop.dbs"));
    folder.Write("databases/Shop.dbs/notes.txt", "mine");
    recorder.yesNoAnswers = {false, true};
    EXPECT_FALSE(fNewSchema(Details("Shop")));
    EXPECT_EQ(recorder.Take(), "question: Database directory already exists: " +
                                   folder.Path("databases/Shop.dbs") + "\n\nDo you want to continue?");
    EXPECT_EQ(Count("Database"), 0);
    ASSERT_TRUE(fNewSchema(Details("Shop")));
    EXPECT_EQ(test::ReadFile(CurrentDBSFolder + "/notes.txt"), "mine");
}

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
