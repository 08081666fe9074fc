#include "scenario/modNewSchema.h"

#include <filesystem>
#include <optional>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "scenario/modPermittedValues.h"
#include "scenario/modSchemaLifecycle.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modCOOLGenFiles.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "schema/modPhysicalSchema.h"
#include "schema/modSisterFiles.h"

namespace vellumark {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestPromptedName = 50;

bool fDetailsOK(const NewSchemaDetails& details) {
    if (details.name.empty())
        return platform::Refuse("Please enter a unique name to save this database in Vellumark");
    if (details.name.find_first_of("/\\") != std::string::npos)
        return platform::Refuse("Database name may not hold a folder separator.");
    if (details.kind == NewSchemaKind::COOLGen && fDBMSCode(details.model.dbmsName).empty())
        return platform::Refuse("Please select the DBMS of the COOL:Gen model");
    return true;
}

bool IsNameTaken(const std::string& name) {
    const RepositoryScope repository;
    return !RepositoryDatabase.OpenRecordset("select * from [Database] where [Name] = ?", {name}).IsEOF();
}

bool fNameIsNew(const std::string& name) {
    return !IsNameTaken(name) ||
           platform::Refuse(
               "Database name already exists in Vellumark.\n\nPlease enter a different Name and try again.");
}

enum class FolderAnswer { Ready, NotWanted, Failed };

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

    FolderAnswer Make() {
        if (fs::exists(path_)) {
            const bool wanted = platform::AskYesNo("Database directory already exists: " + path_ +
                                                   "\n\nDo you want to continue?");
            return wanted ? FolderAnswer::Ready : FolderAnswer::NotWanted;
        }
        std::error_code failure;
        made_ = fs::create_directory(path_, failure);
        if (made_)
            return FolderAnswer::Ready;
        platform::ShowExclamation("Cannot make the Database directory '" + path_ + "'\n\n" +
                                  failure.message());
        return FolderAnswer::Failed;
    }

    void Keep() { made_ = false; }

 private:
    std::string path_;
    bool made_ = false;
};

void AddConnections(const NewSchemaDetails& details, int connectionId) {
    if (details.kind != NewSchemaKind::Connection)
        return fCreateTargetPlaceholder(connectionId, details.name);
    ConnectionDetails connection = details.connection;
    connection.schemaName = details.name;
    connection.description = SourceDescription(connection);
    AddConnection(connectionId, connection);
    connection.description = TargetDescription(connection);
    AddConnection(connectionId + 1, connection);
}

void AddSchemaRow(const NewSchemaDetails& details) {
    const int id = NextId(RepositoryDatabase, "select max([Id]) from [Database]");
    const int connectionId = NextConnectionId();
    const bool hasSource = details.kind == NewSchemaKind::Connection;
    const char source = static_cast<char>(details.kind);
    dao::Recordset schemas = RepositoryDatabase.OpenForAppend("Database");
    schemas.AddNew();
    schemas.Set("Id", id)
        .Set("Name", details.name)
        .Set("Description", details.description)
        .Set("FK CON Id Source", hasSource ? connectionId : 0)
        .Set("FK CON Id Target", hasSource ? connectionId + 1 : connectionId)
        .Set("Source", std::string(1, source))
        .Set("DateTime Last Accessed", platform::LocalNow());
    schemas.Update();
    AddConnections(details, connectionId);
    CurrentDBSId = id;
    CurrentDBSName = details.name;
    CurrentDBSFolder = SchemaFolder(details.name);
    CurrentDBSSource = source;
}

bool fCaptureConnection(const ConnectionDetails& details) {
    ConnectMode = kConnectNew;
    ConnectionForm = details;
    return details.protocol == 'A' ? fReadSchemaADO() : fReadSchemaDAO();
}

bool fCapture(const NewSchemaDetails& details) {
    switch (details.kind) {
        case NewSchemaKind::Connection:
            platform::ShowStatus("Reading Database Definition");
            return fCaptureConnection(details.connection);
        case NewSchemaKind::COOLGen:
            platform::ShowStatus("Reading Database Definition");
            return fReadCOOLGenModel(details.model, details.description == kReadOnlyWord);
        case NewSchemaKind::CaseWeaver:
            return fReadCaseWeaverFile(details.sisterFile);
        case NewSchemaKind::SheetWeaver:
            return fReadSheetWeaverFile(details.sisterFile);
        case NewSchemaKind::Manual:
            break;
    }
    return true;
}

