#include "platform/text_stream.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark::platform {
namespace {

TEST(TextStream, ReadsLineByLineToTheEnd) {
    const test::TempFolder folder;
    TextStream stream(folder.Write("a.txt", "one\r\n\nthree"));
    EXPECT_EQ(stream.ReadLine(), "one");
    stream.SkipLine();
    EXPECT_FALSE(stream.AtEndOfStream());
    EXPECT_EQ(stream.ReadLine(), "three");
    EXPECT_EQ(stream.LineNumber(), 3);
    EXPECT_TRUE(stream.AtEndOfStream());
    try {
        stream.SkipLine();
        FAIL() << "read behind the end";
    } catch (const Error& error) {
        EXPECT_EQ(error.Line(), "Error: 62 Input past end of file");
    }
    EXPECT_TRUE(TextStream(folder.Write("empty.txt", "")).AtEndOfStream());
    EXPECT_THROW(TextStream(folder.Path()), Error);
    EXPECT_THROW(TextStream(folder.Path("none.txt")), Error);
}

}  // namespace
}  // namespace vellumark::platform
