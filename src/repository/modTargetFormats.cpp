#include "repository/modTargetFormats.h"

#include <array>
#include <cstddef>

#include "platform/text.h"

namespace vellumark {

namespace {

struct FormatEntry {
    std::string_view name;
    bool inDeleteSQL;
    bool inCreateLoadFile;
};

// In the order of the enumerators, which is the order of the lists.
constexpr std::array<FormatEntry, 8> kFormats = {{
    {"DB2 Universal Database", true, true},
    {"Jet", true, true},
    {"NonStop SQL", true, false},
    {"NonStop SQL (with define)", true, false},
    {"MS/SQL Server", true, true},
    {"Oracle", true, true},
    {"Sybase", true, false},
    {"Text File - Delimited", false, false},
}};

constexpr std::array<std::string_view, 14> kDataTypeNames = {
    "Character",    "Date",         "Time",        "TimeStamp", "Blob",   "Boolean", "Integer",
    "Long Integer", "Tiny Integer", "Big Integer", "Currency",  "Single", "Double",  "Variant"};

bool IsOffered(const FormatEntry& format, std::string_view purpose) {
    return purpose == "All" || (purpose == "DeleteSQL" && format.inDeleteSQL) ||
           (purpose == "CreateLoadFile" && format.inCreateLoadFile);
}

}  // namespace

std::string_view TargetFormatName(TargetFormat format) {
    return kFormats[static_cast<std::size_t>(format)].name;
}

std::optional<TargetFormat> ParseTargetFormat(std::string_view text) {
    for (std::size_t i = 0; i < kFormats.size(); ++i)
        if (platform::EqualsIgnoringCase(kFormats[i].name, text))
            return static_cast<TargetFormat>(i);
    return std::nullopt;
}

std::vector<std::string> FillDBMSList(std::string_view purpose) {
    std::vector<std::string> names;
    for (const FormatEntry& format : kFormats)
        if (IsOffered(format, purpose))
            names.emplace_back(format.name);
    return names;
}

std::string_view DataTypeName(DataType type) {
    return kDataTypeNames[static_cast<std::size_t>(type)];
}

std::optional<DataType> ParseDataType(std::string_view text) {
    for (std::size_t i = 0; i < kDataTypeNames.size(); ++i)
        if (platform::EqualsIgnoringCase(kDataTypeNames[i], text))
            return static_cast<DataType>(i);
    return std::nullopt;
}

bool TakesDecimalPoint(DataType type) {
    return type == DataType::Double || type == DataType::Single;
}

bool fNumericKey(char key, DataType type, char decimalPoint) {
    if ((key >= '0' && key <= '9') || key == '-' || key == '\b')
        return true;
    return key == decimalPoint && TakesDecimalPoint(type);
}

char MachineDecimalPoint() {
    return '.';
}

}  // namespace vellumark
