#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>

#include "cli/commands.h"
#include "cli/connectionWords.h"
#include "engine/targetConnection.h"
#include "platform/dialogs.h"
#include "repository/modVellumark.h"
#include "scenario/modGenericValues.h"
#include "scenario/modValueSources.h"
#include "schema/modConnectionRows.h"

namespace vellumark {

namespace {

using Codes = std::map<std::string, char>;

const Codes kKinds = {
    {"category", 'V'}, {"delimited", 'D'}, {"positional", 'P'}, {"spreadsheet", 'X'}, {"database", 'O'}};
const Codes kOrders = {{"random", 'R'}, {"sequential", 'S'}};
const Codes kQuotes = {{"default", 'D'}, {"quotes", 'Q'}, {"none", 'N'}};
const Codes kEnds = {{"stop", 'S'}, {"hold", 'H'}, {"loop", 'L'}};
const Codes kDataTypes = {{"character", 'C'}, {"integer", 'I'}, {"real", 'R'},
                          {"date", 'D'},      {"time", 'T'},    {"timestamp", 'S'}};

struct SourceWords {
    std::string schema;
    std::string scenario;
    int rule = 0;
    std::string column;
    char kind = 'V';
    std::string category;
    std::string conversion;
    std::string file;
    std::optional<int> startColumn, endColumn, startRow, endRow, field;
    ValueSourceDetails details;
    ConnectionWords connection;
};

struct ImportWords {
    std::string name;
    char dataType = 'C';
    std::string file;
};

// Looks the names up that the screen would have the user pick.
bool TakeNames(const SourceWords& words, ValueSourceDetails& details) {
    if (!words.category.empty() && (details.categoryId = CategoryId(words.category)) == 0)
        return platform::Refuse("There is no Category '" + words.category + "'.");
    if (!words.conversion.empty() && (details.conversionId = ConversionCodeId(words.conversion)) == 0)
        return platform::Refuse("There is no Conversion Code '" + words.conversion + "'.");
    return true;
}

bool SetSource(const SourceWords& words) {
    if (!OpenSchemaNamed(words.schema) || !OpenScenarioNamed(words.scenario))
        return false;
    const std::optional<ColumnRuleDetails> rule = ReadColumnRule(words.rule, words.column);
    ValueSourceDetails details = words.details;
    if (!rule || !TakeNames(words, details))
        return false;
    SetSourceKind(details, words.kind);
    details.startColumn = words.startColumn.value_or(details.startColumn);
    details.endColumn = words.endColumn.value_or(details.endColumn);
    details.startRow = words.startRow.value_or(details.startRow);
    details.endRow = words.endRow.value_or(details.endRow);
    details.fieldNumber = words.field.value_or(details.fieldNumber);
    if (!words.file.empty())
        details.path = std::filesystem::absolute(words.file).lexically_normal().string();
    if (words.kind == 'O') {
        const std::optional<ConnectionDetails> connection = CompleteConnection(words.connection);
        if (!connection)
            return false;
        details.connection = *connection;
    }
    if (!fSaveValueSource(details, *rule))
        return false;
    if (details.type == 'V')
        WarnOfCategoryType(details.categoryId, rule->dataType);
    return true;
}

bool Connect(const std::string& schema, const ConnectionWords& words) {
    if (!OpenSchemaNamed(schema))
        return false;
    std::optional<ConnectionDetails> details = CompleteConnection(words);
    if (!details || !fSaveConnection(kConnectTarget, *details))
        return false;
    if (!ConnectTarget())
        return platform::Refuse("Cannot connect to target database.");
    return fTargetTakesData();
}

bool PrintCategories() {
    for (const CategorySummary& category : ListCategories())
        std::cout << category.name << "\t" << category.dataType << "\t" << category.values << "\n";
    return true;
}

// The lines of a text file without their ends; nothing, behind a message, when it can't be read.
std::optional<std::vector<std::string>> LinesOf(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        lines.push_back(std::move(line));
    }
    if (file.eof())
        return lines;
    platform::ShowExclamation("Cannot open the file: " + path);
    return std::nullopt;
}

bool ImportCategory(const ImportWords& words) {
    const auto lines = LinesOf(words.file);
    return lines && fImportCategory(words.name, words.dataType, *lines);
}

bool ImportConversion(const ImportWords& words) {
    const auto lines = LinesOf(words.file);
    if (!lines)
        return false;
    std::vector<std::pair<std::string, std::string>> codes;
    for (const std::string& text : *lines) {
        const std::size_t tab = text.find('\t');
        if (tab == std::string::npos)
            return platform::Refuse("Line " + std::to_string(codes.size() + 1) +
                                    " holds no tab between code and value.");
        codes.emplace_back(text.substr(0, tab), text.substr(tab + 1));
    }
    return fImportConversionCode(words.name, codes);
}

// An option that takes one of the words and keeps the stored code.
CLI::Option* AddCode(CLI::App& command, const char* name, char& code, const Codes& codes, const char* help) {
    std::string words;
    for (const auto& [word, letter] : codes)
        words += (words.empty() ? "" : "|") + word;
    return command.add_option(name, code, help)
        ->transform(CLI::CheckedTransformer(codes, CLI::ignore_case).description(""))
        ->type_name(words);
}

void AddSourceBounds(CLI::App& source, SourceWords& words) {
    source.add_option("--start-row", words.startRow, "First row to read");
    source.add_option("--end-row", words.endRow, "Last row to read");
    source.add_option("--start-column", words.startColumn, "First column, of text or cells");
    source.add_option("--end-column", words.endColumn, "Last column");
    source.add_option("--row-terminator", words.details.rowTerminator,
                      "Text of the cell behind the last row");
    source.add_option("--column-terminator", words.details.columnTerminator,
                      "Text of the cell behind the last column");
    source.add_option("--interval", words.details.interval, "Read every nth value");
    source.add_option("--hold", words.details.hold, "Rows that one value serves");
}

void AddSourceCommand(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<SourceWords>();
    CLI::App* source =
        app.add_subcommand("source", "Let a column take its values from an alternate data source");
    source->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    source->add_option("SCENARIO", words->scenario, "Name of the Scenario")->required();
    source->add_option("RULE", words->rule, "Id of the Table rule")->required();
    source->add_option("COLUMN", words->column, "Name of the column")->required();
    AddCode(*source, "--kind", words->kind, kKinds, "Where the values are")->required();
    source->add_option("--category", words->category, "Name of the Category");
    source->add_option("--file", words->file, "Text file or spreadsheet")->type_name("FILE");
    source->add_option("--sheet", words->details.sheet, "Worksheet (default: the first)");
    source->add_option("--delimiter", words->details.delimiter, "Delimiter of the fields");
    source->add_option("--field", words->field, "Number of the delimited field");
    AddSourceBounds(*source, *words);
    AddCode(*source, "--order", words->details.order, kOrders, "Read order");
    AddCode(*source, "--quotes", words->details.quotes, kQuotes, "Quotes around the values");
    AddCode(*source, "--at-end", words->details.atEnd, kEnds, "What to do behind the last value");
    source->add_option("--pattern", words->details.inputPattern,
                       "Edit pattern of dates and times, as stored");
    source->add_option("--conversion", words->conversion, "Name of the Conversion Code to apply");
    source->add_option("--table", words->connection.details.table, "Table of the other database");
    source->add_option("--source-column", words->connection.details.column, "Column of that table");
    AddConnectionOptions(*source, words->connection);
    source->callback([&line, words] { line.run = [words] { return SetSource(*words); }; });
}

void AddConnectCommand(CLI::App& app, CommandLine& line) {
    const auto schema = std::make_shared<std::string>();
    const auto words = std::make_shared<ConnectionWords>();
    CLI::App* connect = app.add_subcommand("connect", "Set a schema's Target Connection and try it");
    connect->add_option("SCHEMA", *schema, "Name of the Database schema")->required();
    AddConnectionOptions(*connect, *words)->required();
    connect->callback(
        [&line, schema, words] { line.run = [schema, words] { return Connect(*schema, *words); }; });
}

void AddImport(CLI::App& app, CommandLine& line, const char* group, const char* help,
               bool (*action)(const ImportWords&), bool typed) {
    const auto words = std::make_shared<ImportWords>();
    CLI::App* parent = app.add_subcommand(group, help);
    parent->require_subcommand(1);
    CLI::App* import = parent->add_subcommand("import", help);
    import->add_option("NAME", words->name, "The new name")->required();
    if (typed)
        AddCode(*import, "--type", words->dataType, kDataTypes, "Data type of the values")->required();
    import->add_option("FILE", words->file, "The text file")->type_name("FILE")->required();
    import->callback([&line, words, action] { line.run = [words, action] { return action(*words);
};
}  // namespace
);
}  // namespace vellumark

}  // namespace

void AddSourceCommands(CLI::App& app, CommandLine& line) {
    AddConnectCommand(app, line);
    AddSourceCommand(app, line);
    app.add_subcommand("categories", "List the Categories of Generic values: name, data type, values")
        ->callback([&line] { line.run = PrintCategories; });
    AddImport(app, line, "category", "Make a Category from a file with one value a line", ImportCategory,
              true);
    AddImport(app, line, "conversion", "Make a Conversion Code from lines of code, tab, value",
              ImportConversion, false);
}

}  // namespace vellumark
