#include "platform/process.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vellumark::platform {

namespace {

bool IsExecutable(const std::string& path) {
    return FileExists(path) && access(path.c_str(), X_OK) == 0;
}

class Pipe {
 public:
    Pipe() {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0)
            throw Error(kPathAccessError, std::generic_category().message(errno));
    }
    ~Pipe() {
        CloseWriteEnd();
        close(ends_[0]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int WriteEnd() const { return ends_[1]; }
    void CloseWriteEnd() {
        if (ends_[1] >= 0)
            close(ends_[1]);
        ends_[1] = -1;
    }
    // The number written, or 0 when the other end was closed without one.
    int Read() const {
        int number = 0;
        ssize_t got;
        do {
            got = read(ends_[0], &number, sizeof number);
        } while (got < 0 && errno == EINTR);
        return got == sizeof number ? number : 0;
    }

 private:
    std::array<int, 2> ends_ = {-1, -1};
};

void CutStandardStreams() {
    const int null = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(null, stream);
    if (null > STDERR_FILENO)
        close(null);
}

// Runs between fork and exec, where only calls that are safe for signals are allowed.
[[noreturn]] void BecomeProgram(char* const* arguments, int reportTo) {
    setsid();
    const pid_t child = fork();
    if (child > 0)
        _exit(0);
    if (child == 0) {
        CutStandardStreams();
        execv(arguments[0], arguments);
    }
    const int reason = errno;
    const ssize_t ignored = write(reportTo, &reason, sizeof reason);
    _exit(ignored > 0 ? 1 : 2);
}

// The status of its end.
int WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

// The words of a command with the program's path as the first, as exec takes them.
class Arguments {
 public:
    explicit Arguments(const std::vector<std::string>& command) : words_(command) {
        const std::string name = command.empty() ? std::string() : command[0];
        const std::string program = FindProgram(name);
        if (program.empty())
            throw Error(kFileNotFound, "Program not found: '" + name + "'");
        words_[0] = program;
        for (std::string& word : words_)
            pointers_.push_back(word.data());
        pointers_.push_back(nullptr);
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    const std::string& Program() const { return words_[0]; }
    char* const* Get() const { return pointers_.data(); }
    [[noreturn]] void ThrowNotStarted(int reason) const {
        throw Error(kPathAccessError, "'" + Program() + "': " + std::generic_category().message(reason));
    }

 private:
    std::vector<std::string> words_;
    std::vector<char*> pointers_;
};

// What a new process does to its streams before the program starts.
class StreamActions {
 public:
    StreamActions() { posix_spawn_file_actions_init(&actions_); }
    ~StreamActions() { posix_spawn_file_actions_destroy(&actions_); }
    StreamActions(const StreamActions&) = delete;
    StreamActions& operator=(const StreamActions&) = delete;

    void Cut(int stream) { posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0); }
    const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
    posix_spawn_file_actions_t actions_ = {};
};

}  // namespace

std::vector<std::string> SplitCommand(std::string_view line) {
    std::vector<std::string> words;
    bool quoted = false;
    bool inWord = false;
    for (const char c : line) {
        if (c == ' ' && !quoted) {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        if (c == '"')
            quoted = !quoted;
        else
            words.back() += c;
    }
    return words;
}

std::string FindProgram(std::string_view name) {
    if (name.empty())
        return {};
    if (name.find('/') != std::string_view::npos)
        return IsExecutable(std::string(name)) ? std::string(name) : std::string();
    const char* folders = std::getenv("PATH");
    for (const std::string_view folder : Split(folders == nullptr ? "/usr/bin:/bin" : folders, ':')) {
        std::string path = std::string(folder.empty() ? "." : folder) + "/" + std::string(name);
        if (IsExecutable(path))
            return path;
    }
    return {};
}

void StartDetached(const std::vector<std::string>& command) {
    const Arguments arguments(command);
    Pipe report;
    const pid_t child = fork();
    if (child < 0)
        throw Error(kPathAccessError, std::generic_category().message(errno));
    if (child == 0)
        BecomeProgram(arguments.Get(), report.WriteEnd());
    report.CloseWriteEnd();
    const int reason = report.Read();
    WaitFor(child);
    if (reason != 0)
        arguments.ThrowNotStarted(reason);
}

int RunToEnd(const std::vector<std::string>& command) {
    const Arguments arguments(command);
    StreamActions actions;
    actions.Cut(STDIN_FILENO);
    actions.Cut(STDOUT_FILENO);
    pid_t child = 0;
    const int reason =
        posix_spawn(&child, arguments.Program().c_str(), actions.Get(), nullptr, arguments.Get(), environ);
    if (reason != 0)
        arguments.ThrowNotStarted(reason);
    const int status = WaitFor(child);
    constexpr int kEndedBySignal = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : kEndedBySignal + WTERMSIG(status);
}

}  // namespace vellumark::platform
