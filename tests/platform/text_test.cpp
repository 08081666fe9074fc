#include "platform/text.h"

#include <gtest/gtest.h>

namespace vellumark::platform {
namespace {

TEST(Text, CountsAndCutsCharactersNotBytes) {
    const std::string_view text = "aé€😀z";
    EXPECT_EQ(CharacterCount(text), 5u);
    EXPECT_EQ(LeftCharacters(text, 3), "aé€");
    EXPECT_EQ(LeftCharacters(text, 9), text);
    EXPECT_EQ(RightCharacters(text, 2), "😀z");
    EXPECT_EQ(MiddleCharacters(text, 2, 3), "é€😀");
    EXPECT_EQ(MiddleCharacters(text, 6, 1), "");
}

TEST(Text, TakesBrokenBytesAsCharacters) {
    const std::string text = "a\xC3(\xE2\x82\xFF";
    EXPECT_EQ(CharacterCount(text), 6u);
    EXPECT_EQ(RightCharacters(text, 1), "\xFF");
}

TEST(Text, IgnoresAsciiCase) {
    EXPECT_TRUE(EqualsIgnoringCase("FK COl Id", "fk col ID"));
    EXPECT_FALSE(EqualsIgnoringCase("É", "é"));
    EXPECT_TRUE(StartsWithIgnoringCase("MSysObjects", "msys"));
    EXPECT_FALSE(StartsWithIgnoringCase("ms", "msys"));
    EXPECT_TRUE(ContainsIgnoringCase("xSYSx", "sys"));
}

TEST(Text, SplitsReplacesAndParses) {
    EXPECT_EQ(Split("a,,b,", ','), (std::vector<std::string_view>{"a", "", "b", ""}));
    EXPECT_EQ(Replace("a'b''", "'", "''"), "a''b''''");
    EXPECT_EQ(ParseLong("-2147483648"), -2147483647 - 1);
    EXPECT_FALSE(ParseLong("2147483648"));
    EXPECT_FALSE(ParseLong("12 "));
    EXPECT_FALSE(ParseLong(""));
    EXPECT_EQ(Trim("  a b "), "a b");
}

}  // namespace
}  // namespace vellumark::platform
