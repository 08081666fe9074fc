#pragma once

#include <string>
#include <string_view>

namespace vellumark::test {

// The path of a file in tests/data, and of one in samples.
std::string TestData(std::string_view name);
std::string Sample(std::string_view name);

}  // namespace vellumark::test
