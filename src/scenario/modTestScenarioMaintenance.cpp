#include "scenario/modTestScenarioMaintenance.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modScenarioCopy.h"
#include "scenario/modScenarioFolders.h"
#include "scenario/modTTRandRTDmaintenance.h"

namespace vellumark {

namespace fs = std::filesystem;

namespace {

std::vector<std::string>& CurrentList() {
    return CurrentScenarioTab == ScenarioTab::Insert ? InsertScenarioNames : DeleteScenarioNames;
}

char TypeOfTab() {
    return CurrentScenarioTab == ScenarioTab::Insert ? 'I' : 'D';
}

std::string KindText() {
    return CurrentScenarioTab == ScenarioTab::Insert ? "Insert" : "Delete";
}

// Asks until the name is usable; empty when the user gave up.
std::string AskScenarioName(const std::string& title, const std::string& current) {
    for (;;) {
        const platform::Prompt prompt{"Enter the new " + KindText() + " Data Scenario name: ", title,
                                      current};
        std::string name = platform::CurrentDialogs().Ask(prompt).value_or("");
        if (name.empty() || fScenarioNameOK(name))
            return name;
    }
}

int NextScenarioId() {
    return NextId(RepositoryDatabase, "select max([Id]) from [Test Scenario] where [FK DBS Id] = ?",
                  {CurrentDBSId}, 0);
}

// Another copy of the program may have taken the name since it was asked for.
void CheckNameIsFree(const std::string& name) {
    const dao::Value others = RepositoryDatabase.Lookup(
        "select count(*) from [Test Scenario] where [FK DBS Id] = ? and [Name] = ?", {CurrentDBSId, name});
    if (dao::ToLong(others) > 0)
        throw platform::Error(platform::kPathAccessError,
                              "Scenario path '" + ScenarioFolder(name) + "' already exists.");
}

void AddScenarioRow(int id, const std::string& name, char type) {
    dao::Recordset scenarios = RepositoryDatabase.OpenForAppend("Test Scenario");
    scenarios.AddNew();
    scenarios.Set("Id", id)
        .Set("Name", name)
        .Set("FK DBS Id", CurrentDBSId)
        .Set("Type", std::string(1, type));
    scenarios.Update();
}

void AddScenarioTables(int scenarioId) {
    dao::Recordset tables = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? order by [Name] asc", {CurrentDBSId});
    dao::Recordset used = RepositoryDatabase.OpenForAppend("resolver Test Scenario Table");
    for (; !tables.IsEOF(); tables.MoveNext()) {
        used.AddNew();
        used.Set("FK DBS Id", CurrentDBSId).Set("FK TSO Id", scenarioId).Set("FK TAB Id", tables.Long("Id"));
        used.Update();
    }
}

void Select(int id, const std::string& name, char type) {
    CurrentTSOId = id;
    CurrentTSOName = name;
    CurrentTSOFolder = ScenarioFolder(name);
    CurrentTSOType = type;
    SetSessionState(kOpenWithScenario);
}

bool IsSelectedInTable(int tabId) {
    // Case Weaver's test cases are loaded into one table only.
    if (CurrentTSOId <= 0 || CurrentDBSSource != 'T')
        return true;
    return dao::ToText(RepositoryDatabase.Lookup(
               "select [Name] from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, tabId})) ==
           "Test Cases";
}

void CreateSystemRules() {
    dao::Recordset options =
        RepositoryDatabase.OpenRecordset("select [Start Range], [End Range] from [Options]");
    const int start = options.IsEOF() ? 1 : options.Long("Start Range");
    const int end = options.IsEOF() ? 100 : options.Long("End Range");
    dao::Recordset tables = RepositoryDatabase.OpenRecordset(
        "select * from [resolver Test Scenario Table] where [FK DBS Id] = ? and [FK TSO Id] = ? order by [FK "
        "TAB Id] asc",
        {CurrentDBSId, CurrentTSOId});
    for (; !tables.IsEOF(); tables.MoveNext()) {
        const int tabId = tables.Long("FK TAB Id");
        if (CurrentTSOType == 'D')
            AddDeleteTableRule(tabId, "");
        else if (IsSelectedInTable(tabId))
            AddTableRule(tabId, start, end, true);
    }
}

void CreateSystemRow() {
    CurrentTSOId = NextScenarioId();
    CurrentTSOType = '0';
    AddScenarioRow(CurrentTSOId, "System", CurrentTSOType);
    AddScenarioTables(CurrentTSOId);
}

void DeleteOwnedConnections() {
    dao::Recordset sources = RepositoryDatabase.OpenRecordset(
        "select * from [Value Source] where [FK DBS Id] = ? and [FK TSO Id] = ?",
        {CurrentDBSId, CurrentTSOId});
    for (; !sources.IsEOF(); sources.MoveNext())
        if (sources.Long("FK CON Id") > 0)
            RepositoryDatabase.Execute("delete * from [Database Connection] where [Id] = ?",
                                       {sources.Long("FK CON Id")});
}

void RenameInRepository(const std::string& name) {
    RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    dao::Recordset scenario = RepositoryDatabase.OpenRecordset(
        "select * from [Test Scenario] where [Id] = ? and [FK DBS Id] = ?", {CurrentTSOId, CurrentDBSId});
    scenario.Edit();
    scenario.Set("Name", name);
    scenario.Update();
    RenamedFolder folder(CurrentTSOFolder, ScenarioFolder(name));
    transaction.Commit();
    folder.Keep();
}

}  // namespace

std::string ScenarioFolder(std::string_view name) {
    return JoinPath(CurrentDBSFolder, name) + ".tso";
}

bool fScenarioNameOK(std::string_view name) {
    if (platform::CharacterCount(name) > kLongestScenarioName)
        return platform::Refuse("Scenario name may not be greater than 50 characters.");
    if (name.find_first_of("/\\") != std::string_view::npos)
        return platform::Refuse("Scenario name may not hold a folder separator.");
    const std::string folder = ScenarioFolder(name);
    if (fs::exists(folder))
        return platform::Refuse("Scenario path '" + folder + "' already exists.");
    return true;
}

bool CreateScenario(std::string name) {
    if (name.empty())
        name = AskScenarioName("Vellumark", "");
    if (name.empty())
        return false;
    try {
        RepositoryScope repository;
        dao::Transaction transaction(RepositoryDatabase);
        CheckNameIsFree(name);
        const int id = NextScenarioId();
        AddScenarioRow(id, name, TypeOfTab());
        AddScenarioTables(id);
        MadeFolder folder(ScenarioFolder(name));
        transaction.Commit();
        folder.Keep();
        CurrentList().push_back(name);
        Select(id, name, TypeOfTab());
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("creating the Scenario", error);
        return false;
    }
}

void CreateSystemScenario() {
    RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    CreateSystemRow();
    CurrentTSOType = 'I';
    CreateSystemRules();
    CurrentTSOType = 'D';
    CreateSystemRules();
    transaction.Commit();
}

bool SaveScenarioAs(std::string name) {
    if (name.empty())
        name = AskScenarioName("Vellumark - Scenario Save As", CurrentTSOName);
    if (name.empty())
        return false;
    try {
        RepositoryScope repository;
        dao::Transaction transaction(RepositoryDatabase);
        CheckNameIsFree(name);
        const int id = NextScenarioId();
        AddScenarioRow(id, name, TypeOfTab());
        CopyScenarioRows(CurrentTSOId, id);
        MadeFolder folder(ScenarioFolder(name));
        transaction.Commit();
        folder.Keep();
        CurrentList().push_back(name);
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("copying the Scenario", error);
        return false;
    }
}

bool RenameScenario(std::string name) {
    if (name.empty())
        name = AskScenarioName("Vellumark - Rename Scenario", CurrentTSOName);
    if (name.empty())
        return false;
    try {
        RenameInRepository(name);
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("renaming the Scenario", error);
        return false;
    }
    std::ranges::replace(CurrentList(), CurrentTSOName, name);
    CurrentTSOName = name;
    CurrentTSOFolder = ScenarioFolder(name);
    return true;
}

void DeleteScenarioRows() {
    DeleteOwnedConnections();
    for (const char* table :
         {"Value Source", "resolver TTR dependency", "TSO Insert Column Rule", "TSO Insert Table Rule",
          "TSO Delete Table Rule", "resolver Test Scenario Table"})
        RepositoryDatabase.Execute(
            "delete * from [" + std::string(table) + "] where [FK DBS Id] = ? and [FK TSO Id] = ?",
            {CurrentDBSId, CurrentTSOId});
    RepositoryDatabase.Execute("delete * from [Test Scenario] where [Id] = ? and [FK DBS Id] = ?",
                               {CurrentTSOId, CurrentDBSId});
}

bool fConfirmDeleteScenario() {
    return platform::AskYesNo("Do you really want to delete the selected " + KindText() +
                              " Data Scenario: " + platform::ToLower(CurrentTSOName) + "?");
}

bool DeleteScenario() {
    try {
        RepositoryScope repository;
        dao::Transaction transaction(RepositoryDatabase);
        DeleteScenarioRows();
        RemovedFolder folder(CurrentTSOFolder);
        transaction.Commit();
        folder.Remove();
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("deleting the Scenario", error);
        return false;
    }
    std::vector<std::string>& names = CurrentList();
    if (const auto entry = std::ranges::find(names, CurrentTSOName); entry != names.end())
        names.erase(entry);
    SelectNoScenario();
    return true;
}

void SelectNoScenario() {
    CurrentTSOId = 0;
    CurrentTSOName.clear();
    CurrentTSOFolder.clear();
    SetSessionState(CurrentDBSId < 1 ? kNotOpen : kOpenNoScenario);
}

std::string ScenarioLastModified(std::string_view name) {
    const std::string folder = ScenarioFolder(name);
    std::error_code failure;
    fs::file_time_type last = fs::last_write_time(folder, failure);
    if (failure)
        return {};
    for (fs::directory_iterator file(folder, failure), end; !failure && file != end; file.increment(failure))
        last = std::max(last, file->last_write_time(failure));
    return platform::LocalText(std::chrono::time_point_cast<std::chrono::system_clock::duration>(
        std::chrono::file_clock::to_sys(last)));
}

bool OpenScenario(std::string_view name) {
    if (platform::EqualsIgnoringCase(name, CurrentTSOName) && SessionState == kOpenWithScenario)
        return true;
    RepositoryScope repository;
    const dao::Recordset scenario = RepositoryDatabase.OpenRecordset(
        "select * from [Test Scenario] where [FK DBS Id] = ? and [Name] = ? and [Id] > 0",
        {CurrentDBSId, name});
    if (scenario.IsEOF())
        return false;
    const std::string type = scenario.Text("Type");
    Select(scenario.Long("Id"), scenario.Text("Name"), type.empty() ? 'I' : type.front());
    CurrentScenarioTab = CurrentTSOType == 'D' ? ScenarioTab::Delete : ScenarioTab::Insert;
    return true;
}

}  // namespace vellumark
