#include "platform/line_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/error.h"

namespace vellumark::platform {

namespace {

constexpr std::int64_t kBlockSize = 1024;
constexpr std::size_t kReadSize = 256 * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

int ErrorNumberFor(int code) {
    if (code == ENOENT || code == ENOTDIR)
        return kFileNotFound;
    return code == EACCES || code == EPERM ? kPermissionDenied : kDeviceIOError;
}

[[noreturn]] void ThrowSystemError() {
    const int code = errno;
    throw Error(ErrorNumberFor(code), std::strerror(code));
}

[[noreturn]] void ThrowChanged() {
    throw Error(kDeviceIOError, "The file changed while it was being read.");
}

}  // namespace

LineFile::Handle::~Handle() {
    if (number >= 0)
        close(number);
}

LineFile::LineFile(const std::string& path, int lastLine) {
    Open(path);
    FindLines(lastLine);
}

void LineFile::Open(const std::string& path) {
    // Without O_NONBLOCK a pipe would wait for its writer.
    handle_.number = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat file = {};
    if (handle_.number < 0 || fstat(handle_.number, &file) != 0)
        ThrowSystemError();
    if (!S_ISREG(file.st_mode))
        throw Error(kPathAccessError, "It is no ordinary file.");
    size_ = file.st_size;
}

void LineFile::FindLines(int lastLine) {
    std::string bytes(kReadSize, '\0');
    std::int64_t offset = 0;
    std::int64_t lineStart = 0;
    while (offset < size_ && lineCount_ < lastLine) {
        const std::size_t count = Read(bytes.data(), bytes.size(), offset);
        if (count == 0)
            ThrowChanged();
        const std::string_view piece(bytes.data(), count);
        if (offset == 0 && piece.starts_with(kByteOrderMark))
            lineStart = kByteOrderMark.size();
        std::size_t feed = piece.find('\n');
        for (; feed != std::string_view::npos && lineCount_ < lastLine; feed = piece.find('\n', feed + 1)) {
            const std::int64_t next = offset + static_cast<std::int64_t>(feed) + 1;
            AddLine(lineStart, next);
            lineStart = next;
        }
        offset += static_cast<std::int64_t>(count);
    }
    if (lineStart < size_ && lineCount_ < lastLine)
        AddLine(lineStart, size_);
}

void LineFile::AddLine(std::int64_t start, std::int64_t end) {
    ++lineCount_;
    if (blocks_.empty() || start - blocks_.back().offset >= kBlockSize)
        blocks_.push_back({start, lineCount_});
    end_ = end;
}

std::size_t LineFile::Read(char* bytes, std::size_t count, std::int64_t offset) const {
    for (;;) {
        const ssize_t done = pread(handle_.number, bytes, count, offset);
        if (done >= 0)
            return static_cast<std::size_t>(done);
        if (errno != EINTR)
            ThrowSystemError();
    }
}

std::string_view LineFile::Line(int line) {
    CheckUnchanged();
    const int loaded = static_cast<int>(lineStarts_.size()) - 1;
    if (line < firstLoaded_ || line >= firstLoaded_ + loaded)
        Load(BlockOf(line));
    const auto index = static_cast<std::size_t>(line - firstLoaded_);
    const std::size_t start = lineStarts_[index];
    std::string_view text = std::string_view(bytes_).substr(start, lineStarts_[index + 1] - start);
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    if (text.ends_with('\r'))
        text.remove_suffix(1);
    return text;
}

// A file that was only moved away can still be read, and is what it was.
void LineFile::CheckUnchanged() const {
    struct stat file = {};
    if (fstat(handle_.number, &file) != 0)
        ThrowSystemError();
    if (file.st_nlink == 0)
        throw Error(kFileNotFound, "The file has been removed.");
    if (file.st_size != size_)
        ThrowChanged();
}

std::size_t LineFile::BlockOf(int line) const {
    const auto next = std::ranges::upper_bound(blocks_, line, {}, &Block::firstLine);
    return static_cast<std::size_t>(next - blocks_.begin()) - 1;
}

void LineFile::Load(std::size_t block) {
    const bool isLast = block + 1 == blocks_.size();
    const int lines = (isLast ? lineCount_ + 1 : blocks_[block + 1].firstLine) - blocks_[block].firstLine;
    const std::int64_t end = isLast ? end_ : blocks_[block + 1].offset;
    lineStarts_.assign(1, 0);
    bytes_.resize(static_cast<std::size_t>(end - blocks_[block].offset));
    for (std::size_t done = 0; done < bytes_.size();) {
        const std::size_t count = Read(bytes_.data() + done, bytes_.size() - done,
                                       blocks_[block].offset + static_cast<std::int64_t>(done));
        if (count == 0)
            ThrowChanged();
        done += count;
    }
    while (lineStarts_.back() < bytes_.size()) {
        const std::size_t feed = bytes_.find('\n', lineStarts_.back());
        lineStarts_.push_back(feed == std::string::npos ? bytes_.size() : feed + 1);
    }
    firstLoaded_ = blocks_[block].firstLine;
    if (lineStarts_.size() != static_cast<std::size_t>(lines) + 1)
        ThrowChanged();
}

}  // namespace vellumark::platform
