#include "platform/output_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "platform/error.h"

namespace vellumark::platform {

namespace {

int NumberForOpen(int code) {
    switch (code) {
        case ENOENT:
        case ENOTDIR:
            return kPathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY:
            return kPermissionDenied;
        case ENAMETOOLONG:
        case EINVAL:
            return kBadFileName;
        case ENOSPC:
        case EDQUOT:
            return kDiskFull;
        default:
            return kPathAccessError;
    }
}

[[noreturn]] void ThrowWriteError(int code, const std::string& path) {
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    throw Error(full ? kDiskFull : kDeviceIOError, std::string(std::strerror(code)) + ": '" + path + "'");
}

}  // namespace

OutputFile::OutputFile(const std::string& path)
    : path_(path), handle_(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {
    if (handle_ < 0)
        throw Error(NumberForOpen(errno), std::string(std::strerror(errno)) + ": '" + path + "'");
    buffer_.reserve(2 * kBlockSize);
}

OutputFile::~OutputFile() {
    if (handle_ >= 0)
        close(handle_);
}

void OutputFile::Flush() {
    try {
        Write(buffer_.data(), buffer_.size());
    } catch (...) {
        buffer_.clear();
        throw;
    }
    buffer_.clear();
}

void OutputFile::Write(const char* bytes, std::size_t count) const {
    while (count > 0) {
        const ssize_t written = write(handle_, bytes, count);
        if (written < 0 && errno != EINTR)
            ThrowWriteError(errno, path_);
        if (written > 0) {
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
    }
}

void OutputFile::Close() {
    Flush();
    const int handle = handle_;
    handle_ = -1;
    if (close(handle) != 0)
        ThrowWriteError(errno, path_);
}

}  // namespace vellumark::platform
