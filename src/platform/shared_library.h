#pragma once

#include <string>

namespace vellumark::platform {

// Loads a library and frees it again; false when it can't be loaded. A name without a separator is looked for
// where the system keeps its libraries.
bool CanLoadLibrary(const std::string& path);

}  // namespace vellumark::platform
