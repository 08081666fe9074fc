#pragma once

#include <functional>
#include <string_view>

// Changes of the stores that hold or fail as a whole. `doing` completes "Unexpected error occurred ", which a
// failure shows; it leaves nothing of the change.
namespace vellumark {

bool fChangeRepository(std::string_view doing, const std::function<void()>& change);
bool fChangeValues(std::string_view doing, const std::function<void()>& change);

}  // namespace vellumark