bool fCreateDefaultScenarios() {
    CurrentScenarioTab = ScenarioTab::Delete;
    if (!CreateScenario("Scenario to delete data"))
        return false;
    CurrentScenarioTab = ScenarioTab::Insert;
    if (!CreateScenario("Scenario to create data"))
        return false;
    CurrentTSOType = 'I';
    return true;
}

bool fMakeScenarios(const NewSchemaDetails& details) {
    const bool tells = details.kind == NewSchemaKind::Connection || details.kind == NewSchemaKind::COOLGen;
    if (tells)
        platform::ShowStatus("Setting defaults");
    CreateSystemScenario();
    if (details.kind == NewSchemaKind::Manual)
        return true;
    if (details.kind == NewSchemaKind::COOLGen && details.model.permittedValues &&
        !fReadPermittedValues(details.model.dbmsName))
        return false;
    if (tells)
        platform::ShowStatus("Creating default Insert Scenario");
    return fCreateDefaultScenarios();
}

// The Categories of a model's permitted values come about with its schema or not at all.
class CategoryChanges {
 public:
    CategoryChanges() : changes_(ValuesDatabase) {}
    void Commit() { changes_.Commit(); }

 private:
    ValuesScope values_;
    dao::Transaction changes_;
};

// All of a new schema's rows in one transaction: a program that dies in the middle leaves none.
bool fMakeSchema(const NewSchemaDetails& details) {
    const RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    std::optional<CategoryChanges> categories;
    if (details.model.permittedValues)
        categories.emplace();
    // Another copy of the program may have taken the name meanwhile.
    if (!fNameIsNew(details.name))
        return false;
    AddSchemaRow(details);
    if (!fCapture(details))
        return false;
    SelectedSchemaId = CurrentDBSId;
    if (!OpenDatabaseSchema() || !fMakeScenarios(details))
        return false;
    if (categories)
        categories->Commit();
    transaction.Commit();
    return true;
}

bool fMakeSchemaOrNothing(const NewSchemaDetails& details) {
    bool made = false;
    try {
        made = fMakeSchema(details);
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("creating the Database schema", error);
    }
    platform::ShowStatus("");
    if (!made)
        CloseDatabaseSchema();
    return made;
}

enum class Outcome { Made, OtherName, Failed };

Outcome TryToMake(const NewSchemaDetails& details) {
    if (!fDetailsOK(details))
        return Outcome::OtherName;
    CloseDatabaseSchema();
    if (!fNameIsNew(details.name))
        return Outcome::OtherName;
    NewFolder folder(SchemaFolder(details.name));
    if (details.description != kReadOnlyWord) {
        const FolderAnswer answer = folder.Make();
        if (answer != FolderAnswer::Ready)
            return answer == FolderAnswer::NotWanted ? Outcome::OtherName : Outcome::Failed;
    }
    const bool made = fMakeSchemaOrNothing(details);
    // Where it wasn't, a schema of that name is that of another copy of the program, and so is the folder.
    if (made || IsNameTaken(details.name))
        folder.Keep();
    if (!made)
        return Outcome::Failed;
    if (AutoConnect && details.kind != NewSchemaKind::Manual)
        ConnectTarget();
    return Outcome::Made;
}

}  // namespace

bool fNewSchema(NewSchemaDetails details) {
    if (details.kind != NewSchemaKind::Manual || !details.name.empty())
        return TryToMake(details) == Outcome::Made;
    for (;;) {
        details.name = fRenameSchemaPrompt();
        if (details.name.empty())
            return false;
        const Outcome outcome = TryToMake(details);
        if (outcome != Outcome::OtherName)
            return outcome == Outcome::Made;
    }
}

std::string fRenameSchemaPrompt() {
    const platform::Prompt prompt{"Enter the new Database Schema name: ", "Vellumark", ""};
    for (;;) {
        std::string name = platform::CurrentDialogs().Ask(prompt).value_or("");
        if (platform::CharacterCount(name) <= kLongestPromptedName)
            return name;
        platform::ShowExclamation("Name may not be greater than 50 characters.");
    }
}

}  // namespace vellumark
