#pragma once

// The marks that tell a run which columns of the current Scenario pass through the Working database. The
// Repository is open.
namespace vellumark {

void fClearStatusMarks();

// Marks, by table and column, what takes part in a Dependency or must be unique, and the rules of those
// tables.
void fSetStatusMarks();

}  // namespace vellumark
