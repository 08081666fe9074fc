#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

// A text file whose lines are read by their numbers, in any order; lines end with CR LF or LF. The file is
// gone through once, to learn where its lines are, and is never held in memory as a whole.
class LineFile {
 public:
    // Looks for no lines behind `lastLine`. Throws kFileNotFound, kPermissionDenied, kPathAccessError for
    // what is no ordinary file, kDeviceIOError.
    explicit LineFile(const std::string& path, int lastLine = std::numeric_limits<int>::max());

    int LineCount() const { return lineCount_; }

    // Lines count from 1 to LineCount(). Valid until the next call. Throws kFileNotFound when the file has
    // been removed, kDeviceIOError when its size has changed.
    std::string_view Line(int line);

 private:
    struct Handle {
        Handle() = default;
        ~Handle();
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        int number = -1;
    };
    // Some lines that follow each other.
    struct Block {
        std::int64_t offset;
        int firstLine;
    };

    void Open(const std::string& path);
    void FindLines(int lastLine);
    void AddLine(std::int64_t start, std::int64_t end);
    void CheckUnchanged() const;
    void Load(std::size_t block);
    std::size_t BlockOf(int line) const;
    std::size_t Read(char* bytes, std::size_t count, std::int64_t offset) const;

    Handle handle_;
    std::int64_t size_ = 0;
    std::vector<Block> blocks_;
    std::int64_t end_ = 0;  // behind the last line
    int lineCount_ = 0;

    std::string bytes_;  // of the block at hand
    std::vector<std::size_t> lineStarts_;
    int firstLoaded_ = 0;
};

}  // namespace vellumark::platform
