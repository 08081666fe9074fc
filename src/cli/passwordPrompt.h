#pragma once

#include <optional>
#include <string>

namespace vellumark {

// A line typed on the terminal without being shown, or the next line of standard input where that is none.
// Nothing when the input ends first or the user breaks it off.
std::optional<std::string> AskPassword();

}  // namespace vellumark
