#include "cli.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "temp_folder.h"

namespace vellumark::test {

namespace {

[[noreturn]] void Execute(const std::vector<std::string>& words) {
    std::vector<std::string> texts{VELLUMARK_CLI};
    texts.insert(texts.end(), words.begin(), words.end());
    std::vector<char*> arguments;
    for (std::string& text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    execv(VELLUMARK_CLI, arguments.data());
    _exit(127);
}

void SendTo(int descriptor, const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    dup2(file, descriptor);
    close(file);
}

}  // namespace

CliResult RunCli(const std::vector<std::string>& words, const std::function<void()>& prepare) {
    const TempFolder folder;
    const std::string out = folder.Path("out"), err = folder.Path("err");
    const pid_t process = fork();
    if (process == 0) {
        SendTo(STDOUT_FILENO, out);
        SendTo(STDERR_FILENO, err);
        if (prepare)
            prepare();
        Execute(words);
    }
    CliResult result;
    result.status = WaitFor(process);
    result.out = ReadFile(out);
    result.err = ReadFile(err);
    return result;
}

pid_t StartCli(const std::vector<std::string>& words) {
    const pid_t process = fork();
    if (process == 0) {
        SendTo(STDOUT_FILENO, "/dev/null");
        SendTo(STDERR_FILENO, "/dev/null");
        Execute(words);
    }
    return process;
}

int WaitFor(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace vellumark::test
