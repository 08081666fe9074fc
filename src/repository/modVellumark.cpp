#include "repository/modVellumark.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/addresses.h"
#include "repository/modOptionsMaintenance.h"
#include "repository/modRepositoryStores.h"
#include "repository/modRepositoryUpgrade.h"

namespace vellumark {

namespace fs = std::filesystem;

namespace {

constexpr int kRepositoryLevel = 2;
constexpr int kCountWaitSeconds = 1;
constexpr std::string_view kSettingsFileName = "Vellumark.INI";

int repositoryScopes = 0;
int valuesScopes = 0;

[[noreturn]] void EndOverRepository(const platform::Error& error) {
    platform::ShowExclamation(
        "Unexpected error occurred trying to open the Vellumark repository.\n\n\n"
        "Please check the settings in the Vellumark.ini file.\n\n\n"
        "If you are still experiencing difficulties, please contact Tarvo support, or check the frequently "
        "asked "
        "questions on " +
        std::string(kSupportAddress) + "\n\n\n" + error.Line());
    throw platform::ProgramEnd{};
}

// The engine takes an empty file for a database without tables.
void CheckNotEmpty(const std::string& path) {
    std::error_code isNoFile;
    if (fs::file_size(path, isNoFile) == 0)
        throw platform::Error(platform::kUnrecognizedFormat,
                              "Unrecognized database format '" + path + "'. The file is empty.");
}

std::string WithoutTrailingSeparator(std::string folder) {
    if (folder.ends_with('/') || folder.ends_with('\\'))
        folder.pop_back();
    return folder;
}

bool IsSisterWord(std::string_view word) {
    return word == "CW" || word == "SW";
}

// What an installer would have put in place, for a user who starts the program without one.
void MakeUserInstallation() {
    try {
        const bool madeSettings = CreateUserSettings(SettingsFilePath);
        LoadSettings();
        const std::vector<std::string> made = CreateMissingStores();
        if (madeSettings || !made.empty())
            platform::ShowInformation("Vellumark keeps its settings and stores in\n" +
                                      fs::path(SettingsFilePath).parent_path().string());
    } catch (const platform::Error& error) {
        EndOverRepository(error);
    }
}

void SplitCommandLine(std::string_view commandLine) {
    CommandWords = {};
    const std::vector<std::string_view> words = platform::Split(commandLine, ',');
    for (std::size_t i = 0; i < CommandWords.size() && i < words.size(); ++i)
        CommandWords[i] = platform::Trim(words[i]);
}

std::string FormatVersion() {
    char text[32];
    std::snprintf(text, sizeof text, "%d.%02d.%04d", VELLUMARK_VERSION_MAJOR, VELLUMARK_VERSION_MINOR,
                  VELLUMARK_VERSION_PATCH);
    return text;
}

// Another copy of the program may be at work on the store for long; what it counts isn't worth refusing to
// start.
void StoreCount(dao::Recordset& schema, const std::string& now) {
    RepositoryDatabase.WaitWhenBusy(kCountWaitSeconds);
    try {
        schema.Edit();
        schema.Set("Date Last Executed", now)
            .Set("Number of Executions", schema.Long("Number of Executions") + 1);
        schema.Update();
    } catch (const platform::Error& error) {
        if (error.Number() != platform::kLocked)
            throw;
    }
    RepositoryDatabase.WaitWhenBusy(dao::kBusyWaitSeconds);
}

// A later version may keep things that this one would spoil.
void CheckLevel(int level) {
    if (level > kRepositoryLevel)
        throw platform::Error(platform::kUnrecognizedFormat,
                              "The repository '" + RepositoryPath + "' is of level " + std::to_string(level) +
                                  ". This version of Vellumark knows level " +
                                  std::to_string(kRepositoryLevel) + " only; please start the newer one.");
}

// True when an upgrade is due.
bool CountExecution() {
    RepositoryScope repository;
    dao::Recordset schema = RepositoryDatabase.OpenRecordset("select * from [Schema]");
    const std::string now = platform::LocalNow();
    if (schema.IsEOF()) {
        schema.AddNew();
        schema.Set("Date Installed", now)
            .Set("Date Last Executed", now)
            .Set("Number of Executions", 1)
            .Set("Repository Version Number", kRepositoryLevel);
        schema.Update();
        return true;
    }
    const int level = schema.Long("Repository Version Number");
    CheckLevel(level);
    const bool upgradeDue = level < kRepositoryLevel;
    StoreCount(schema, now);
    return upgradeDue;
}

}  // namespace

void RefreshCommands() {
    if (CommandRefresher)
        CommandRefresher();
}

void SetSessionState(std::string_view state) {
    SessionState = state;
    RefreshCommands();
}

RepositoryScope::RepositoryScope() {
    if (repositoryScopes == 0) {
        try {
            RepositoryDatabase = dao::OpenDatabase(RepositoryPath, kRepositoryConnect, {.ownStore = true});
        } catch (const platform::Error& error) {
            EndOverRepository(error);
        }
    }
    ++repositoryScopes;
}

RepositoryScope::~RepositoryScope() {
    if (--repositoryScopes == 0)
        RepositoryDatabase.Close();
}

ValuesScope::ValuesScope() {
    if (valuesScopes == 0) {
        CheckNotEmpty(ValuesPath);
        ValuesDatabase = dao::OpenDatabase(ValuesPath, "", {.ownStore = true});
    }
    ++valuesScopes;
}

ValuesScope::~ValuesScope() {
    if (--valuesScopes == 0)
        ValuesDatabase.Close();
}

std::string DefaultSettingsFilePath() {
    const std::string beside = ProgramFolder + std::string(kSettingsFileName);
    if (fs::exists(beside))
        return beside;
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    const fs::path base =
        xdg != nullptr && *xdg != '\0' ? fs::path(xdg) : fs::path(home == nullptr ? "." : home) / ".config";
    return (base / "Vellumark" / kSettingsFileName).string();
}

void LoadProgramPaths() {
    VersionString = FormatVersion();
    ProgramFolder = fs::read_symlink("/proc/self/exe").parent_path().string() + "/";
    HelpFilePath = ProgramFolder + "Vellumark.chm";
    GridWeaverHelpFilePath = ProgramFolder + "Grid Weaver.chm";
}

void StartSession(std::string_view commandLine, const std::function<void()>& showStart) {
    LoadProgramPaths();
    SplitCommandLine(commandLine);
    const bool named = !CommandWords[0].empty() && !IsSisterWord(CommandWords[0]);
    SettingsFilePath = named ? CommandWords[0] : DefaultSettingsFilePath();
    const bool usersOwn = !named && !fs::exists(ProgramFolder + std::string(kSettingsFileName));
    if (usersOwn)
        MakeUserInstallation();
    LoadSettings();
    CheckRepository();
    if (showStart)
        showStart();
    try {
        EnsureOptions();
    } catch (const platform::Error& error) {
        EndOverRepository(error);
    }
}

void LoadSettings() {
    RepositoryPath = WithoutTrailingSeparator(GetINIValue(SettingsFilePath, "REPOSITORY")) + "/Vellumark.mdb";
    DatabasesFolder = WithoutTrailingSeparator(GetINIValue(SettingsFilePath, "VM_DATABASES"));
    ValuesPath = WithoutTrailingSeparator(GetINIValue(SettingsFilePath, "VALUES")) + "/Vellumark Values.mdb";
}

std::string GetINIValue(const std::string& file, std::string_view key) {
    std::ifstream settings(file);
    if (!settings) {
        platform::ShowCritical("Cannot find INI File: " + file + "\n\nPlease call support");
        throw platform::ProgramEnd{};
    }
    for (std::string line; std::getline(settings, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos && line.substr(0, equals) == key)
            return line.substr(equals + 1);
    }
    return {};
}

void CheckRepository() {
    bool upgradeDue = false;
    try {
        upgradeDue = CountExecution();
    } catch (const platform::Error& error) {
        EndOverRepository(error);
    }
    if (upgradeDue)
        UpgradeRepository();
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

int NextId(const dao::Database& database, std::string_view sql, const dao::Parameters& parameters,
           int first) {
    const dao::Value highest = database.Lookup(sql, parameters);
    return dao::IsNull(highest) ? first : dao::ToLong(highest) + 1;
}

}  // namespace vellumark
