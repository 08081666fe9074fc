#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

#include "cli.h"
#include "embedded.h"
#include "platform/dao/database.h"
#include "platform/text.h"
#include "session.h"

namespace vellumark::test {
namespace {

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

const std::string kSecret = "Zebra;7!pass";
const std::string kScenario = "Scenario to create data";

// Whatever the tests' user lets others read, these programs would.
void MakeAllReadable() {
    umask(0);
}

class Secrets : public ::testing::Test {
 protected:
    void SetUp() override {
        folder.Write("Vellumark.INI", "REPOSITORY=" + folder.Path() + "\nVALUES=" + folder.Path() +
                                          "\nVM_DATABASES=" + folder.Path("databases") + "\n");
        dao::CreateDatabase(locked, kSecret);
        dao::OpenDatabase(locked, ";pwd=" + kSecret)
            .Execute("create table [Customer] ([Id] INTEGER, [Name] VARCHAR(12))");
        Run({"init"});
    }

    Words Settled(Words words) const {
        words.insert(words.begin(), {"--settings", folder.Path("Vellumark.INI"), "--yes"});
        return words;
    }

    // What it says is kept for the end of the test.
    int Run(const Words& words, const char* environment = nullptr) {
        const CliResult result = RunCli(Settled(words), [&] {
            MakeAllReadable();
            if (environment != nullptr)
                setenv("VELLUMARK_PASSWORD", environment, 1);
        });
        said += result.out + result.err;
        return result.status;
    }

