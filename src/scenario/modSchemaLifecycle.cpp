#include "scenario/modSchemaLifecycle.h"

#include <filesystem>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modConnectionRows.h"
#include "schema/modPhysicalSchema.h"

namespace vellumark {

namespace fs = std::filesystem;

namespace {

std::string SchemaFolder(std::string_view name) {
    return JoinPath(DatabasesFolder, name) + ".dbs";
}

dao::Recordset SchemaRow(int id) {
    return RepositoryDatabase.OpenRecordset("select * from [Database] where [Id] = ?", {id});
}

void ShowMissingSchema(int id) {
    platform::ShowExclamation("Cannot open the Database identifier " + std::to_string(id));
}

bool fNameIsUsable(const std::string& name) {
    if (name.empty()) {
        platform::ShowExclamation("Please enter a unique name to save this database in Vellumark");
        return false;
    }
    if (name.find_first_of("/\\") != std::string::npos) {
        platform::ShowExclamation("Database name may not hold a folder separator.");
        return false;
    }
    RepositoryScope repository;
    if (RepositoryDatabase.OpenRecordset("select * from [Database] where [Name] = ?", {name}).IsEOF())
        return true;
    platform::ShowExclamation(
        "Database name already exists in Vellumark.\n\nPlease enter a different Name and try again.");
    return false;
}

// The folder of a schema being made. It goes again with a schema that doesn't come about, unless it was there
// before.
class NewFolder {
 public:
    explicit NewFolder(std::string path) : path_(std::move(path)) {}
    ~NewFolder() {
        std::error_code ignored;
        if (made_)
            fs::remove_all(path_, ignored);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    // False when the user doesn't want the folder that is there, or it can't be made.
    bool Make() {
        if (fs::exists(path_))
            return platform::AskYesNo("Database directory already exists: " + path_ +
                                      "\n\nDo you want to continue?");
        std::error_code failure;
        made_ = fs::create_directory(path_, failure);
        if (!made_)
            platform::ShowExclamation("Cannot make the Database directory '" + path_ + "'\n\n" +
                                      failure.message());
        return made_;
    }

    void Keep() { made_ = false; }

 private:
    std::string path_;
    bool made_ = false;
};

void AddSchemaRow(const ConnectionDetails& details) {
    const int id = NextId(RepositoryDatabase, "select max([Id]) from [Database]");
    const int connectionId = NextConnectionId();
    dao::Recordset schemas = RepositoryDatabase.OpenForAppend("Database");
    schemas.AddNew();
    schemas.Set("Id", id)
        .Set("Name", details.schemaName)
        .Set("Description", details.schemaDescription)
        .Set("FK CON Id Source", connectionId)
        .Set("FK CON Id Target", connectionId + 1)
        .Set("Source", "D")
        .Set("DateTime Last Accessed", platform::LocalNow());
    schemas.Update();
    ConnectionDetails connection = details;
    connection.description = SourceDescription(details);
    AddConnection(connectionId, connection);
    connection.description = TargetDescription(details);
    AddConnection(connectionId + 1, connection);
    CurrentDBSId = id;
    CurrentDBSName = details.schemaName;
    CurrentDBSFolder = SchemaFolder(details.schemaName);
    CurrentDBSSource = 'D';
}

void CreateDefaultScenarios() {
    platform::ShowStatus("Setting defaults");
    CreateSystemScenario();
    platform::ShowStatus("Creating default Insert Scenario");
    CurrentScenarioTab = ScenarioTab::Delete;
    CreateScenario("Scenario to delete data");
    CurrentScenarioTab = ScenarioTab::Insert;
    CreateScenario("Scenario to create data");
    CurrentTSOType = 'I';
}

bool fCaptureSchema(const ConnectionDetails& details) {
    platform::ShowStatus("Reading Database Definition");
    ConnectMode = kConnectNew;
    ConnectionForm = details;
    return details.protocol == 'A' ? fReadSchemaADO() : fReadSchemaDAO();
}

// All of a new schema's rows in one transaction: a program that dies in the middle leaves none.
bool fMakeSchema(const ConnectionDetails& details) {
    RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    AddSchemaRow(details);
    if (!fCaptureSchema(details))
        return false;
    SelectedSchemaId = CurrentDBSId;
    if (!OpenDatabaseSchema())
        return false;
    CreateDefaultScenarios();
    transaction.Commit();
    return true;
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

bool fNewSchema(const ConnectionDetails& details) {
    CloseDatabaseSchema();
    if (!fNameIsUsable(details.schemaName))
        return false;
    NewFolder folder(SchemaFolder(details.schemaName));
    if (!folder.Make())
        return false;
    bool made = false;
    try {
        made = fMakeSchema(details);
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("creating the Database schema", error);
    }
    platform::ShowStatus("");
    if (!made) {
        CloseDatabaseSchema();
        return false;
    }
    folder.Keep();
    if (AutoConnect)
        ConnectTarget();
    return true;
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
