#include "platform/output_file.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark::test {

namespace {

int OpenError(const std::string& path) {
    try {
        platform::OutputFile file(path);
    } catch (const platform::Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(OutputFileTest, WritesBlocksAndReplacesTheFile) {
    const TempFolder folder;
    const std::string path = folder.Write("out.txt", std::string(1000, 'o'));
    std::string expected;
    {
        platform::OutputFile file(path);
        for (int i = 0; i < 100000; ++i) {
            file.Buffer() += "0123456789";
            expected += "0123456789";
            file.WriteWhenFull();
        }
        EXPECT_LT(file.Buffer().size(), 300000U);
        file.Close();
        EXPECT_EQ(ReadFile(path), expected);
    }
    platform::OutputFile cut(path);
    cut.Buffer() = "kept and cut";
    cut.Buffer().resize(4);
    cut.Flush();
    cut.Buffer() = "never written";
    EXPECT_EQ(ReadFile(path), "kept");
}

TEST(OutputFileTest, NamesWhatFails) {
    const TempFolder folder;
    EXPECT_EQ(OpenError(folder.Path("none/out.txt")), platform::kPathNotFound);
    EXPECT_EQ(OpenError(folder.Path()), platform::kPathAccessError);
    EXPECT_EQ(OpenError(""), platform::kPathNotFound);
    platform::OutputFile full("/dev/full");
    full.Buffer() = "text";
    try {
        full.Flush();
        ADD_FAILURE();
    } catch (const platform::Error& error) {
        EXPECT_EQ(error.Number(), platform::kDiskFull);
    }
    EXPECT_EQ(full.Buffer(), "");
}

}  // namespace

}  // namespace vellumark::test
