#include "platform/files.h"

#include <fstream>
#include <gtest/gtest.h>
#include <stdio.h>

#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark::platform {
namespace {

TEST(Files, KnowWhoHasThemOpen) {
    const test::TempFolder folder;
    const std::string path = folder.Write("data.mdb", "x");
    EXPECT_FALSE(IsFileOpen(path));
    EXPECT_FALSE(IsFileOpen(folder.Path("missing")));
    {
        const std::ifstream here(path);
        EXPECT_TRUE(IsFileOpen(path));
    }
    // The shell tells when it has the file open, and keeps it so until its input ends.
    const std::string ready = folder.Path("ready");
    FILE* shell = popen(("exec 3<'" + path + "'; echo > '" + ready + "'; cat >/dev/null").c_str(), "we");
    ASSERT_NE(shell, nullptr);
    while (!FileExists(ready)) {
    }
    EXPECT_TRUE(IsFileOpen(path));
    pclose(shell);
    EXPECT_FALSE(IsFileOpen(path));
}

TEST(Files, FailWithTheNumbersOfTheRunTime) {
    const test::TempFolder folder;
    const std::string file = folder.Write("file", "x");
    const auto numberOf = [](const auto& call) {
        try {
            call();
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    };
    EXPECT_EQ(numberOf([&] { DeleteFile(folder.Path("missing")); }), kFileNotFound);
    EXPECT_EQ(numberOf([&] { CopyFile(folder.Path("missing"), folder.Path("copy")); }), kFileNotFound);
    EXPECT_EQ(numberOf([&] { CreateFolder(folder.Path("missing/sub")); }), kPathNotFound);
    EXPECT_EQ(numberOf([&] { CreateFolder(file); }), kPathAccessError);
    EXPECT_EQ(numberOf([&] { SetCurrentFolder(folder.Path("missing")); }), kPathNotFound);
    EXPECT_EQ(numberOf([&] { FilesIn(file, "*"); }), kPathNotFound);
    EXPECT_EQ(numberOf([&] { Rename(folder.Path("missing"), folder.Path("new")); }), kFileNotFound);
    EXPECT_EQ(numberOf([&] { Rename(file, folder.Path()); }), kPathAccessError);
    EXPECT_EQ(test::ReadFile(file), "x");
}

TEST(Files, FoldersComeByTheAlphabet) {
    const test::TempFolder folder;
    for (const char* file : {"beta/x", "Alpha/x", ".hidden/x", "gamma/x", "file"})
        folder.Write(file, "");
    EXPECT_EQ(FoldersIn(folder.Path()), (std::vector<std::string>{"Alpha", "beta", "gamma", ".hidden"}));
    EXPECT_THROW(FoldersIn(folder.Path("missing")), Error);
}

}  // namespace
}  // namespace vellumark::platform
