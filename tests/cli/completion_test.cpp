#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

#include "cli.h"
#include "temp_folder.h"

namespace vellumark::test {
namespace {

// What bash offers behind these words, the last of which is still being typed, one a line.
std::string Offered(const TempFolder& folder, const std::string& words) {
    const std::string script =
        folder.Write("try.bash", "cd " + folder.Path() + "; . ./completion.bash; COMP_WORDS=(" + words +
                                     "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                                     "_vellumark_cli; printf '%s\\n' \"${COMPREPLY[@]}\"");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> shell(popen(("bash " + script).c_str(), "r"),
                                                                pclose);
    std::string text;
    for (int c = std::fgetc(shell.get()); c != EOF; c = std::fgetc(shell.get()))
        text += static_cast<char>(c);
    return text;
}

TEST(CompletionTest, BashOffersWhatFits) {
    const TempFolder folder;
    const CliResult completion = RunCli({"completion", "bash"});
    ASSERT_EQ(completion.status, 0) << completion.err;
    folder.Write("completion.bash", completion.out);
    folder.Write("shop.mdb", "");
    const struct {
        std::string words, offered;
    } cases[] = {
        {"vellumark-cli sc", "schemas\nscenarios\nscenario\n"},
        {"vellumark-cli scenario re", "rename\n"},
        {"vellumark-cli --settings x.INI -y rule ''", "add\n--help\n--settings\n--yes\n"},
        {"vellumark-cli rename --", "--help\n--version\n--settings\n--yes\n"},
        {"vellumark-cli read Shop --ignore", "--ignore-table-prefix\n--ignore-owner-prefix\n"},
        {"vellumark-cli read Shop --type M", "MS/SQL\\ Server\n"},
        {"vellumark-cli read Shop --type \\\"MS", "MS/SQL Server\n"},
        {"vellumark-cli read Shop --type = Je", "Jet\n"},
        {"vellumark-cli read Shop --mdb sh", "shop.mdb\n"},
        {"vellumark-cli read Shop --server s", "\n"},
        {"vellumark-cli generate generate scenario --form", "--format\n"},
        {"vellumark-cli generate a b --format NonStop\\\\\\ SQL\\\\\\ ",
         "NonStop\\ SQL\\ \\(with\\ define\\)\n"},
        {"vellumark-cli source a b 1 c --at-end ''", "hold\nloop\nstop\n"},
        {"vellumark-cli category import Cities sh", "shop.mdb\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Offered(folder, c.words), c.offered) << c.words;
}

TEST(CompletionTest, NeedsNoSession) {
    const TempFolder folder;
    const auto atHome = [&] { setenv("HOME", folder.Path().c_str(), 1); };
    for (const std::string shell : {"bash", "zsh"})
        EXPECT_NE(RunCli({"completion", shell}, atHome).out, "");
    EXPECT_NE(RunCli({"--settings", "/nowhere", "manual"}, atHome).out, "");
    EXPECT_EQ(RunCli({"--help"}).out.find("manual "), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder.Path(".config")));
}

}  // namespace
}  // namespace vellumark::test
