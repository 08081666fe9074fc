#include "repository/modVellumark.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/error.h"
#include "repository/modOptionsMaintenance.h"
#include "repository/modRepositoryStores.h"
#include "session.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;

class StartTest : public test::SessionTest {
 protected:
    std::string WriteSettings(const std::string& text) { return folder.Write("Vellumark.INI", text); }
};

TEST_F(StartTest, SettingsKeysMatchExactly) {
    const std::string file = WriteSettings(
        "[Settings]\r\n"
        "repository=/lower\r\n"
        "REPOSITORY =/blank\r\n"
        "xREPOSITORY=/longer\r\n"
        "REPOSITORY=/a=b//\r\n"
        "REPOSITORY=/second\r\n"
        "VALUES=/v\n"
        "VM_DATABASES=/d/");
    EXPECT_EQ(GetINIValue(file, "REPOSITORY"), "/a=b//");
    EXPECT_EQ(GetINIValue(file, "MISSING"), "");
    SettingsFilePath = file;
    LoadSettings();
    EXPECT_EQ(RepositoryPath, "/a=b//Vellumark.mdb");
    EXPECT_EQ(ValuesPath, "/v/Vellumark Values.mdb");
    EXPECT_EQ(DatabasesFolder, "/d");
}

TEST_F(StartTest, MissingSettingsFileEndsTheProgram) {
    EXPECT_THROW(StartSession(folder.Path("none.ini") + ",CW"), platform::ProgramEnd);
    EXPECT_EQ(recorder.Take(),
              "critical: Cannot find INI File: " + folder.Path("none.ini") + "\n\nPlease call support");
    EXPECT_EQ(CommandWords[1], "CW");
}

TEST_F(StartTest, UnusableRepositoryEndsTheProgram) {
    const std::string file =
        WriteSettings("REPOSITORY=" + folder.Path() + "\nVALUES=" + folder.Path() + "\n");
    const struct {
        const char* what;
        std::function<void()> spoil;
        const char* error;
        bool startShown = false;
    } cases[] = {
        {"missing", [&] { fs::remove(RepositoryPath); }, "Error: 3024 "},
        {"no database", [&] { folder.Write("Vellumark.mdb", std::string(9000, 'x')); }, "Error: 3343 "},
        {"empty", [&] { folder.Write("Vellumark.mdb", ""); }, "Error: 3078 "},
        {"other password",
         [&] {
             fs::remove(RepositoryPath);
             dao::CreateDatabase(RepositoryPath, "other");
         },
         "Error: 3031 "},
        {"later level",
         [&] {
             fs::remove(RepositoryPath);
             CreateRepository(RepositoryPath);
             StartSession(file);
             const RepositoryScope repository;
             RepositoryDatabase.Execute("update [Schema] set [Repository Version Number] = 3");
         },
         "Error: 3343 The repository '"},
        {"no options",
         [&] {
             fs::remove(RepositoryPath);
             CreateRepository(RepositoryPath);
             StartSession(file);
             const RepositoryScope repository;
             RepositoryDatabase.DropTable("Options");
         },
         "Error: 3078 ", true},
    };
    for (const auto& c : cases) {
        c.spoil();
        bool startShown = false;
        EXPECT_THROW(StartSession(file, [&] { startShown = true; }), platform::ProgramEnd) << c.what;
        EXPECT_EQ(startShown, c.startShown) << c.what;
        const std::string shown = recorder.Take();
        EXPECT_TRUE(
            shown.starts_with("exclamation: Unexpected error occurred trying to open the Vellumark "
                              "repository.\n\n\nPlease check the settings in the Vellumark.ini file.\n\n\n"))
            << c.what << shown;
        EXPECT_NE(shown.find(c.error), std::string::npos) << c.what << shown;
    }
}

TEST_F(StartTest, EmptyValuesFileIsNamed) {
    folder.Write("Vellumark Values.mdb", "");
    try {
        const ValuesScope values;
        FAIL() << "it opened";
    } catch (const platform::Error& error) {
        EXPECT_EQ(error.Line(),
                  "Error: 3343 Unrecognized database format '" + ValuesPath + "'. The file is empty.");
    }
}

TEST_F(StartTest, EachStartIsCounted) {
    const std::string file =
        WriteSettings("REPOSITORY=" + folder.Path() + "/\nVALUES=" + folder.Path() + "\n");
    StartSession(file);
    StartSession(file);
    EXPECT_EQ(Rows("select [Number of Executions], [Repository Version Number] from [Schema]"), "2|2");
    EXPECT_EQ(Count("Options"), 1);
    EXPECT_EQ(VersionString, "1.00.0000");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(StartTest, OptionsKeepWhatTheUserSet) {
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "update [Options] set [Decimal Point Character] = ';', [flag DB Auto Connect] = True");
    }
    EnsureOptions();
    EXPECT_EQ(DecimalPointCharacter, ';');
    EXPECT_TRUE(AutoConnect);
    EXPECT_EQ(
        Rows("select [Target DataBase], [Commit Point], [Fill Character], [Value Too Large Number], "
             "[Code Input Timestamp Edit Pattern], [Char T Output Textfile In Quotes], [SQL Header File], "
             "[Dir SQL] = [Dir COOLGen Models] from [Options]"),
        "Text File - Delimited|1000|#|1|Y001C002M001C002D001C002H001C003I001C003S001C003N001|'||1");
    AutoConnect = false;
    DecimalPointCharacter = '.';
}

TEST_F(StartTest, MissingStoresAreMadeAndOthersLeftAlone) {
    SettingsFilePath = WriteSettings("REPOSITORY=" + folder.Path("r/deep") + "\nVALUES=" + folder.Path() +
                                     "\nVM_DATABASES=" + folder.Path("dbs") + "\n");
    LoadSettings();
    const std::vector<std::string> made = CreateMissingStores();
    EXPECT_EQ(made, (std::vector<std::string>{folder.Path("r/deep"), folder.Path("r/deep/Vellumark.mdb"),
                                              folder.Path("dbs")}));
    EXPECT_TRUE(CreateMissingStores().empty());
    SettingsFilePath = WriteSettings("VALUES=" + folder.Path());
    LoadSettings();
    EXPECT_THROW(CreateMissingStores(), platform::Error);
}

}  // namespace
}  // namespace vellumark
