#include "platform/process.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Process, SplitsCommandsAtBlanksOutsideQuotes) {
    EXPECT_THAT(SplitCommand("code  --wait "), ElementsAre("code", "--wait"));
    EXPECT_THAT(SplitCommand("\"/opt/my editor/ed\" -n \"\""), ElementsAre("/opt/my editor/ed", "-n", ""));
    EXPECT_THAT(SplitCommand("--title=\"a b\"c"), ElementsAre("--title=a bc"));
    EXPECT_THAT(SplitCommand("  "), IsEmpty());
}

TEST(Process, FindsOnlyExecutableFiles) {
    const test::TempFolder folder;
    const std::string program = folder.Write("tool", "#!/bin/sh\n");
    EXPECT_EQ(FindProgram(program), "");
    chmod(program.c_str(), 0755);
    EXPECT_EQ(FindProgram(program), program);
    EXPECT_EQ(FindProgram(folder.Path()), "");
    EXPECT_EQ(FindProgram("tool"), "");
    EXPECT_EQ(FindProgram(""), "");
    EXPECT_NE(FindProgram("sh"), "");
}

// Waits for the writer of a pipe and reads all that it writes.
std::string ReadPipe(int pipe) {
    std::string content;
    char buffer[256];
    for (pollfd state{pipe, POLLIN, 0}; poll(&state, 1, 30000) > 0;) {
        const ssize_t got = read(pipe, buffer, sizeof buffer);
        if (got <= 0)
            break;
        content.append(buffer, static_cast<std::size_t>(got));
    }
    return content;
}

TEST(Process, StartsAProgramWithItsArgumentsAsTheyStand) {
    const test::TempFolder folder;
    const std::string pipePath = folder.Path("pipe");
    ASSERT_EQ(mkfifo(pipePath.c_str(), 0600), 0);
    const int pipe = open(pipePath.c_str(), O_RDONLY | O_NONBLOCK);
    StartDetached({"sh", "-c", "printf '%s|' \"$@\" > \"$0\"", pipePath, "two words", "$HOME \"quoted\""});
    EXPECT_EQ(ReadPipe(pipe), "two words|$HOME \"quoted\"|");
    close(pipe);
}

TEST(Process, WaitsForTheEndAndTellsHowItWas) {
    const test::TempFolder folder;
    const std::string out = folder.Path("out.txt");
    EXPECT_EQ(RunToEnd({"sh", "-c", "sleep 0.05; printf '%s|' \"$@\" > \"$0\"", out, "two words", "a\"b"}),
              0);
    EXPECT_EQ(test::ReadFile(out), "two words|a\"b|");
    EXPECT_EQ(RunToEnd({"sh", "-c", "exit 3"}), 3);
    EXPECT_EQ(RunToEnd({"sh", "-c", "kill -9 $$"}), 128 + 9);
    EXPECT_EQ(RunToEnd({"sh", "-c", "read line"}), 1) << "it has no input";
    testing::internal::CaptureStdout();
    EXPECT_EQ(RunToEnd({"sh", "-c", "echo noise"}), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Process, TellsWhyAProgramDoesNotStart) {
    const test::TempFolder folder;
    const std::string broken = folder.Write("broken", "#!/no/such/interpreter\n");
    chmod(broken.c_str(), 0755);
    const auto numbersOf = [](const std::vector<std::string>& command) {
        std::vector<int> numbers;
        for (const auto start : {+[](const std::vector<std::string>& words) { StartDetached(words); },
                                 +[](const std::vector<std::string>& words) { RunToEnd(words); }}) {
            try {
                start(command);
            } catch (const Error& error) {
                numbers.push_back(error.Number());
            }
        }
        return numbers;
    };
    EXPECT_THAT(numbersOf({folder.Path("missing")}), ElementsAre(kFileNotFound, kFileNotFound));
    EXPECT_THAT(numbersOf({}), ElementsAre(kFileNotFound, kFileNotFound));
    EXPECT_THAT(numbersOf({broken}), ElementsAre(kPathAccessError, kPathAccessError));
}

}  // namespace
}  // namespace vellumark::platform
