#include "starter_values.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <gmock/gmock.h>
#include <set>
#include <string>

#include "platform/text.h"

namespace vellumark {
namespace {

using testing::ElementsAre;
using testing::Pair;

template <typename Number>
bool IsNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

// Whether the text has the picture's shape, in which 9 stands for a digit.
bool HasShape(std::string_view text, std::string_view picture) {
    return std::ranges::equal(text, picture,
                              [](char c, char p) { return p == '9' ? c >= '0' && c <= '9' : c == p; });
}

int Digits(std::string_view text, std::size_t at, std::size_t count) {
    return platform::ParseLong(text.substr(at, count)).value_or(-1);
}

bool IsDate(std::string_view text) {
    using namespace std::chrono;
    return HasShape(text, "9999-99-99") &&
           year_month_day(year(Digits(text, 0, 4)), month(static_cast<unsigned>(Digits(text, 5, 2))),
                          day(static_cast<unsigned>(Digits(text, 8, 2))))
               .ok();
}

bool IsTime(std::string_view text) {
    return HasShape(text, "99:99:99") && Digits(text, 0, 2) < 24 && Digits(text, 3, 2) < 60 &&
           Digits(text, 6, 2) < 60;
}

bool IsTimestamp(std::string_view text) {
    return text.size() == 26 && IsDate(text.substr(0, 10)) && text[10] == ' ' && IsTime(text.substr(11, 8)) &&
           HasShape(text.substr(19), ".999999");
}

bool Fits(char dataType, std::string_view text) {
    switch (dataType) {
        case 'C':
            return platform::CharacterCount(text) <= 60 && platform::Trim(text) == text;
        case 'I':
            return IsNumber<std::int64_t>(text);
        case 'R':
            return IsNumber<double>(text) && text.find_first_not_of("-.0123456789") == std::string_view::npos;
        case 'D':
            return IsDate(text);
        case 'T':
            return IsTime(text);
        case 'S':
            return IsTimestamp(text);
        default:
            return false;
    }
}

// Texts that occur twice when case does not count.
std::vector<std::string> Repeated(const std::vector<std::string_view>& texts) {
    std::set<std::string> seen;
    std::vector<std::string> repeated;
    for (const std::string_view text : texts)
        if (!seen.insert(platform::ToLower(text)).second)
            repeated.emplace_back(text);
    return repeated;
}

template <typename Record>
std::vector<std::string_view> Names(const std::vector<Record>& records) {
    std::vector<std::string_view> names;
    for (const Record& record : records)
        names.push_back(record.name);
    return names;
}

TEST(StarterValues, CategoriesCoverAllDataTypesUnderDistinctNames) {
    const std::vector<StarterCategory> categories = StarterCategories();
    EXPECT_GE(categories.size(), 30u);
    EXPECT_THAT(Repeated(Names(categories)), ElementsAre());
    std::set<char> types;
    for (const StarterCategory& category : categories)
        types.insert(category.dataType);
    EXPECT_THAT(types, ElementsAre('C', 'D', 'I', 'R', 'S', 'T'));
}

TEST(StarterValues, EveryValueCanBeUsedInGeneratedSql) {
    for (const StarterCategory& category : StarterCategories()) {
        SCOPED_TRACE(category.name);
        EXPECT_GE(category.values.size(), 20u);
        EXPECT_LE(category.values.size(), 200u);
        EXPECT_THAT(Repeated(category.values), ElementsAre());
        for (const std::string_view value : category.values) {
            EXPECT_FALSE(value.empty());
            EXPECT_EQ(value.find_first_of("'\"\r\t"), std::string_view::npos) << value;
            EXPECT_TRUE(Fits(category.dataType, value)) << value;
        }
    }
}

TEST(StarterValues, CategoryKeepsTheOrderOfItsFile) {
    const std::vector<StarterCategory> categories = StarterCategories();
    const auto ratings = std::ranges::find(categories, "Credit ratings", &StarterCategory::name);
    ASSERT_NE(ratings, categories.end());
    EXPECT_EQ(ratings->dataType, 'C');
    EXPECT_THAT(ratings->values,
                ElementsAre("AAA", "AA+", "AA", "AA-", "A+", "A", "A-", "BBB+", "BBB", "BBB-", "BB+", "BB",
                            "BB-", "B+", "B", "B-", "CCC+", "CCC", "CCC-", "CC", "C", "D"));
}

// A row that takes both in order gets a country with its own code.
TEST(StarterValues, CodesStandInTheOrderOfTheirNames) {
    const struct {
        std::string_view names, codes, conversion;
    } cases[] = {{"Countries", "Country codes", "Country code to name"},
                 {"US states", "US state codes", "US state code to name"}};
    const std::vector<StarterCategory> categories = StarterCategories();
    const std::vector<StarterConversion> conversions = StarterConversions();
    for (const auto& one : cases) {
        SCOPED_TRACE(one.conversion);
        const auto names = std::ranges::find(categories, one.names, &StarterCategory::name);
        const auto codes = std::ranges::find(categories, one.codes, &StarterCategory::name);
        const auto conversion = std::ranges::find(conversions, one.conversion, &StarterConversion::name);
        ASSERT_TRUE(names != categories.end() && codes != categories.end());
        ASSERT_NE(conversion, conversions.end());
        ASSERT_EQ(names->values.size(), codes->values.size());
        ASSERT_EQ(names->values.size(), conversion->codes.size());
        for (std::size_t i = 0; i < names->values.size(); ++i)
            EXPECT_THAT(conversion->codes, testing::Contains(Pair(codes->values[i], names->values[i])));
    }
}

TEST(StarterValues, ConversionsMapEachCodeOnce) {
    const std::vector<StarterConversion> conversions = StarterConversions();
    EXPECT_THAT(Names(conversions),
                testing::UnorderedElementsAre("Country code to name", "US state code to name",
                                              "Yes and no to boolean"));
    for (const StarterConversion& conversion : conversions) {
        SCOPED_TRACE(conversion.name);
        std::vector<std::string_view> codes;
        for (const auto& [code, value] : conversion.codes) {
            codes.push_back(code);
            EXPECT_FALSE(code.empty() || value.empty()) << code;
            EXPECT_EQ(value.find_first_of("'\"\t"), std::string_view::npos) << value;
        }
        EXPECT_THAT(Repeated(codes), ElementsAre());
    }
}

}  // namespace
}  // namespace vellumark
