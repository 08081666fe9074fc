#include "platform/delimited_text.h"

#include <gtest/gtest.h>
#include <sstream>

#include "platform/error.h"

namespace vellumark::platform {
namespace {

// Rows end with "/", fields with "|"; a quoted field stands between < and >.
std::string ReadAll(const std::string& text, std::string_view delimiter = ",") {
    std::istringstream in(text);
    DelimitedReader reader(in, delimiter);
    std::string rows;
    while (reader.ReadRow()) {
        for (const DelimitedField& field : reader.Fields())
            rows += (field.quoted ? "<" + field.text + ">" : field.text) + "|";
        rows += "/";
    }
    return rows;
}

TEST(DelimitedText, ReadsRows) {
    struct Case {
        std::string text;
        std::string rows;
        std::string delimiter = ",";
    };
    const Case cases[] = {
        {"", ""},
        {"a,b\r\nc,d\r\n", "a|b|/c|d|/"},
        {"a,b\nc,d", "a|b|/c|d|/"},
        {"a,,\r\n", "a|||/"},
        {"\r\na\r\n", "|/a|/"},
        {"\"a,b\",\"say \"\"no\"\"\"\r\n", "<a,b>|<say \"no\">|/"},
        {"\"\",x\r\n", "<>|x|/"},
        {"\"two\r\nlines\" ,x\r\ny\r\n", "<two\r\nlines>|x|/y|/"},
        {"5\" pipe,it's\r\n", "5\" pipe|it's|/"},
        {"\xEF\xBB\xBF\"a\",\xC3\xA4\r\n", "<a>|\xC3\xA4|/"},
        {"a;b\tc\n", "a;b|c|/", "\t"},
        {"a\xC2\xA6"
         "b\xC2\xA7\n",
         "a|b\xC2\xA7|/", "\xC2\xA6"},
        {"a;,b\n", "a|,b|/", ";,"},
        {"\"a\" b c\n", "<a>|b|c|/", " "},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ReadAll(c.text, c.delimiter), c.rows) << c.text;
}

TEST(DelimitedText, RefusesQuotesThatDoNotMatch) {
    EXPECT_THROW(ReadAll("\"open\r\nstill open"), Error);
    EXPECT_THROW(ReadAll("\"a\"b,c"), Error);
    EXPECT_THROW(ReadAll("a", ""), Error);
    EXPECT_THROW(ReadAll("a", "\""), Error);
    EXPECT_THROW(ReadAll("a\r\n", "\r"), Error);
}

}  // namespace
}  // namespace vellumark::platform
