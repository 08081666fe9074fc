#pragma once

#include <chrono>
#include <string>

namespace vellumark::platform {

// The present moment in local time, "YYYY-MM-DD HH:MM:SS".
std::string LocalNow();
// Any moment likewise.
std::string LocalText(std::chrono::system_clock::time_point moment);

}  // namespace vellumark::platform
