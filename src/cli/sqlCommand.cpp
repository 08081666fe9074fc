#include <iostream>
#include <iterator>
#include <memory>

#include "cli/commands.h"
#include "platform/dialogs.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"
#include "tools/sqlListing.h"

namespace vellumark {

namespace {

struct SQLWords {
    std::string schema;
    std::string statement;
    bool csv = false;
};

std::string StatementOf(const SQLWords& words) {
    if (words.statement != "-")
        return words.statement;
    return {std::istreambuf_iterator<char>(std::cin), {}};
}

bool ListRows(const SQLWords& words, const std::string& statement) {
    const std::unique_ptr<SQLListing> listing = words.csv ? CsvListing(std::cout) : TableListing(std::cout);
    const SQLResult result = RunSQL(CurrentConnections(), DatabaseProtocol, statement, *listing);
    listing->Finish();
    if (result.outcome == SQLOutcome::Done)
        std::cout << result.Line() << "\n";
    std::cout.flush();
    if (result.outcome == SQLOutcome::Failed)
        platform::ShowExclamation(result.Line());
    else if (!std::cout)
        platform::ShowExclamation("The output can't be written.");
    return result.outcome != SQLOutcome::Failed && std::cout;
}

bool RunStatement(const SQLWords& words) {
    if (!OpenSchemaNamed(words.schema))
        return false;
    const std::string statement = StatementOf(words);
    return (TargetConnectionState == 'C' || ConnectTarget()) && ListRows(words, statement);
}

}  // namespace

void AddSQLCommand(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<SQLWords>();
    CLI::App* command = app.add_subcommand("sql", "Run one SQL statement on the Target Connection");
    command->add_option("SCHEMA", words->schema, "Name of the Database schema")->required();
    command->add_option("STATEMENT", words->statement, "The statement; - reads it from standard input")
        ->required();
    command->add_flag("--csv", words->csv, "Print rows as comma-separated values");
    command->callback([&line, words] { line.run = [words] { return RunStatement(*words); }; });
}

}  // namespace vellumark