    TempFolder folder;
    std::string locked = folder.Path("locked.mdb");
    std::string byDriver = "driver={Microsoft Access Driver (*.mdb)};DBQ=" + locked + ";";
    std::string said;
};

bool IsStore(const fs::path& path) {
    return path.filename().string().find(".mdb") != std::string::npos;
}

TEST_F(Secrets, APasswordStandsInNoMessageAndNoFileButTheStores) {
    const Words typed = {"--type", "Jet", "--mdb", locked, "--password", "{" + kSecret + "}"};
    const Words string = {"--type", "Jet", "--connection-string", byDriver + "PWD={" + kSecret + "}"};
    const auto with = [](Words words, const Words& more) {
        words.insert(words.end(), more.begin(), more.end());
        return words;
    };
    EXPECT_EQ(Run(with({"read", "One"}, typed)), 0);
    EXPECT_EQ(Run(with({"read", "Two"}, string)), 0);
    EXPECT_EQ(Run({"read", "Three", "--type", "Jet", "--connection-string", byDriver}, kSecret.c_str()), 0);
    EXPECT_EQ(Run(with({"connection", "test"}, typed)), 0);
    EXPECT_EQ(Run(with({"connect", "One"}, string)), 0);
    EXPECT_EQ(Run({"rule", "add", "One", kScenario, "Customer"}), 0);
    EXPECT_EQ(Run(with({"source", "One", kScenario, "1", "Name", "--kind", "database", "--table", "Customer",
                        "--source-column", "Name"},
                       string)),
              0);
    for (const Words& words :
         std::vector<Words>{{"connections"},
                            {"show", "One", kScenario, "1"},
                            {"describe", "One", "Customer"},
                            {"report", "columns", "One", "--output", folder.Path()},
                            {"report", "tables", "One", "--output", folder.Path()},
                            {"version-control", "Two", "One", "--log", folder.Path("log.txt")},
                            {"scenario", "copy", "One", kScenario, "Copy"}})
        EXPECT_EQ(Run(words), 0) << words.front();
    // What fails says more.
    Run({"generate", "One", kScenario, "--file", folder.Path("out.sql"), "--format", "Jet"});
    Run({"generate", "One", kScenario, "--database"});
    for (const Words& connection :
         {Words{"--type", "Jet", "--mdb", folder.Path(), "--password", kSecret},
          Words{"--type", "Jet", "--protocol", "dao", "--connection-string", "x;PWD={" + kSecret + "}"},
          Words{"--type", "Other", "--connection-string", "DRIVER={Gone};PWD={" + kSecret + "}"},
          Words{"--type", "Other", "--access", "odbc", "--dsn", "ghosts", "--password", kSecret},
          Words{"--type", "Other", "--connection-string", "DSN=none;PWD={" + kSecret + "}"}})
        EXPECT_EQ(Run(with({"connection", "test"}, connection)), 1);
    for (const Words& off :
         {Words{"connections", "--password", kSecret}, Words{"schemas", "--password=" + kSecret},
          Words{"tables", "One", "--connection-string", byDriver + "PWD=" + kSecret},
          Words{"tables", "One", "DSN=x;PWD={" + kSecret + "}"}})
        EXPECT_EQ(Run(off), 2);

    EXPECT_EQ(said.find("Zebra"), std::string::npos) << said;
    EXPECT_EQ(said.find("7!pass"), std::string::npos) << said;
    for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
        if (entry.is_regular_file() && !IsStore(entry.path())) {
            EXPECT_EQ(ReadFile(entry.path()).find("7!pass"), std::string::npos) << entry.path();
        }
}

// Waits a little for what another process is about to do.
template <class Condition>
bool Soon(const Condition& condition) {
    for (int tries = 0; tries < 2000; ++tries, std::this_thread::sleep_for(std::chrono::milliseconds(1)))
        if (condition())
            return true;
    return false;
}

TEST_F(Secrets, TheListOfProcessesShowsNoPassword) {
    ASSERT_EQ(Run({"read", "One", "--type", "Jet", "--mdb", locked}, ("{" + kSecret + "}").c_str()), 0);
    const dao::Database repository = dao::OpenDatabase(folder.Path("Vellumark.mdb"), ";pwd=quillfern");
    for (const Words& secret : {Words{"--mdb", locked, "--password", kSecret}, Words{"--password=" + kSecret},
                                Words{"--connection-string", byDriver + "PWD={" + kSecret + "}"}}) {
        const dao::Transaction busy(repository);
        Words words{"connect", "One", "--type", "Jet"};
        words.insert(words.end(), secret.begin(), secret.end());
        const pid_t process = StartCli(Settled(words));
        const std::string list = "/proc/" + std::to_string(process) + "/cmdline";
        EXPECT_TRUE(Soon([&] {
            const std::string shown = ReadFile(list);
            return shown.find("connect") != shown.npos && shown.find("7!pass") == shown.npos;
        }));
        kill(process, SIGKILL);
        WaitFor(process);
    }
}

int ModeOf(const fs::path& path) {
    return static_cast<int>(fs::status(path).permissions());
}

TEST_F(Secrets, WhatTheProgramKeepsIsItsOwnersAlone) {
    ASSERT_EQ(Run({"read", "Shop", "--type", "Jet", "--mdb",
                   MakeEmbedded(folder.Path("shop.db"), "create table Customer (Id INTEGER primary key);")}),
              0);
    ASSERT_EQ(Run({"rule", "add", "Shop", kScenario, "Customer"}), 0);
    ASSERT_EQ(Run({"column", "Shop", kScenario, "1", "Id", "Flag Column Unique=-1"}), 0);
    ASSERT_EQ(Run({"generate", "Shop", kScenario, "--file", folder.Path("out.sql"), "--format", "Jet"}), 0);
    const dao::Database open = dao::OpenDatabase(folder.Path("Vellumark.mdb"), ";pwd=quillfern");
    open.Execute("update [Options] set [Start Range] = 2");
    int stores = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
        if (entry.is_regular_file() && IsStore(entry.path())) {
            ++stores;
            EXPECT_EQ(ModeOf(entry.path()), 0600) << entry.path();
        }
    EXPECT_GE(stores, 6);  // two stores, what the engine lays beside one, a Working database, the locked file

    const std::string home = folder.Path("home");
    RunCli({"schemas"}, [&] {
        MakeAllReadable();
        setenv("XDG_CONFIG_HOME", home.c_str(), 1);
    });
    EXPECT_EQ(ModeOf(home + "/Vellumark"), 0700);
    for (const char* name : {"Vellumark.INI", "Vellumark.mdb", "Vellumark Values.mdb"})
        EXPECT_EQ(ModeOf(home + "/Vellumark/" + name), 0600) << name;
}

}  // namespace
}  // namespace vellumark::test
