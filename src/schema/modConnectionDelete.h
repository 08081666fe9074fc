#pragma once

#include <string>
#include <vector>

// What stored connections serve, and deleting those that serve nothing.
namespace vellumark {

// "Source of Shop", "Target of Shop" and "Orders.CustomerId in Shop, Scenario to create data" for a Column
// rule that takes its values from the connection.
std::vector<std::string> ConnectionUses(int id);

// True when nothing uses the connection and the user agrees.
bool fMayDeleteConnection(int id);
bool fDeleteConnection(int id);

}  // namespace vellumark
