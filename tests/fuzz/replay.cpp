// Runs every kept input through its target, without a fuzzer.

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "targets.h"
#include "temp_folder.h"

namespace vellumark::fuzz {
namespace {

namespace fs = std::filesystem;

class FuzzReplay : public ::testing::TestWithParam<Target> {};

TEST_P(FuzzReplay, KeptInputs) {
    const fs::path corpus = fs::path(VELLUMARK_FUZZ_CORPUS) / GetParam().name;
    int inputs = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(corpus)) {
        const std::string bytes = test::ReadFile(entry.path().string());
        EXPECT_NO_THROW(GetParam().run(bytes)) << entry.path();
        ++inputs;
    }
    EXPECT_GT(inputs, 0);
    EXPECT_NO_THROW(GetParam().run(""));
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplay, ::testing::ValuesIn(Targets().begin(), Targets().end()),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace vellumark::fuzz
