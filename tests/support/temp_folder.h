#pragma once

#include <string>
#include <string_view>

namespace vellumark::test {

// A new empty folder in the system's folder for temporary files; it goes with all that is in it.
class TempFolder {
 public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // The folder, without a separator at its end.
    const std::string& Path() const { return path_; }
    // The path of a file or a folder inside, which need not exist.
    std::string Path(std::string_view name) const;

    // Writes a file, with the folders above it, and returns its path.
    std::string Write(std::string_view name, std::string_view content) const;

 private:
    std::string path_;
};

// The whole content of a file; a file that can't be read fails the test.
std::string ReadFile(const std::string& path);

}  // namespace vellumark::test
