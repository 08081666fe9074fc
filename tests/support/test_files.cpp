#include "test_files.h"

namespace vellumark::test {

std::string TestData(std::string_view name) {
    return std::string(VELLUMARK_TEST_DATA) + "/" + std::string(name);
}

std::string Sample(std::string_view name) {
    return std::string(VELLUMARK_SAMPLES) + "/" + std::string(name);
}

}  // namespace vellumark::test
