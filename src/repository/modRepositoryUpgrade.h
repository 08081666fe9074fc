#pragma once

namespace vellumark {

// Brings both stores to the present level; parts that are there stay as they are. A failure shows its message
// and leaves the level for the next start.
void UpgradeRepository();

}  // namespace vellumark
