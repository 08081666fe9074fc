#include "starter_values.h"

#include "starter_files.h"

namespace vellumark {

namespace {

constexpr std::string_view kName = "Name: ";
constexpr std::string_view kType = "Type: ";

// Takes the first line off the text.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

std::string_view TakeName(std::string_view& text) {
    return TakeLine(text).substr(kName.size());
}

// Only a Category has a type.
bool IsCategory(std::string_view file) {
    TakeLine(file);
    return file.starts_with(kType);
}

StarterCategory ReadCategory(std::string_view file) {
    StarterCategory category{TakeName(file), TakeLine(file).back(), {}};
    TakeLine(file);
    while (!file.empty())
        category.values.push_back(TakeLine(file));
    return category;
}

StarterConversion ReadConversion(std::string_view file) {
    StarterConversion conversion{TakeName(file), {}};
    TakeLine(file);
    while (!file.empty()) {
        const std::string_view line = TakeLine(file);
        const std::size_t tab = line.find('\t');
        conversion.codes.emplace_back(line.substr(0, tab), line.substr(tab + 1));
    }
    return conversion;
}

}  // namespace

std::vector<StarterCategory> StarterCategories() {
    std::vector<StarterCategory> categories;
    for (const std::string_view file : StarterFiles())
        if (IsCategory(file))
            categories.push_back(ReadCategory(file));
    return categories;
}

std::vector<StarterConversion> StarterConversions() {
    std::vector<StarterConversion> conversions;
    for (const std::string_view file : StarterFiles())
        if (!IsCategory(file))
            conversions.push_back(ReadConversion(file));
    return conversions;
}

}  // namespace vellumark
