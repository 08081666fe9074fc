#include "engine/connectionSlots.h"

#include <algorithm>
#include <array>

#include "platform/error.h"

namespace vellumark {

namespace {

// Free when its Id is 0.
struct ConnectionSlot {
    int id = 0;
    OpenConnections connections;
};

std::array<ConnectionSlot, kConnectionSlots> ConnectionSlots;

ConnectionSlot* SlotOf(int id) {
    const auto slot = std::ranges::find(ConnectionSlots, id, &ConnectionSlot::id);
    return slot == ConnectionSlots.end() ? nullptr : &*slot;
}

}  // namespace

OpenConnections& AddConnectionSlot(char protocol) {
    ConnectionSlot* slot = SlotOf(0);
    if (slot == nullptr)
        throw platform::Error(platform::kSubscriptOutOfRange, "Too many connections are open.");
    slot->id = ValueConnectionId;
    if (protocol == 'A')
        slot->connections.ado = std::move(ValueConnections.ado);
    else
        slot->connections.dao = std::move(ValueConnections.dao);
    return slot->connections;
}

OpenConnections* FindConnectionSlot() {
    ConnectionSlot* slot = ValueConnectionId == 0 ? nullptr : SlotOf(ValueConnectionId);
    return slot == nullptr ? nullptr : &slot->connections;
}

void CloseConnectionSlots() {
    for (ConnectionSlot& slot : ConnectionSlots)
        slot = {};
}

}  // namespace vellumark
