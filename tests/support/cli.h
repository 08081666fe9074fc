#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace vellumark::test {

struct CliResult {
    int status = -1;  // -1 when a signal ended it
    std::string out;
    std::string err;
};

// Runs vellumark-cli with these words to its end. `prepare` runs in the new process before the program.
CliResult RunCli(const std::vector<std::string>& words, const std::function<void()>& prepare = {});

// Starts it with its output thrown away.
pid_t StartCli(const std::vector<std::string>& words);
// The exit status, or -1 when a signal ended it.
int WaitFor(pid_t process);

}  // namespace vellumark::test
