#include <filesystem>
#include <gtest/gtest.h>

#include "cli.h"
#include "embedded.h"
#include "platform/dao/database.h"
#include "platform/text.h"
#include "session.h"

namespace vellumark::test {
namespace {

using Words = std::vector<std::string>;

const std::string kInsert = "Scenario to create data";
const std::string kDelete = "Scenario to delete data";

class TwoCopies : public ::testing::Test {
 protected:
    void SetUp() override {
        folder.Write("Vellumark.INI", "REPOSITORY=" + folder.Path() + "\nVALUES=" + folder.Path() +
                                          "\nVM_DATABASES=" + folder.Path("databases") + "\n");
        ASSERT_EQ(Run({"init"}).status, 0);
        const std::string shop =
            MakeEmbedded(folder.Path("shop.db"), "create table Customer (Id INTEGER primary key);");
        ASSERT_EQ(Run({"read", "Shop", "--type", "Jet", "--mdb", shop}).status, 0);
    }

    Words Settled(Words words) const {
        words.insert(words.begin(), {"--settings", folder.Path("Vellumark.INI"), "--yes"});
        return words;
    }

    CliResult Run(const Words& words) const { return RunCli(Settled(words)); }

    // How many of the commands, started at once, did what they should.
    int Done(const std::vector<Words>& commands) const {
        std::vector<pid_t> processes;
        for (const Words& words : commands)
            processes.push_back(StartCli(Settled(words)));
        int done = 0;
        for (const pid_t process : processes)
            done += WaitFor(process) == 0 ? 1 : 0;
        return done;
    }

    dao::Database Repository() const {
        return dao::OpenDatabase(folder.Path("Vellumark.mdb"), ";pwd=quillfern");
    }

    std::string Rows(const std::string& sql) const { return RowsOf(Repository(), sql); }

    TempFolder folder;
};

TEST_F(TwoCopies, ChangesAtTheSameTimeAreAllKept) {
    std::vector<Words> commands;
    for (int i = 0; i < 6; ++i) {
        commands.push_back({"rule", "add", "Shop", kInsert, "Customer"});
        commands.push_back({"rule", "add", "Shop", kDelete, "Customer"});
        commands.push_back({"scenario", "new", "Shop", "Scenario " + std::to_string(i)});
    }
    EXPECT_EQ(Done(commands), 18);
    for (const std::string table : {"TSO Insert Table Rule", "TSO Delete Table Rule"})
        EXPECT_EQ(Rows("select count(*), count(distinct [Id]), max([Id]) from [" + table +
                       "] where [FK TSO Id] in (1, 2)"),
                  "6|6|6")
            << table;
    EXPECT_EQ(Rows("select count(*), count(distinct [Id]) from [Test Scenario]"), "9|9");
    EXPECT_EQ(Rows("select * from pragma_integrity_check"), "ok");
}

TEST_F(TwoCopies, ANameIsGivenOnce) {
    const Words scenario = {"scenario", "new", "Shop", "Mine"};
    EXPECT_EQ(Done({scenario, scenario, scenario}), 1);
    EXPECT_EQ(Rows("select count(*) from [Test Scenario] where [Name] = 'Mine'"), "1");
    const Words schema = {"read", "Other", "--type", "Jet", "--mdb", folder.Path("shop.db")};
    EXPECT_EQ(Done({schema, schema, schema}), 1);
    EXPECT_EQ(Run({"schemas"}).out, "Other\nShop\n");
    EXPECT_EQ(Run({"tables", "Other"}).out, "Customer\n");
}

TEST_F(TwoCopies, AChangeWaitsForAReadThatIsUnderWay) {
    std::string tables;
    for (int i = 0; i < 400; ++i)
        tables += "create table T" + std::to_string(i) + " (Id INTEGER primary key, A TEXT, B TEXT, C TEXT);";
    const std::string wide = MakeEmbedded(folder.Path("wide.db"), tables);
    const pid_t reading = StartCli(Settled({"read", "Wide", "--type", "Jet", "--mdb", wide}));
    while (!std::filesystem::exists(folder.Path("databases/Wide.dbs")))
        ASSERT_EQ(Run({"rule", "add", "Shop", kInsert, "Customer"}).status, 0);
    EXPECT_EQ(Run({"rule", "add", "Shop", kInsert, "Customer"}).status, 0);
    EXPECT_EQ(Run({"tables", "Shop"}).out, "Customer\n");
    EXPECT_EQ(WaitFor(reading), 0);
    EXPECT_EQ(platform::Split(Run({"tables", "Wide"}).out, '\n').size(), 401u);
}

TEST_F(TwoCopies, AStoreThatStaysBusyIsToldAndLosesNothing) {
    const dao::Database repository = Repository();
    {
        const dao::Transaction busy(repository);
        // To look at a file that is open here already must not let go of what holds it.
        EXPECT_TRUE(Repository().IsOpen());
        EXPECT_EQ(Run({"schemas"}).out, "Shop\n");
        const CliResult scenario = Run({"scenario", "new", "Shop", "Late"});
        EXPECT_EQ(scenario.status, 1);
        EXPECT_TRUE(
            scenario.err.ends_with("Error: 3218 The file '" + folder.Path("Vellumark.mdb") +
                                   "' is being changed by another program. Please try again when that "
                                   "has finished.\n"))
            << scenario.err;
    }
    EXPECT_EQ(Run({"scenarios", "Shop"}).out, "I\t" + kInsert + "\nD\t" + kDelete + "\n");
    EXPECT_FALSE(std::filesystem::exists(folder.Path("databases/Shop.dbs/Late.tso")));
    EXPECT_EQ(Run({"scenario", "new", "Shop", "Late"}).status, 0);
}

}  // namespace
}  // namespace vellumark::test
