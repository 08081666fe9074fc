#pragma once

#include <string>

#include "repository/modTargetFormats.h"

namespace vellumark::bench {

// The rows of the CUSTOMER rule, without the comment lines, as someone would print them who needs just these.
void WriteCustomersByHand(const std::string& path, TargetFormat format, int rows);

}  // namespace vellumark::bench
