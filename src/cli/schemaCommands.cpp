#include <iostream>
#include <memory>

#include "cli/commands.h"
#include "platform/dialogs.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"

namespace vellumark {

namespace {

bool ListSchemas() {
    RepositoryScope repository;
    dao::Recordset schemas = RepositoryDatabase.OpenRecordset("select * from [Database] order by [Name] asc");
    for (; !schemas.IsEOF(); schemas.MoveNext())
        std::cout << schemas.Text("Name") << "\n";
    return true;
}

bool ListTables(const std::string& schema) {
    if (!OpenSchemaNamed(schema))
        return false;
    RepositoryScope repository;
    dao::Recordset tables = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? order by [Id] asc", {CurrentDBSId});
    for (; !tables.IsEOF(); tables.MoveNext())
        std::cout << tables.Text("Name") << "\n";
    return true;
}

bool DropSchema(const std::string& name) {
    return OpenSchemaNamed(name) && fDeleteSchema(true);
}

void AddNamedCommand(CLI::App& app, CommandLine& line, const char* name, const char* help,
                     bool (*action)(const std::string&)) {
    const auto schema = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand(name, help);
    command->add_option("SCHEMA", *schema, "Name of the Database schema")->required();
    command->callback([&line, schema, action] { line.run = [schema, action] { return action(*schema); }; });
}

}  // namespace

int FindSchema(const std::string& name) {
    RepositoryScope repository;
    const int id =
        dao::ToLong(RepositoryDatabase.Lookup("select [Id] from [Database] where [Name] = ?", {name}));
    if (id == 0)
        platform::ShowExclamation("There is no Database schema '" + name + "'.");
    return id;
}

bool OpenSchemaNamed(const std::string& name) {
    const int id = FindSchema(name);
    return id > 0 && OpenSelectedSchema(id);
}

int FindTable(const std::string& name) {
    const dao::Value id = RepositoryDatabase.Lookup(
        "select [Id] from [Table] where [FK DBS Id] = ? and [Name] = ?", {CurrentDBSId, name});
    if (dao::IsNull(id))
        platform::ShowExclamation("There is no table '" + name + "' in the Database schema '" +
                                  CurrentDBSName + "'.");
    return dao::ToLong(id);
}

void AddSchemaCommands(CLI::App& app, CommandLine& line) {
    app.add_subcommand("schemas", "List the Database schemas, one name a line")->callback([&line] {
        line.run = ListSchemas;
    });
    AddNamedCommand(app, line, "tables", "List the tables of a schema, one a line", ListTables);
    AddNamedCommand(app, line, "drop", "Delete a schema with its Scenarios", DropSchema);
}

}  // namespace vellumark
