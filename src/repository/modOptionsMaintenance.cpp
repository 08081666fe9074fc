#include "repository/modOptionsMaintenance.h"

#include "platform/calendar.h"
#include "platform/dao/declared_type.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/text.h"
#include "repository/modTargetFormats.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kDatePattern = "Y001C002M001C002D001";
constexpr std::string_view kTimePattern = "H001C009I001C009S001";
constexpr std::string_view kTimestampPattern = "Y001C002M001C002D001C002H001C003I001C003S001C003N001";
constexpr std::string_view kTypeLetters = "CIBDTS";
constexpr std::array<std::string_view, 3> kPatternKinds = {"Date", "Time", "Timestamp"};

OptionColumn Text(std::string name, std::string_view initial, int size = 255) {
    return {std::move(name), dao::dbText, size, std::string(initial)};
}

OptionColumn Long(std::string name, int initial) {
    return {std::move(name), dao::dbLong, 0, std::int64_t{initial}};
}

OptionColumn Flag(std::string name, bool initial) {
    return {std::move(name), dao::dbBoolean, 0, std::int64_t{initial ? -1 : 0}};
}

std::vector<OptionColumn> GeneralOptions() {
    return {Text("DataBase Owner", ""),
            Text("Code DataBase Owner", "Y", 1),
            Text("Target DataBase", "Text File - Delimited", 50),
            {"Default Start Timestamp", dao::dbDate, 0, std::string("2000-01-01 01:01:01")},
            Text("Default Start Date", "2000-01-01", 10),
            Text("Default Start Time", "01:01:01", 8),
            Text("Fill Character", "#", 1),
            Text("Fill Digit", "9", 1),
            Long("Commit Point", 1000),
            Text("Decimal Point Character", std::string(1, MachineDecimalPoint()), 1),
            Text("Value Too Large String", "*"),
            Long("Value Too Large Number", 1),
            Text("Editor Exe", "Notepad"),
            Flag("Flag Open SQL File With Editor", true),
            {"SQL Header File", dao::dbText, 255, std::monostate{}},
            Text("Input File Delimiter", ",", 1),
            Text("Output File Delimiter", ",", 1),
            Long("YY Year 2000 Conversion", 69),
            Long("Start Range", 1),
            Long("End Range", 100),
            Flag("flag DB Auto Connect", false)};
}

void AddFolders(std::vector<OptionColumn>& columns) {
    for (const char* name :
         {"Dir SQL", "Dir Input Text Files", "Dir Output Text Files", "Dir Input Excel Files",
          "Dir Output Excel Files", "Dir Report", "Dir Jet MDB", "Dir COOLGen Models"})
        columns.push_back(Text(name, ProgramFolder));
}

struct QuoteColumns {
    std::string inInput;
    std::string inOutput;
    std::string character;
};

QuoteColumns QuoteColumnsOf(char group) {
    const std::string letter(1, group);
    return {"Flag " + letter + " Input File Textfile In Quotes",
            "Code " + letter + " Output Textfile In Quotes", "Char " + letter + " Output Textfile In Quotes"};
}

void AddQuoteOptions(std::vector<OptionColumn>& columns) {
    for (const char group : kTypeLetters) {
        const QuoteColumns names = QuoteColumnsOf(group);
        columns.push_back(Flag(names.inInput, false));
        columns.push_back(Text(names.inOutput, "N", 1));
        columns.push_back(Text(names.character, "'", 1));
    }
}

void AddPatterns(std::vector<OptionColumn>& columns) {
    for (const char* direction : {"Input", "Output"}) {
        const std::string prefix = std::string("Code ") + direction;
        columns.push_back(Text(prefix + " Date Edit Pattern", kDatePattern));
        columns.push_back(Text(prefix + " Time Edit Pattern", kTimePattern));
        columns.push_back(Text(prefix + " Timestamp Edit Pattern", kTimestampPattern));
    }
}

struct TextOption {
    std::string_view column;
    std::string OptionsRecord::*text;
    std::string_view whenNull = "";
};

constexpr std::array kTextOptions = {
    TextOption{"DataBase Owner", &OptionsRecord::databaseOwner},
    TextOption{"Code DataBase Owner", &OptionsRecord::ownerCode, "Y"},
    TextOption{"Target DataBase", &OptionsRecord::targetDatabase, "Oracle"},
    TextOption{"SQL Header File", &OptionsRecord::sqlHeaderFile},
    TextOption{"Default Start Timestamp", &OptionsRecord::startTimestamp, "2000-01-01 01:01:01"},
    TextOption{"Default Start Date", &OptionsRecord::startDate, "2000-01-01"},
    TextOption{"Default Start Time", &OptionsRecord::startTime, "01:01:01"},
    TextOption{"Fill Character", &OptionsRecord::fillCharacter},
    TextOption{"Fill Digit", &OptionsRecord::fillDigit, "9"},
    TextOption{"Value Too Large String", &OptionsRecord::tooLargeString, "*"},
    TextOption{"Decimal Point Character", &OptionsRecord::decimalPoint, "."},
    TextOption{"Editor Exe", &OptionsRecord::editor, "Notepad"},
    TextOption{"Input File Delimiter", &OptionsRecord::inputDelimiter, ","},
    TextOption{"Output File Delimiter", &OptionsRecord::outputDelimiter, ","},
};

