#include "platform/line_file.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark::test {

namespace {

using platform::LineFile;

class LineFileTest : public ::testing::Test {
 protected:
    // The lines, each behind its number.
    std::string Lines(const std::string& content, int lastLine = 999999999) {
        LineFile file(folder.Write("a.txt", content), lastLine);
        std::string text;
        for (int line = 1; line <= file.LineCount(); ++line)
            text.append(std::to_string(line)).append("<").append(file.Line(line)).append(">");
        return text;
    }
    std::string ErrorOf(const std::string& path) {
        try {
            return "no error: " + std::to_string(LineFile(path).LineCount());
        } catch (const platform::Error& error) {
            return error.Line();
        }
    }

    TempFolder folder;
};

std::string ErrorOfLine(LineFile& file, int line) {
    try {
        return "no error: " + std::string(file.Line(line));
    } catch (const platform::Error& error) {
        return error.Line();
    }
}

}  // namespace

TEST_F(LineFileTest, FindsLineEnds) {
    struct Case {
        std::string content;
        std::string lines;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {"a", "1<a>"},
        {"a\r\nb\nc", "1<a>2<b>3<c>"},
        {"a\n", "1<a>"},
        {"\n\r\n", "1<>2<>"},
        {"a\rb\r\r\n", "1<a\rb\r>"},
        {"\xEF\xBB\xBFz\nb", "1<z>2<b>"},
        {"\xEF\xBB\xBF", ""},
        {std::string("\0\xFF\n\0", 4), std::string("1<\0\xFF>2<\0>", 9)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Lines(c.content), c.lines) << c.content;
    EXPECT_EQ(Lines("a\nb\nc\nd", 2), "1<a>2<b>");
    EXPECT_EQ(Lines("a\nb\nc", 3), "1<a>2<b>3<c>");
}

TEST_F(LineFileTest, ReadsLinesInAnyOrder) {
    std::string content;
    for (int line = 1; line <= 20000; ++line)
        content += std::string(static_cast<std::size_t>(line % 97), 'x') + std::to_string(line) + "\r\n";
    const std::string longLine(10000000, 'y');
    content += longLine + "\n20002";
    LineFile file(folder.Write("a.txt", content));
    ASSERT_EQ(file.LineCount(), 20002);
    for (int step = 0, line = 1; step < 5000; ++step, line = (line * 7919 + 13) % 20000 + 1)
        ASSERT_EQ(file.Line(line),
                  std::string(static_cast<std::size_t>(line % 97), 'x') + std::to_string(line));
    EXPECT_EQ(file.Line(20001), longLine);
    EXPECT_EQ(file.Line(20002), "20002");
    EXPECT_EQ(file.Line(1), "x1");
}

TEST_F(LineFileTest, RefusesWhatIsNoFile) {
    EXPECT_EQ(ErrorOf(folder.Path("missing.txt")), "Error: 53 No such file or directory");
    EXPECT_EQ(ErrorOf(folder.Write("file", "") + "/below.txt"), "Error: 53 Not a directory");
    EXPECT_EQ(ErrorOf(folder.Path()), "Error: 75 It is no ordinary file.");
}

TEST_F(LineFileTest, SeesThatTheFileChanges) {
    const std::string changed = "Error: 57 The file changed while it was being read.";
    const std::string content(20000, '\n');
    const std::string path = folder.Path("b.txt");
    struct Case {
        std::string now;
        std::string error;
    };
    for (const Case& c : {Case{"", changed}, Case{content + "more", changed},
                          Case{std::string(20000, 'a'), changed}, Case{content, "no error: "}}) {
        folder.Write("b.txt", content);
        LineFile file(path);
        EXPECT_EQ(file.Line(1), "");
        folder.Write("b.txt", c.now);
        EXPECT_EQ(ErrorOfLine(file, 15000), c.error);
    }
    LineFile file(path);
    std::filesystem::remove(path);
    EXPECT_EQ(ErrorOfLine(file, 1), "Error: 53 The file has been removed.");
}

}  // namespace vellumark::test
