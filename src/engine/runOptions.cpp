#include "engine/runOptions.h"

#include <string_view>

#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kGroupLetters = "CIBDTS";

// A Null leaves the default.
void ReadText(const dao::Recordset& row, std::string_view column, std::string& text) {
    if (!row.IsNull(column))
        text = row.Text(column);
}

void ReadLong(const dao::Recordset& row, std::string_view column, int& number) {
    if (!row.IsNull(column))
        number = row.Long(column);
}

void ReadCharacter(const dao::Recordset& row, std::string_view column, std::string& character) {
    const std::string text = row.Text(column);
    if (!text.empty())
        character = platform::LeftCharacters(text, 1);
}

[[noreturn]] void ThrowMismatch(std::string_view column, const std::string& text) {
    throw platform::Error(platform::kTypeMismatch,
                          "Type mismatch: the option '" + std::string(column) + "' is '" + text + "'");
}

void ReadMoment(const dao::Recordset& row, std::string_view column, platform::Moment& moment) {
    const std::string text = row.Text(column);
    if (text.empty())
        return;
    const auto parsed = platform::ParseMoment(text);
    if (!parsed)
        ThrowMismatch(column, text);
    moment = *parsed;
}

void ReadTime(const dao::Recordset& row, std::string_view column, platform::Time& time) {
    const std::string text = row.Text(column);
    if (text.empty())
        return;
    const auto parsed = platform::ParseTime(text);
    if (!parsed)
        ThrowMismatch(column, text);
    time = *parsed;
}

void ReadStartValues(const dao::Recordset& row, RunOptions& options) {
    platform::Moment startOfDate{options.defaultStartDate, {}};
    ReadMoment(row, "Default Start Date", startOfDate);
    options.defaultStartDate = startOfDate.date;
    ReadTime(row, "Default Start Time", options.defaultStartTime);
    ReadMoment(row, "Default Start Timestamp", options.defaultStartTimestamp);
}

void ReadQuotes(const dao::Recordset& row, RunOptions& options) {
    for (std::size_t i = 0; i < kTypeGroups; ++i) {
        const std::string letter(1, kGroupLetters[i]);
        options.inputInQuotes[i] = row.Boolean("Flag " + letter + " Input File Textfile In Quotes");
        options.outputQuotes[i].clear();
        if (row.Text("Code " + letter + " Output Textfile In Quotes") == "Q")
            ReadCharacter(row, "Char " + letter + " Output Textfile In Quotes", options.outputQuotes[i]);
    }
}

void ReadPatterns(const dao::Recordset& row, RunOptions& options) {
    constexpr std::array<std::string_view, 3> kinds = {"Date", "Time", "Timestamp"};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::size_t group = static_cast<std::size_t>(TypeGroup::Date) + i;
        const std::string name = " " + std::string(kinds[i]) + " Edit Pattern";
        options.outputPatterns[group] = row.Text("Code Output" + name);
        options.inputPatterns[group] = row.Text("Code Input" + name);
    }
}

}  // namespace

TypeGroup GroupOf(DataType type) {
    switch (type) {
        case DataType::Character:
        case DataType::Blob:
            return TypeGroup::Character;
        case DataType::Boolean:
            return TypeGroup::Boolean;
        case DataType::Date:
            return TypeGroup::Date;
        case DataType::Time:
            return TypeGroup::Time;
        case DataType::TimeStamp:
            return TypeGroup::Timestamp;
        default:
            return TypeGroup::Numeric;
    }
}

void LoadRunOptions(RunOptions& options) {
    const dao::Recordset row = RepositoryDatabase.OpenRecordset("select * from [Options]");
    if (row.IsEOF())
        return;
    ReadStartValues(row, options);
    ReadText(row, "Value Too Large String", options.valueTooLargeString);
    ReadText(row, "Value Too Large Number", options.valueTooLargeNumber);
    ReadCharacter(row, "Fill Character", options.fillCharacter);
    ReadCharacter(row, "Fill Digit", options.fillDigit);
    ReadCharacter(row, "Output File Delimiter", options.outputFileDelimiter);
    ReadCharacter(row, "Input File Delimiter", options.inputFileDelimiter);
    ReadQuotes(row, options);
    ReadPatterns(row, options);
    ReadLong(row, "YY Year 2000 Conversion", options.year2000Conversion);
    ReadLong(row, "Commit Point", options.commitPoint);
    options.databaseOwner = row.Text("DataBase Owner");
    options.codeDatabaseOwner = row.Text("Code DataBase Owner");
    options.sqlHeaderFile = row.Text("SQL Header File");
}

}  // namespace vellumark
