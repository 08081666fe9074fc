#include "temp_folder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <system_error>

namespace vellumark::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() : path_((fs::temp_directory_path() / "vellumark-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr)
        throw std::runtime_error("no temporary folder can be made: " + path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempFolder::Path(std::string_view name) const {
    return path_ + "/" + std::string(name);
}

std::string TempFolder::Write(std::string_view name, std::string_view content) const {
    const std::string path = Path(name);
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream file(path, std::ios::binary);
    file << content;
    if (!file.flush())
        throw std::runtime_error("not written: " + path);
    return path;
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << "not readable: " << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace vellumark::test
