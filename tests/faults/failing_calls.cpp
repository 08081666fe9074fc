// A library to be preloaded into a program: counts the calls that change files below a folder, and from the
// nth on makes them fail, or kills the program there. It is told by VELLUMARK_FAULT, "CALLS N ACTION FOLDER":
// CALLS is "write", "sync" or "any"; ACTION is the number of an error, or "kill". With N = 0 nothing happens
// but the count, which goes to the file named by VELLUMARK_FAULT_COUNT when the program ends.
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

enum class Kind { Write, Sync, Name };

struct Plan {
    std::string calls = "any";
    long at = 0;
    int error = 0;
    bool kills = false;
    std::string folder;
};

Plan ReadPlan() {
    Plan plan;
    const char* text = std::getenv("VELLUMARK_FAULT");
    std::array<char, 16> calls{}, action{};
    std::array<char, PATH_MAX> folder{};
    if (text == nullptr || std::sscanf(text, "%15s %ld %15s %4095[^\n]", calls.data(), &plan.at,
                                       action.data(), folder.data()) != 4)
        return plan;
    plan.calls = calls.data();
    plan.kills = std::string_view(action.data()) == "kill";
    plan.error = std::atoi(action.data());
    plan.folder = folder.data();
    return plan;
}

const Plan& ThePlan() {
    static const Plan plan = ReadPlan();
    return plan;
}

std::atomic<long> counted = 0;

bool IsMeant(Kind kind) {
    const std::string& calls = ThePlan().calls;
    return calls == "any" || (calls == "write" && kind == Kind::Write) ||
           (calls == "sync" && kind == Kind::Sync);
}

// True when the call is to fail, with errno set.
bool Fails(Kind kind, std::string_view path) {
    const Plan& plan = ThePlan();
    if (plan.folder.empty() || !path.starts_with(plan.folder) || !IsMeant(kind))
        return false;
    const long count = ++counted;
    if (plan.at == 0 || count < plan.at)
        return false;
    if (plan.kills)
        raise(SIGKILL);
    errno = plan.error;
    return true;
}

bool Fails(Kind kind, int handle) {
    if (ThePlan().folder.empty())
        return false;
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(handle);
    const ssize_t size = readlink(link.c_str(), path.data(), path.size());
    return size > 0 && Fails(kind, std::string_view(path.data(), static_cast<std::size_t>(size)));
}

template <typename Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

struct CountWriter {
    ~CountWriter() {
        const char* path = std::getenv("VELLUMARK_FAULT_COUNT");
        std::FILE* file = path == nullptr ? nullptr : std::fopen(path, "w");
        if (file == nullptr)
            return;
        std::fprintf(file, "%ld\n", counted.load());
        std::fclose(file);
    }
};

const CountWriter atEnd;

}  // namespace

extern "C" {

ssize_t write(int handle, const void* bytes, size_t count) {
    static const auto next = Next<decltype(write)>("write");
    return Fails(Kind::Write, handle) ? -1 : next(handle, bytes, count);
}

ssize_t writev(int handle, const iovec* parts, int count) {
    static const auto next = Next<ssize_t(int, const iovec*, int)>("writev");
    return Fails(Kind::Write, handle) ? -1 : next(handle, parts, count);
}

ssize_t pwrite(int handle, const void* bytes, size_t count, off_t offset) {
    static const auto next = Next<decltype(pwrite)>("pwrite");
    return Fails(Kind::Write, handle) ? -1 : next(handle, bytes, count, offset);
}

ssize_t pwrite64(int handle, const void* bytes, size_t count, off64_t offset) {
    static const auto next = Next<decltype(pwrite64)>("pwrite64");
    return Fails(Kind::Write, handle) ? -1 : next(handle, bytes, count, offset);
}

int ftruncate64(int handle, off64_t size) noexcept {
    static const auto next = Next<int(int, off64_t)>("ftruncate64");
    return Fails(Kind::Write, handle) ? -1 : next(handle, size);
}

int fsync(int handle) {
    static const auto next = Next<decltype(fsync)>("fsync");
    return Fails(Kind::Sync, handle) ? -1 : next(handle);
}

int fdatasync(int handle) {
    static const auto next = Next<decltype(fdatasync)>("fdatasync");
    return Fails(Kind::Sync, handle) ? -1 : next(handle);
}

int mkdir(const char* path, mode_t mode) noexcept {
    static const auto next = Next<int(const char*, mode_t)>("mkdir");
    return Fails(Kind::Name, path) ? -1 : next(path, mode);
}

int rename(const char* from, const char* to) noexcept {
    static const auto next = Next<int(const char*, const char*)>("rename");
    return Fails(Kind::Name, from) ? -1 : next(from, to);
}

int unlink(const char* path) noexcept {
    static const auto next = Next<int(const char*)>("unlink");
    return Fails(Kind::Name, path) ? -1 : next(path);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    static const auto next = Next<int(int, const char*, int)>("unlinkat");
    return (folder == AT_FDCWD ? Fails(Kind::Name, path) : Fails(Kind::Name, folder))
               ? -1
               : next(folder, path, flags);
}

int remove(const char* path) noexcept {
    static const auto next = Next<int(const char*)>("remove");
    return Fails(Kind::Name, path) ? -1 : next(path);
}

}  // extern "C"
