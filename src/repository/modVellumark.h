#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/database.h"

// The session: where the stores lie, which Database schema and Scenario are current, and the start of both
// programs. One user, one thread.
namespace vellumark {

inline constexpr std::string_view kNotOpen = "Not open";
inline constexpr std::string_view kOpenNoScenario = "Open with no TSO selected";
inline constexpr std::string_view kOpenWithScenario = "Open with TSO selected";

inline std::string VersionString;
inline std::string ProgramFolder;  // with a trailing separator
inline std::string HelpFilePath;
inline std::string GridWeaverHelpFilePath;
inline std::array<std::string, 2> CommandWords;

inline std::string SettingsFilePath;
inline std::string RepositoryPath;
inline std::string ValuesPath;
inline std::string DatabasesFolder;
// Valid while a RepositoryScope or a ValuesScope stands.
inline dao::Database RepositoryDatabase;
inline dao::Database ValuesDatabase;

inline std::string SessionState{kNotOpen};
inline int CurrentDBSId = 0;
inline std::string CurrentDBSName;
inline std::string CurrentDBSFolder;
inline char CurrentDBSSource = ' ';
inline char TargetConnectionState = 'D';
inline int CurrentTSOId = 0;
inline std::string CurrentTSOName;
inline std::string CurrentTSOFolder;
inline char CurrentTSOType = ' ';

inline char DecimalPointCharacter = '.';
inline bool AutoConnect = false;

// What the main screen shows of the open schema, kept here so that operations need no screen.
enum class ScenarioTab { Insert, Delete };
inline ScenarioTab CurrentScenarioTab = ScenarioTab::Insert;
inline std::vector<std::string> InsertScenarioNames;
inline std::vector<std::string> DeleteScenarioNames;
inline std::string ShownSchemaName;
inline std::string ShownSchemaDescription;
inline std::string ShownModelName;

// Called by RefreshCommands; the main screen sets it.
inline std::function<void()> CommandRefresher;
void RefreshCommands();
void SetSessionState(std::string_view state);

// Opens the Repository for one operation; scopes nest and share the handle. When the Repository can't be
// opened the constructor shows the message and throws platform::ProgramEnd.
class RepositoryScope {
 public:
    RepositoryScope();
    ~RepositoryScope();
    RepositoryScope(const RepositoryScope&) = delete;
    RepositoryScope& operator=(const RepositoryScope&) = delete;
};

// The same for the Values database; a failure throws platform::Error.
class ValuesScope {
 public:
    ValuesScope();
    ~ValuesScope();
    ValuesScope(const ValuesScope&) = delete;
    ValuesScope& operator=(const ValuesScope&) = delete;
};

// Where the settings file is looked for when the command line names none: beside the program, else in the
// user's configuration folder.
std::string DefaultSettingsFilePath();

// Splits the command line "[settings file][,word]" and starts the session: settings, Repository check with
// the upgrade that may be due, options. Shows its message and throws platform::ProgramEnd when the program
// can't go on. `showStart` is called once the Repository is known to be usable.
void StartSession(std::string_view commandLine, const std::function<void()>& showStart = {});

// Sets version, program folder and the paths that hang on it. StartSession calls it.
void LoadProgramPaths();

// Reads the three keys of SettingsFilePath. A missing file ends the program as StartSession tells.
void LoadSettings();

// The value of the first line "key=value" whose key matches exactly, or empty text.
std::string GetINIValue(const std::string& file, std::string_view key);

// Counts this start in [Schema] and runs the upgrade when the file is of an older level.
void CheckRepository();

// The folder and a name joined by one separator.
std::string JoinPath(std::string_view folder, std::string_view name);

// The next Id: the first column's value of the statement plus 1, or `first` when there is no row or a Null.
int NextId(const dao::Database& database, std::string_view sql, const dao::Parameters& parameters = {},
           int first = 1);

}  // namespace vellumark
