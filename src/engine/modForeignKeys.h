#pragma once

#include "engine/modWorkingDatabase.h"

namespace vellumark {

// Copies the parents' values into the child columns of the current Scenario's Dependencies, rule by rule in
// `Sort Order`. Each parent row in turn serves as many children as the increment says; behind the last parent
// the first comes again. The Repository is open. Throws kNoCurrentRecord when a child comes to a parent row
// that is not there, kDivisionByZero for an increment of 0.
void ResolveForeignKeys(const WorkingDatabase& database);

}  // namespace vellumark
