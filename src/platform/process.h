#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

// Words of a command line; double quotes hold blanks together.
std::vector<std::string> SplitCommand(std::string_view line);

// The path of an executable file: the name itself when it holds a separator, else the first one found in the
// folders of PATH. Empty when there is none.
std::string FindProgram(std::string_view name);

// Starts a program that lives on by itself, without input or output, and does not wait for it. The first word
// is looked for as by FindProgram. Throws kFileNotFound when there is no such program and kPathAccessError
// when it does not start.
void StartDetached(const std::vector<std::string>& command);

// Runs a program to its end, without input and with its standard output thrown away, and returns its exit
// status, or 128 and the signal that ended it. Looks for it and throws as StartDetached does.
int RunToEnd(const std::vector<std::string>& command);

}  // namespace vellumark::platform