constexpr std::array kNumberOptions = {
    TextOption{"Commit Point", &OptionsRecord::commitPoint, "1000"},
    TextOption{"Start Range", &OptionsRecord::startRange, "1"},
    TextOption{"End Range", &OptionsRecord::endRange},
    TextOption{"Value Too Large Number", &OptionsRecord::tooLargeNumber, "1"},
    TextOption{"YY Year 2000 Conversion", &OptionsRecord::year2000Conversion, "69"},
};

constexpr std::array kFolderOptions = {
    TextOption{"Dir SQL", &OptionsRecord::dirSQL},
    TextOption{"Dir Input Text Files", &OptionsRecord::dirInputText},
    TextOption{"Dir Output Text Files", &OptionsRecord::dirOutputText},
    TextOption{"Dir Input Excel Files", &OptionsRecord::dirInputExcel},
    TextOption{"Dir Output Excel Files", &OptionsRecord::dirOutputExcel},
    TextOption{"Dir Report", &OptionsRecord::dirReport},
    TextOption{"Dir Jet MDB", &OptionsRecord::dirJet},
    TextOption{"Dir COOLGen Models", &OptionsRecord::dirCOOLGen},
};

struct FlagOption {
    std::string_view column;
    bool OptionsRecord::*flag;
};

constexpr std::array kFlagOptions = {
    FlagOption{"flag DB Auto Connect", &OptionsRecord::autoConnect},
    FlagOption{"Flag Open SQL File With Editor", &OptionsRecord::openWithEditor},
};

std::string PatternColumn(std::string_view direction, std::size_t kind) {
    return "Code " + std::string(direction) + " " + std::string(kPatternKinds[kind]) + " Edit Pattern";
}

template <class Options>
void ReadTexts(const dao::Recordset& row, const Options& columns, OptionsRecord& options) {
    for (const TextOption& option : columns)
        options.*option.text =
            row.IsNull(option.column) ? std::string(option.whenNull) : row.Text(option.column);
}

// Rows of other programs may hold "01/01/2000 01:01:01 AM".
void BringToStoredForm(OptionsRecord& options) {
    if (const auto moment = platform::ParseMoment(options.startTimestamp)) {
        options.startTimestamp.clear();
        platform::AppendMoment(options.startTimestamp, *moment);
    }
}

void ReadQuotes(const dao::Recordset& row, OptionsRecord& options) {
    for (std::size_t i = 0; i < options.quotes.size(); ++i) {
        const QuoteColumns names = QuoteColumnsOf(kTypeLetters[i]);
        options.quotes[i] = {row.Boolean(names.inInput), row.Text(names.inOutput) == "Q",
                             row.Text(names.character)};
    }
}

void WriteQuotes(dao::Recordset& row, const OptionsRecord& options) {
    for (std::size_t i = 0; i < options.quotes.size(); ++i) {
        const QuoteColumns names = QuoteColumnsOf(kTypeLetters[i]);
        row.Set(names.inInput, options.quotes[i].inInput)
            .Set(names.inOutput, options.quotes[i].inOutput ? "Q" : "N")
            .Set(names.character, options.quotes[i].outputCharacter);
    }
}

// An empty one stays so: with a separator it would be the root.
std::string WithSeparator(std::string folder) {
    const bool ends = folder.empty() || platform::kSeparators.find(folder.back()) != std::string_view::npos;
    return ends ? folder : folder + "/";
}

dao::Value NumberOrNull(const std::string& text) {
    const auto number = platform::ParseLong(text);
    return number ? dao::Value(std::int64_t{*number}) : dao::Value();
}

void WriteRow(dao::Recordset& row, const OptionsRecord& options) {
    for (const TextOption& option : kTextOptions)
        row.Set(option.column, options.*option.text);
    for (const TextOption& option : kNumberOptions)
        row.Set(option.column, NumberOrNull(options.*option.text));
    for (const TextOption& option : kFolderOptions)
        row.Set(option.column, WithSeparator(options.*option.text));
    for (const FlagOption& option : kFlagOptions)
        row.Set(option.column, options.*option.flag);
    WriteQuotes(row, options);
    for (std::size_t i = 0; i < kPatternKinds.size(); ++i) {
        row.Set(PatternColumn("Input", i), options.inputPatterns[i]);
        row.Set(PatternColumn("Output", i), options.outputPatterns[i]);
    }
}

