#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/value.h"

namespace vellumark {

// A column of the one-row [Options] table with the value that a new row gets.
struct OptionColumn {
    std::string name;
    int type;  // a dao::FieldType
    int size;
    dao::Value initial;
};

std::vector<OptionColumn> OptionColumns();

// Adds the [Options] row where it is missing and takes the two options that live in the session.
void EnsureOptions();

// How values of one type stand in text files.
struct QuoteOptions {
    bool inInput = false;
    bool inOutput = false;
    std::string outputCharacter;
};

// [Options] as people edit it: texts as they stand in the fields.
struct OptionsRecord {
    std::string databaseOwner;
    std::string ownerCode;  // "Y" the table's own, "N" none, "O" databaseOwner
    std::string targetDatabase;
    std::string commitPoint;
    std::string sqlHeaderFile;
    bool autoConnect = false;

    std::string startRange;
    std::string endRange;
    std::string startTimestamp;  // dates and times in their stored forms
    std::string startDate;
    std::string startTime;
    std::string fillCharacter;
    std::string fillDigit;
    std::string tooLargeString;
    std::string tooLargeNumber;
    std::string decimalPoint;

    std::string dirSQL;
    std::string dirInputText;
    std::string dirOutputText;
    std::string dirInputExcel;
    std::string dirOutputExcel;
    std::string dirReport;
    std::string dirJet;
    std::string dirCOOLGen;

    std::string editor;
    bool openWithEditor = false;

    std::string inputDelimiter;
    std::string outputDelimiter;
    std::string year2000Conversion;
    std::array<QuoteOptions, 6> quotes;        // Character, Integer, Boolean, Date, Time, Timestamp
    std::array<std::string, 3> inputPatterns;  // date, time, timestamp in stored form
    std::array<std::string, 3> outputPatterns;
};

// With the values that stand for Nulls. Throws platform::Error.
OptionsRecord ReadOptions();

// Writes all options, folders with a separator at their end, and takes those of the session. An empty number
// is kept as Null.
bool fWriteOptions(const OptionsRecord& options);

// The pages on which the options are edited, in their order.
enum class OptionsPage { Database, Defaults, Folders, Editor, InputValues, OutputFiles, IniFile };

struct OptionsFault {
    std::string_view field;
    std::string_view message;
};

// The first rule of the page that the options break.
std::optional<OptionsFault> FindOptionsFault(OptionsPage page, const OptionsRecord& options);

}  // namespace vellumark
