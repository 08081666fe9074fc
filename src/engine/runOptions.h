#pragma once

#include <array>
#include <string>

#include "platform/calendar.h"
#include "repository/modTargetFormats.h"

namespace vellumark {

// The groups of data types that share their quoting and their Edit patterns.
enum class TypeGroup { Character, Numeric, Boolean, Date, Time, Timestamp };
inline constexpr std::size_t kTypeGroups = 6;

// "Blob" stands with the texts.
TypeGroup GroupOf(DataType type);

// What a run takes from [Options].
struct RunOptions {
    platform::Date defaultStartDate{2000, 1, 1};
    platform::Time defaultStartTime{1, 1, 1};
    platform::Moment defaultStartTimestamp{{2000, 1, 1}, {1, 1, 1}};
    std::string valueTooLargeString = "*";
    std::string valueTooLargeNumber = "1";
    std::string fillCharacter = " ";  // one character, as are all the next
    std::string fillDigit = "9";
    std::string outputFileDelimiter = ",";
    std::string inputFileDelimiter = ",";
    std::array<std::string, kTypeGroups> outputQuotes;  // empty for a group without quotes
    std::array<bool, kTypeGroups> inputInQuotes{};
    std::array<std::string, kTypeGroups> outputPatterns;  // of Date, Time and Timestamp
    std::array<std::string, kTypeGroups> inputPatterns;   // likewise
    int year2000Conversion = 69;
    int commitPoint = 1000;
    std::string databaseOwner;
    std::string codeDatabaseOwner = "Y";
    std::string sqlHeaderFile;

    const std::string& OutputQuote(TypeGroup group) const {
        return outputQuotes[static_cast<std::size_t>(group)];
    }
    const std::string& OutputPattern(TypeGroup group) const {
        return outputPatterns[static_cast<std::size_t>(group)];
    }
    bool InputInQuotes(TypeGroup group) const { return inputInQuotes[static_cast<std::size_t>(group)]; }
    const std::string& InputPattern(TypeGroup group) const {
        return inputPatterns[static_cast<std::size_t>(group)];
    }
};

// Reads the row of [Options] over what the record holds; without a row it stays as it is. Throws
// kTypeMismatch for a start date, time or timestamp that is none.
void LoadRunOptions(RunOptions& options);

}  // namespace vellumark
