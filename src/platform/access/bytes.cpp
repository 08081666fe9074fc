#include "platform/access/bytes.h"

#include <string>

#include "platform/error.h"

namespace vellumark::access {

void ThrowDamaged(std::string_view what) {
    throw platform::Error(platform::kUnrecognizedFormat,
                          "The Microsoft Access file is damaged or incomplete: " + std::string(what) + ".");
}

}  // namespace vellumark::access
