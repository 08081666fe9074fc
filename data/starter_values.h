#pragma once

#include <string_view>
#include <utility>
#include <vector>

// The content with which a new Values database starts. All texts live as long as the program.
namespace vellumark {

struct StarterCategory {
    std::string_view name;
    // 'C' Character, 'I' Integer, 'R' Real, 'D' Date, 'T' Time, 'S' Timestamp
    char dataType;
    std::vector<std::string_view> values;
};

struct StarterConversion {
    std::string_view name;
    // code, value
    std::vector<std::pair<std::string_view, std::string_view>> codes;
};

std::vector<StarterCategory> StarterCategories();
std::vector<StarterConversion> StarterConversions();

}  // namespace vellumark
