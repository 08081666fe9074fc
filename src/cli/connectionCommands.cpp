#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "cli/connectionWords.h"
#include "platform/dialogs.h"
#include "platform/odbc/sources.h"
#include "platform/text.h"
#include "schema/modConnectionDelete.h"
#include "schema/modConnectionRows.h"
#include "schema/modConnectionTables.h"
#include "tools/modTableLoad.h"

namespace vellumark {

namespace {

bool PrintDataSources() {
    const std::vector<odbc::DataSource> sources = odbc::DataSources();
    std::size_t width = 0;
    for (const odbc::DataSource& source : sources)
        width = std::max(width, platform::CharacterCount(source.name));
    for (const odbc::DataSource& source : sources)
        std::cout << source.name << std::string(width + 2 - platform::CharacterCount(source.name), ' ')
                  << source.driver << "\n";
    return true;
}

std::string UsesOf(int id) {
    std::string text;
    for (const std::string& use : ConnectionUses(id))
        text += (text.empty() ? "" : "; ") + use;
    return text.empty() ? "not used" : text;
}

bool PrintConnections() {
    for (const ConnectionEntry& entry : ListConnections())
        std::cout << entry.id << "\t" << platform::Trim(entry.details.description) << "\t" << UsesOf(entry.id)
                  << "\n";
    return true;
}

bool PrintTest(const ConnectionWords& words) {
    const std::optional<ConnectionDetails> details = CompleteConnection(words);
    const std::optional<std::string> server = details ? TestConnection(*details) : std::nullopt;
    if (server)
        std::cout << "connected: " << *server << "\n";
    return server.has_value();
}

bool Delete(int id) {
    if (ReadConnection(id))
        return fDeleteConnection(id);
    return platform::Refuse("There is no Connection " + std::to_string(id) + ".");
}

bool LoadTable(TableLoad load) {
    for (std::string* path : {&load.database, &load.file})
        if (!path->empty())
            *path = std::filesystem::absolute(*path).lexically_normal().string();
    const std::optional<int> rows = fLoadTable(load);
    if (rows)
        std::cout << *rows << (*rows == 1 ? " row\n" : " rows\n");
    return rows.has_value();
}

void AddTest(CLI::App& connection, CommandLine& line) {
    const auto words = std::make_shared<ConnectionWords>();
    CLI::App* test =
        connection.add_subcommand("test", "Connect and say what system and driver are at the other end");
    AddConnectionOptions(*test, *words)->required();
    test->callback([&line, words] { line.run = [words] { return PrintTest(*words); }; });
}

void AddDelete(CLI::App& connection, CommandLine& line) {
    const auto id = std::make_shared<int>();
    CLI::App* remove = connection.add_subcommand("delete", "Delete a connection that nothing uses");
    remove->add_option("ID", *id, "Id of the connection")->required();
    remove->callback([&line, id] { line.run = [id] { return Delete(*id); }; });
}

void AddLoadTable(CLI::App& app, CommandLine& line) {
    const auto load = std::make_shared<TableLoad>();
    CLI::App* command =
        app.add_subcommand("load-table", "Load a delimited text file into a table of an embedded database");
    command->add_option("--mdb", load->database, "File of the database")->type_name("FILE")->required();
    command->add_option("--table", load->table, "Name of the table")->required();
    command->add_option("--file", load->file, "The text file")->type_name("FILE")->required();
    command->add_option("--delimiter", load->delimiter, "Delimiter of the fields")->required();
    command->callback([&line, load] { line.run = [load] { return LoadTable(*load); }; });
}

}  // namespace

void AddConnectionCommands(CLI::App& app, CommandLine& line) {
    CLI::App* dsn = app.add_subcommand("dsn", "ODBC data sources");
    dsn->require_subcommand(1);
    dsn->add_subcommand("list", "List the data sources: name and driver")->callback([&line] {
        line.run = PrintDataSources;
    });
    app.add_subcommand("connections", "List the stored connections: Id, description, what uses it")
        ->callback([&line] { line.run = PrintConnections; });
    CLI::App* connection = app.add_subcommand("connection", "Try or delete a connection");
    connection->require_subcommand(1);
    AddTest(*connection, line);
    AddDelete(*connection, line);
    AddLoadTable(app, line);
}

}  // namespace vellumark
