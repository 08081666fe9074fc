#pragma once

#include <optional>
#include <string>
#include <string_view>

// A Scenario as a whole: its row, its folder and what stands under it.
namespace vellumark {

inline constexpr std::size_t kLongestScenarioName = 50;

// Makes a Scenario of the kind that CurrentScenarioTab tells and selects it. An empty name is asked for, a
// given one is taken as it stands; CheckedScenarioName tests it. The first Scenario of a schema becomes the
// System Scenario. False when the user gave no name or the folder can't be made; nothing is left of it then.
bool CreateScenario(std::string name);

// Copies the current Scenario under a new name, asked for when it is empty. The selection stays.
bool SaveScenarioAs(std::string name);

// Renames the current Scenario and its folder, asking for the name when it is empty.
bool RenameScenario(std::string name);

// Removes the Scenario in CurrentTSOId and its folder CurrentTSOFolder, without a question. None is selected
// then.
bool DeleteScenario();

// Removes the rows of the Scenario in CurrentTSOId alone. Needs an open Repository; throws platform::Error.
void DeleteScenarioRows();

// Asks the question that comes before DeleteScenario.
bool fConfirmDeleteScenario();

// Selects the Scenario of that name in the open schema; false when there is none, which changes nothing.
bool OpenScenario(std::string_view name);

// Leaves the open schema without a selected Scenario.
void SelectNoScenario();

// When the Scenario's folder or a file in it last changed, "YYYY-MM-DD HH:MM:SS"; empty without a folder. The
// rows of a Scenario bear no time.
std::string ScenarioLastModified(std::string_view name);

// Makes the System Scenario of a new schema with its default rules.
void CreateSystemScenario();

// Shows why the name can't be a new Scenario's (too long, or its folder is there) and returns false, or true.
bool fScenarioNameOK(std::string_view name);

// The folder of a Scenario of the open schema.
std::string ScenarioFolder(std::string_view name);

}  // namespace vellumark