bool IsNumberOrEmpty(const std::string& text) {
    return text.empty() || platform::ParseLong(text);
}

using MaybeFault = std::optional<OptionsFault>;

constexpr std::string_view kNoNumber = "Please enter a whole number of at most 2147483647";

MaybeFault FindDatabaseFault(const OptionsRecord& options) {
    if (!options.sqlHeaderFile.empty() &&
        !platform::FileExists(platform::PlatformPath(options.sqlHeaderFile)))
        return OptionsFault{"txtSQLHeaderFile", "SQL Header file does not exist"};
    if (!IsNumberOrEmpty(options.commitPoint))
        return OptionsFault{"txtCommit", kNoNumber};
    return std::nullopt;
}

MaybeFault FindDefaultsFault(const OptionsRecord& options) {
    if (!IsNumberOrEmpty(options.startRange))
        return OptionsFault{"txtStartRange", kNoNumber};
    if (!IsNumberOrEmpty(options.endRange))
        return OptionsFault{"txtEndRange", kNoNumber};
    const int start = platform::ParseLong(options.startRange).value_or(0);
    const int end = platform::ParseLong(options.endRange).value_or(0);
    if (start > end && end != 0)
        return OptionsFault{"txtStartRange", "Start range must be less than or equal to end range"};
    if (start <= 0)
        return OptionsFault{"txtStartRange", "Please enter a start range greater than zero"};
    if (platform::Trim(options.fillDigit).empty())
        return OptionsFault{"txtFillNumeric",
                            "Please enter a digit from 0 to 9 in the Numeric Fill Character"};
    if (!IsNumberOrEmpty(options.tooLargeNumber))
        return OptionsFault{"txtGeneratedNumLarge", kNoNumber};
    return std::nullopt;
}

MaybeFault FindInputFault(const OptionsRecord& options) {
    if (options.inputDelimiter.empty())
        return OptionsFault{"txtITFDelimiter", "Please enter a default delimiter"};
    if (options.year2000Conversion.empty())
        return OptionsFault{"txtYrConversion", "Please enter a Year 2000 conversion value"};
    if (!IsNumberOrEmpty(options.year2000Conversion))
        return OptionsFault{"txtYrConversion", kNoNumber};
    return std::nullopt;
}

}  // namespace

std::vector<OptionColumn> OptionColumns() {
    std::vector<OptionColumn> columns = GeneralOptions();
    AddFolders(columns);
    AddQuoteOptions(columns);
    AddPatterns(columns);
    return columns;
}

void EnsureOptions() {
    RepositoryScope repository;
    dao::Recordset options = RepositoryDatabase.OpenRecordset("select * from [Options]");
    if (options.IsEOF()) {
        options.AddNew();
        for (const OptionColumn& column : OptionColumns())
            options.Set(column.name, column.initial);
        options.Update();
        options = RepositoryDatabase.OpenRecordset("select * from [Options]");
    }
    const std::string decimalPoint = options.Text("Decimal Point Character");
    DecimalPointCharacter = decimalPoint.empty() ? '.' : decimalPoint.front();
    AutoConnect = options.Boolean("flag DB Auto Connect");
}

OptionsRecord ReadOptions() {
    const RepositoryScope repository;
    const dao::Recordset row = RepositoryDatabase.OpenRecordset("select * from [Options]");
    OptionsRecord options;
    ReadTexts(row, kTextOptions, options);
    ReadTexts(row, kNumberOptions, options);
    ReadTexts(row, kFolderOptions, options);
    for (const FlagOption& option : kFlagOptions)
        options.*option.flag = row.Boolean(option.column);
    BringToStoredForm(options);
    ReadQuotes(row, options);
    for (std::size_t i = 0; i < kPatternKinds.size(); ++i) {
        options.inputPatterns[i] = row.Text(PatternColumn("Input", i));
        options.outputPatterns[i] = row.Text(PatternColumn("Output", i));
    }
    return options;
}

bool fWriteOptions(const OptionsRecord& options) {
    try {
        const RepositoryScope repository;
        dao::Recordset row = RepositoryDatabase.OpenRecordset("select * from [Options]");
        row.Edit();
        WriteRow(row, options);
        row.Update();
        EnsureOptions();
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("storing the options", error);
        return false;
    }
}

std::optional<OptionsFault> FindOptionsFault(OptionsPage page, const OptionsRecord& options) {
    switch (page) {
        case OptionsPage::Database:
            return FindDatabaseFault(options);
        case OptionsPage::Defaults:
            return FindDefaultsFault(options);
        case OptionsPage::InputValues:
            return FindInputFault(options);
        default:
            return std::nullopt;
    }
}

}  // namespace vellumark
