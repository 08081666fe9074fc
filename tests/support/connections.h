#pragma once

#include "schema/modConnectionDetails.h"

namespace vellumark::test {

// A connection with something in every field that a string may carry.
ConnectionDetails FilledConnection(std::string_view dbms, char protocol, bool useODBC);

}  // namespace vellumark::test
