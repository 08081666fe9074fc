#pragma once

#include <memory>

#include "engine/statementTarget.h"

namespace vellumark {

// The session's Target Connection, by its protocol. Throws platform::Error when it is not open.
std::unique_ptr<StatementTarget> SessionTarget();

// False behind a message when the session's Target is open but of a kind that is only read.
bool fTargetTakesData();

}  // namespace vellumark
