#pragma once

#include <string>

#include "platform/access/bytes.h"

namespace vellumark::access {

// Appends text of Access 2000 and later as UTF-8. It is stored as UTF-16 or, behind a mark, packed: stretches
// of single bytes and of two bytes for a character, with a zero between one kind and the other.
void AppendUtf16(std::string& out, Bytes text);

}  // namespace vellumark::access
