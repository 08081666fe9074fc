#include "cli/passwordPrompt.h"

#include <csignal>
#include <iostream>
#include <termios.h>
#include <unistd.h>

namespace vellumark {

namespace {

// The terminal shows nothing that is typed, and a signal ends the reading instead of the program, which would
// leave the terminal so.
class SilentTerminal {
 public:
    SilentTerminal() {
        struct sigaction ignore = {};
        ignore.sa_handler = [](int) {};
        for (std::size_t i = 0; i < std::size(kSignals); ++i)
            sigaction(kSignals[i], &ignore, &actions_[i]);
        if (tcgetattr(STDIN_FILENO, &settings_) != 0)
            return;
        termios silent = settings_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~SilentTerminal() {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings_);
        for (std::size_t i = 0; i < std::size(kSignals); ++i)
            sigaction(kSignals[i], &actions_[i], nullptr);
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;

 private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

    struct sigaction actions_[std::size(kSignals)] = {};
    termios settings_ = {};
};

// Reads without a buffer, so that a signal is noticed.
std::optional<std::string> ReadLine() {
    std::string line;
    char c = 0;
    while (read(STDIN_FILENO, &c, 1) == 1) {
        if (c == '\n')
            return line;
        line += c;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> AskPassword() {
    if (isatty(STDIN_FILENO) == 0) {
        std::string line;
        return std::getline(std::cin, line) ? std::optional(line) : std::nullopt;
    }
    std::optional<std::string> password;
    {
        const SilentTerminal silent;
        std::cerr << "Password: " << std::flush;
        password = ReadLine();
    }
    std::cerr << std::endl;
    return password;
}

}  // namespace vellumark
