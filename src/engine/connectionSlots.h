#pragma once

#include <cstddef>

#include "schema/modDatabaseConnection.h"

// The connections that the value readers of a run hold until it ends, each opened once.
namespace vellumark {

inline constexpr std::size_t kConnectionSlots = 1000;

// Keeps what was opened into ValueConnections under the Id of ValueConnectionId. Throws kSubscriptOutOfRange
// when all slots are taken.
OpenConnections& AddConnectionSlot(char protocol);

// The connections of ValueConnectionId, or nothing when they have not been opened.
OpenConnections* FindConnectionSlot();

void CloseConnectionSlots();

// The slots of one run.
struct ConnectionSlotScope {
    ConnectionSlotScope() { CloseConnectionSlots(); }
    ~ConnectionSlotScope() { CloseConnectionSlots(); }
    ConnectionSlotScope(const ConnectionSlotScope&) = delete;
    ConnectionSlotScope& operator=(const ConnectionSlotScope&) = delete;
};

}  // namespace vellumark
