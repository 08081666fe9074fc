#include "scenario/modSchemaLifecycle.h"

#include <filesystem>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modScenarioFolders.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace fs = std::filesystem;

namespace {

dao::Recordset SchemaRow(int id) {
    return RepositoryDatabase.OpenRecordset("select * from [Database] where [Id] = ?", {id});
}

void ShowMissingSchema(int id) {
    platform::ShowExclamation("Cannot open the Database identifier " + std::to_string(id));
}

void ListScenarios() {
    dao::Recordset scenarios = RepositoryDatabase.OpenRecordset(
        "select * from [Test Scenario] where [FK DBS Id] = ? and [Id] > 0", {CurrentDBSId});
    for (; !scenarios.IsEOF(); scenarios.MoveNext()) {
        const bool deletes = scenarios.Text("Type") == "D";
        (deletes ? DeleteScenarioNames : InsertScenarioNames).push_back(scenarios.Text("Name"));
    }
}

void TakeSchema(const dao::Recordset& schema) {
    ShownSchemaName = schema.Text("Name");
    ShownSchemaDescription = schema.Text("Description");
    ShownModelName = schema.Text("COOLGen Model Name");
    CurrentDBSId = schema.Long("Id");
    CurrentDBSName = ShownSchemaName;
    CurrentDBSFolder = SchemaFolder(CurrentDBSName);
    CurrentDBSSource = schema.Text("Source").empty() ? ' ' : schema.Text("Source").front();
}

void SelectFirstScenario() {
    CurrentScenarioTab = ScenarioTab::Insert;
    CurrentTSOId = 0;
    CurrentTSOName.clear();
    SetSessionState(kOpenNoScenario);
    if (!InsertScenarioNames.empty())
        OpenScenario(InsertScenarioNames.front());
}

void DeleteScenariosOfSchema() {
    dao::Recordset scenarios = RepositoryDatabase.OpenRecordset(
        "select * from [Test Scenario] where [FK DBS Id] = ?", {CurrentDBSId});
    for (; !scenarios.IsEOF(); scenarios.MoveNext()) {
        CurrentTSOId = scenarios.Long("Id");
        CurrentTSOName = scenarios.Text("Name");
        CurrentTSOType = scenarios.Text("Type").empty() ? ' ' : scenarios.Text("Type").front();
        DeleteScenarioRows();
    }
}

void DeleteSchemaRows(const dao::Recordset& schema) {
    dao::Transaction transaction(RepositoryDatabase);
    DeleteScenariosOfSchema();
    for (const char* table : {"Column", "Table"})
        RepositoryDatabase.Execute("delete * from [" + std::string(table) + "] where [FK DBS Id] = ?",
                                   {CurrentDBSId});
    for (const char* connection : {"FK CON Id Source", "FK CON Id Target"})
        RepositoryDatabase.Execute("delete * from [Database Connection] where [Id] = ?",
                                   {schema.Long(connection)});
    RepositoryDatabase.Execute("delete * from [Database] where [Id] = ?", {CurrentDBSId});
    transaction.Commit();
}

void ForgetSchema() {
    CurrentDBSId = 0;
    CurrentDBSName.clear();
    CurrentDBSFolder.clear();
    CurrentTSOId = 0;
    CurrentTSOName.clear();
    ShownSchemaName.clear();
    ShownSchemaDescription.clear();
    ShownModelName.clear();
    InsertScenarioNames.clear();
    DeleteScenarioNames.clear();
}

}  // namespace

std::string SchemaFolder(std::string_view name) {
    return JoinPath(DatabasesFolder, name) + ".dbs";
}

bool OpenDatabaseSchema() {
    CloseDatabaseSchema();
    RepositoryScope repository;
    const int id = SelectedSchemaId;
    SelectedSchemaId = 0;
    const dao::Recordset schema = SchemaRow(id);
    if (schema.IsEOF()) {
        ShowMissingSchema(id);
        return false;
    }
    TakeSchema(schema);
    if (!fs::exists(CurrentDBSFolder)) {
        platform::ShowCritical("Cannot find Database directory '" + CurrentDBSFolder + "'");
        CloseDatabaseSchema();
        return false;
    }
    FinishFolderChanges();
    ListScenarios();
    SelectFirstScenario();
    return true;
}

bool OpenSelectedSchema(int schemaId) {
    {
        RepositoryScope repository;
        dao::Recordset schema = SchemaRow(schemaId);
        if (schema.IsEOF()) {
            ShowMissingSchema(schemaId);
            return false;
        }
        schema.Edit();
        schema.Set("DateTime Last Accessed", platform::LocalNow());
        schema.Update();
    }
    SelectedSchemaId = schemaId;
    if (!OpenDatabaseSchema())
        return false;
    if (AutoConnect)
        ConnectTarget();
    return true;
}

void RereadDatabaseSchema() {
    if (CurrentDBSId < 1)
        return;
    const RepositoryScope repository;
    const dao::Recordset schema = SchemaRow(CurrentDBSId);
    if (schema.IsEOF()) {
        ShowMissingSchema(CurrentDBSId);
        CloseDatabaseSchema();
        return;
    }
    TakeSchema(schema);
    InsertScenarioNames.clear();
    DeleteScenarioNames.clear();
    ListScenarios();
    const std::string selected = CurrentTSOName;
    SelectNoScenario();
    OpenScenario(selected);
}

void CloseDatabaseSchema() {
    ForgetSchema();
    if (TargetConnectionState == 'C')
        CloseTargetConnection();
    SetSessionState(kNotOpen);
}

bool fDeleteSchema(bool ask) {
    RepositoryScope repository;
    const dao::Recordset schema = SchemaRow(CurrentDBSId);
    if (schema.IsEOF()) {
        ShowMissingSchema(CurrentDBSId);
        return false;
    }
    if (ask && !platform::AskYesNo(
                   "Do you really want to delete the selected Database: " + schema.Text("Name") + "?"))
        return false;
    const std::string folder = SchemaFolder(schema.Text("Name"));
    try {
        DeleteSchemaRows(schema);
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("deleting the Database schema", error);
        return false;
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    CloseDatabaseSchema();
    return true;
}

}  // namespace vellumark
