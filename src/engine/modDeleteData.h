#pragma once

#include <string>
#include <string_view>

#include "engine/modGenerateData.h"
#include "engine/modRunProgress.h"

namespace vellumark {

// Carries out the current Delete Scenario: writes its statements to the file, or executes them on the Target
// Connection, one by one. False when one failed, which has been shown; those before it stay done.
bool fDeleteSQL(const OutputChoice& choice, RunProgress& progress);

// The statement for a table under its qualified name. Empty for the format that has no statements.
std::string DeleteStatement(TargetFormat format, std::string_view qualifiedName,
                            std::string_view whereClause);

}  // namespace vellumark
