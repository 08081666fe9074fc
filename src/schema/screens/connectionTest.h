#pragma once

#include "schema/modConnectionDetails.h"

namespace vellumark {

// Connects and says what is at the other end, or why it can't be reached.
void ShowConnectionTest(const ConnectionDetails& details);

}  // namespace vellumark
