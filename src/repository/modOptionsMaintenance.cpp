#include "repository/modOptionsMaintenance.h"

#include "platform/dao/declared_type.h"
#include "repository/modTargetFormats.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kDatePattern = "Y001C002M001C002D001";
constexpr std::string_view kTimePattern = "H001C009I001C009S001";
constexpr std::string_view kTimestampPattern = "Y001C002M001C002D001C002H001C003I001C003S001C003N001";

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

void AddQuoteOptions(std::vector<OptionColumn>& columns) {
    for (const char group : {'C', 'I', 'B', 'D', 'T', 'S'}) {
        const std::string letter(1, group);
        columns.push_back(Flag("Flag " + letter + " Input File Textfile In Quotes", false));
        columns.push_back(Text("Code " + letter + " Output Textfile In Quotes", "N", 1));
        columns.push_back(Text("Char " + letter + " Output Textfile In Quotes", "'", 1));
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

}  // namespace vellumark
