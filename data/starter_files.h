#pragma once

#include <span>
#include <string_view>

namespace vellumark {

// The whole texts of the files under values/ and conversions/; the build generates the definition.
std::span<const std::string_view> StarterFiles();

}  // namespace vellumark
