#pragma once

#include <string_view>

// Where the makers are found on the web.
namespace vellumark {

inline constexpr std::string_view kMakerAddress = "https://tarvo.example";
inline constexpr std::string_view kProductAddress = "https://vellumark.example";
inline constexpr std::string_view kSupportAddress = "https://vellumark.example/support";

}  // namespace vellumark
