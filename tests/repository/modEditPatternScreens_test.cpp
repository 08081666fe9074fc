#include "repository/modEditPatternScreens.h"

#include <gtest/gtest.h>

#include "repository/modEditPatterns.h"

namespace vellumark {

namespace {

TEST(EditPatternScreens, CallersTellKindNamesAndWay) {
    struct Case {
        const char* caller;
        char kind;
        bool names;
        bool valueSource;
    };
    for (const auto& [caller, kind, names, valueSource] : {
             Case{"cmdITFDate", 'D', false, false},
             Case{"cmdITFTime", 'T', false, false},
             Case{"cmdITFTstamp", 'S', false, false},
             Case{"cmdOTFDate", 'D', true, false},
             Case{"cmdOTFTime", 'T', false, false},
             Case{"cmdOTFTstamp", 'S', true, false},
             Case{"cmdVSDateEdPatD", 'D', false, true},
             Case{"cmdVSDateEdPatT", 'T', false, true},
             Case{"cmdVSDateEdPatP", 'S', false, true},
             Case{"cmdColEditPat", 'S', true, false},
         }) {
        EXPECT_EQ(EditPatternKind(caller), kind) << caller;
        EXPECT_EQ(OffersNames(caller), names) << caller;
        EXPECT_EQ(IsValueSourceCaller(caller), valueSource) << caller;
    }
}

TEST(EditPatternScreens, ChoicesReadAsTheirTexts) {
    struct Case {
        const char* button;
        const char* texts;
    };
    for (const auto& [button, texts] : {
             Case{"cmdYear", "YYYY|YY|"},
             Case{"cmdMonth", "MM|MMM|"},
             Case{"cmdDay", "DD|DDD|"},
             Case{"cmdSeparator", "/|-|.|,|;| |_|\\|:|"},
             Case{"cmdHour", ""},
         }) {
        std::string shown;
        for (const std::string& token : EditPatternChoices(button))
            shown += EditPatternToText(token) + "|";
        EXPECT_EQ(shown, texts) << button;
    }
}

TEST(EditPatternScreens, LastTokenGoes) {
    EXPECT_EQ(WithoutLastToken("Y001C002M001"), "Y001C002");
    EXPECT_EQ(WithoutLastToken("Y001"), "");
    EXPECT_EQ(WithoutLastToken("Y0"), "");
    EXPECT_EQ(WithoutLastToken(""), "");
}

TEST(EditPatternScreens, ExamplesShowTheMoment) {
    constexpr const char* now = "2001-02-03 14:05:06";
    EXPECT_EQ(EditPatternExample('D', "D002C006D001C001M002C001Y002", now), "System date = 'Sat 03/Feb/01'");
    EXPECT_EQ(EditPatternExample('T', "H001C009I001C009S001", now), "System time = '14:05:06'");
    EXPECT_EQ(EditPatternExample('S', "Y001M001D001C002H001I001S001C003N001", now),
              "System timestamp = '20010203-140506.000000'");
    EXPECT_EQ(EditPatternExample('D', "", now), "System date = ''");
}

}  // namespace

}  // namespace vellumark
