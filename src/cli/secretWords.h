#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellumark {

// The words of the command line behind the program's name. Those that hold a password are overwritten where
// they came from, so that the system's list of processes doesn't show them any longer.
std::vector<std::string> TakeWords(int argc, char** argv);

// The text with "***" in place of what the words hold of passwords.
std::string WithoutSecrets(std::string text, const std::vector<std::string>& words);

}  // namespace vellumark
