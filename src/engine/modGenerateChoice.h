#pragma once

#include <optional>
#include <string>

#include "engine/modGenerateData.h"
#include "engine/modRunProgress.h"

// What is settled before a run and behind it, on the Generate Data screen as by command.
namespace vellumark {

// The delimited text that was written last in this session.
inline std::string LastTextFile;

// What the Generate Data screen shows of the current schema.
struct RunSchema {
    std::string targetType;        // of its Target Connection
    std::string sheetWeaverStyle;  // of a schema read from Sheet Weaver
};

// Nothing, behind a message, when the schema or its Target Connection is gone.
std::optional<RunSchema> ReadRunSchema();

// One line that tells what a run of the current Scenario does.
std::string RunComment(const RunSchema& schema);

// True when the current Scenario becomes delimited text for a sister tool, and nothing else.
bool OnlyDelimitedText();
// True when delimited text goes on into a table of the sister tool.
bool LoadsTable(const RunSchema& schema);

// What [Options] offers for a run.
struct RunDefaults {
    std::string targetFormat;
    std::string textFolder;
    std::string sqlFolder;
};

RunDefaults ReadRunDefaults();

// Where a run into a file goes unless the user says otherwise.
std::string DefaultTextFile(const RunDefaults& defaults);

// The folder in which the screen looks for an output of that format.
const std::string& OutputFolder(const RunDefaults& defaults, TargetFormat format);

// True when a run may go to the Target Connection, which then is open: a deletion has been confirmed, and a
// closed connection could be opened, which `mayConnect` must allow. Shows its messages.
bool fDatabaseRunOK(bool mayConnect);

// Carries out the current Insert or Delete Scenario. False when something stopped it, which has been shown.
bool fRunScenario(const OutputChoice& choice, RunProgress& progress);

}  // namespace vellumark
