#pragma once

namespace vellumark {

// Copies all rows of one Scenario of the open schema to another, Ids and all. Connections of Value Sources
// are duplicated, so that each Scenario owns its own. Needs an open Repository; throws platform::Error.
void CopyScenarioRows(int sourceTSOId, int targetTSOId);

}  // namespace vellumark
