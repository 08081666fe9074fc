#pragma once

#include <string>

namespace vellumark::platform {

// The present moment in local time, "YYYY-MM-DD HH:MM:SS".
std::string LocalNow();

}  // namespace vellumark::platform
