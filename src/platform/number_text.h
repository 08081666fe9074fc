#pragma once

#include <string>

namespace vellumark::platform {

// The shortest text that reads back as the same number: "0.1", "100000", "-2.5"; with an exponent, "1E+20",
// only outside 0.0000001 to 1E+15.
void AppendNumberText(std::string& out, double number);
std::string NumberText(double number);

}  // namespace vellumark::platform
