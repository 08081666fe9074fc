#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::platform {

namespace fs = std::filesystem;

namespace {

int ErrorNumberFor(int code) {
    switch (code) {
        case ENOENT:
            return kFileNotFound;
        case ENOTDIR:
            return kPathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EBUSY:
        case ETXTBSY:
            return kPermissionDenied;
        case ENOSPC:
        case EDQUOT:
            return kDiskFull;
        case EIO:
            return kDeviceIOError;
        case ENAMETOOLONG:
        case EINVAL:
            return kBadFileName;
        default:
            return kPathAccessError;
    }
}

[[noreturn]] void Throw(int number, const std::string& reason, const std::string& path) {
    throw Error(number, reason + ": '" + path + "'");
}

void Check(const std::error_code& error, const std::string& path) {
    if (error)
        Throw(ErrorNumberFor(error.value()), error.message(), path);
}

// Making or entering a folder fails for its path, whatever the reason.
void CheckFolder(const std::error_code& error, const std::string& path) {
    if (!error)
        return;
    const bool missing = error.value() == ENOENT || error.value() == ENOTDIR;
    const bool full = error.value() == ENOSPC || error.value() == EDQUOT;
    Throw(missing ? kPathNotFound : full ? kDiskFull : kPathAccessError, error.message(), path);
}

bool IsSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool IsOpenHere(const struct stat& file) {
    std::error_code error;
    for (const fs::directory_entry& handle : fs::directory_iterator("/proc/self/fd", error)) {
        struct stat open = {};
        if (stat(handle.path().c_str(), &open) == 0 && IsSameFile(open, file))
            return true;
    }
    return false;
}

// The kernel grants a write lease only on a file that nobody else has open.
bool IsOpenElsewhere(const std::string& path) {
    const int handle = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool refused = fcntl(handle, F_SETLEASE, F_WRLCK) != 0 && (errno == EAGAIN || errno == EBUSY);
    close(handle);
    return refused;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    if (pattern.empty())
        return name.empty();
    if (pattern[0] == '*')
        return MatchesPattern(name, pattern.substr(1)) ||
               (!name.empty() && MatchesPattern(name.substr(1), pattern));
    if (name.empty())
        return false;
    const std::string_view first = LeftCharacters(name, 1);
    if (pattern[0] == '?')
        return MatchesPattern(name.substr(first.size()), pattern.substr(1));
    return EqualsIgnoringCase(name.substr(0, 1), pattern.substr(0, 1)) &&
           MatchesPattern(name.substr(1), pattern.substr(1));
}

}  // namespace

std::string PlatformPath(std::string_view path) {
    return Replace(path, "\\", "/");
}

bool FileExists(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_directory(status);
}

bool FolderExists(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool IsFileOpen(const std::string& path) {
    struct stat file = {};
    // Opening a second handle on a file of our own would drop the locks that the first one holds.
    return stat(path.c_str(), &file) == 0 && (IsOpenHere(file) || IsOpenElsewhere(path));
}

void CopyFile(const std::string& source, const std::string& destination) {
    std::error_code error;
    fs::copy_file(source, destination, fs::copy_options::overwrite_existing, error);
    Check(error, FileExists(source) ? destination : source);
}

void DeleteFile(const std::string& path) {
    if (unlink(path.c_str()) != 0)
        Check({errno, std::generic_category()}, path);
}

void Rename(const std::string& from, const std::string& to) {
    if (FileExists(to) || FolderExists(to))
        Throw(kPathAccessError, "File already exists", to);
    std::error_code error;
    fs::rename(from, to, error);
    Check(error, from);
}

bool MakePrivateFile(const std::string& path) {
    const int handle = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return handle >= 0 && close(handle) == 0;
}

void CreateFolder(const std::string& path) {
    if (mkdir(path.c_str(), 0777) != 0)
        CheckFolder({errno, std::generic_category()}, path);
}

void RemoveFolder(const std::string& path) {
    std::error_code error;
    fs::remove_all(path, error);
    Check(error, path);
}

void SetCurrentFolder(const std::string& path) {
    std::error_code error;
    fs::current_path(path, error);
    CheckFolder(error, path);
}

std::vector<std::string> FilesIn(const std::string& folder, std::string_view pattern) {
    std::vector<std::string> files;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code ignored;
        const bool matches = pattern == "*.*" || MatchesPattern(entry->path().filename().string(), pattern);
        if (matches && !entry->is_directory(ignored))
            files.push_back(entry->path().string());
    }
    CheckFolder(error, folder);
    return files;
}

std::vector<std::string> FoldersIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_directory(ignored))
            names.push_back(entry->path().filename().string());
    }
    CheckFolder(error, folder);
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return a.starts_with('.') != b.starts_with('.') ? b.starts_with('.') : LessIgnoringCase(a, b);
    });
    return names;
}

}  // namespace vellumark::platform
