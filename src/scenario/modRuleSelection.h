#pragma once

#include "repository/modTargetFormats.h"

// What is selected on the rule screen; its parts share it.
namespace vellumark {

// The Scenario whose rules are edited: 0, the System Scenario, while the defaults have the focus, else
// CurrentTSOId.
inline int RuleScenarioId = 0;
inline int CurrentTTRId = 0;  // Table rule, or Delete table rule; 0 when none
inline int CurrentTCRId = 0;  // Column rule; 0 while a table is selected
inline int CurrentTABId = 0;
inline int CurrentCOLId = 0;
inline DataType CurrentColumnDataType = DataType::Character;

}  // namespace vellumark
