#include "platform/shared_library.h"

#include <dlfcn.h>

namespace vellumark::platform {

bool CanLoadLibrary(const std::string& path) {
    void* library = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
    return library != nullptr && dlclose(library) == 0;
}

}  // namespace vellumark::platform
