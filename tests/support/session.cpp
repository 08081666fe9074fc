#include "session.h"

#include <filesystem>

#include "repository/modOptionsMaintenance.h"
#include "repository/modRepositoryStores.h"
#include "repository/modVellumark.h"

namespace vellumark::test {

void SessionTest::SetUp() {
    LoadProgramPaths();
    RepositoryPath = folder.Path("Vellumark.mdb");
    ValuesPath = folder.Path("Vellumark Values.mdb");
    DatabasesFolder = folder.Path("databases");
    std::filesystem::create_directory(DatabasesFolder);
    CreateRepository(RepositoryPath);
    CreateValuesDatabase(ValuesPath);
    EnsureOptions();
}

void SessionTest::TearDown() {
    SessionState = kNotOpen;
    CurrentDBSId = CurrentTSOId = 0;
    CurrentDBSName.clear();
    CurrentTSOName.clear();
    InsertScenarioNames.clear();
    DeleteScenarioNames.clear();
    CurrentScenarioTab = ScenarioTab::Insert;
}

void SessionTest::MakeSchema(const std::string& name, char source) {
    RepositoryScope repository;
    CurrentDBSId = NextId(RepositoryDatabase, "select max([Id]) from [Database]");
    RepositoryDatabase.Execute("insert into [Database] ([Id], [Name], [Source]) values (?, ?, ?)",
                               {CurrentDBSId, name, std::string(1, source)});
    CurrentDBSName = name;
    CurrentDBSFolder = JoinPath(DatabasesFolder, name) + ".dbs";
    CurrentDBSSource = source;
    std::filesystem::create_directory(CurrentDBSFolder);
    SetSessionState(kOpenNoScenario);
}

int SessionTest::AddTable(const std::string& name, const std::vector<std::string>& columns) {
    RepositoryScope repository;
    const int tabId =
        NextId(RepositoryDatabase, "select max([Id]) from [Table] where [FK DBS Id] = ?", {CurrentDBSId});
    RepositoryDatabase.Execute(
        "insert into [Table] ([Id], [FK DBS Id], [Name], [Owner]) values (?, ?, ?, '')",
        {tabId, CurrentDBSId, name});
    int colId = 0;
    for (const std::string& column : columns) {
        ++colId;
        const std::size_t blank = column.find(' ');
        RepositoryDatabase.Execute(
            "insert into [Column] ([Id], [FK DBS Id], [FK TAB Id], [Name], [Vellumark Data Type], [Sort "
            "Order], [Role])"
            " values (?, ?, ?, ?, ?, ?, 'Data')",
            {colId, CurrentDBSId, tabId, column.substr(0, blank), column.substr(blank + 1), colId});
    }
    return tabId;
}

std::string RowsOf(const dao::Database& database, const std::string& sql) {
    std::string text;
    for (dao::Recordset rows = database.OpenRecordset(sql); !rows.IsEOF(); rows.MoveNext()) {
        if (!text.empty())
            text += '\n';
        for (const std::string& field : rows.FieldNames()) {
            if (&field != &rows.FieldNames().front())
                text += '|';
            text += rows.Text(field);
        }
    }
    return text;
}

std::string SessionTest::Rows(const std::string& sql) {
    RepositoryScope repository;
    return RowsOf(RepositoryDatabase, sql);
}

int SessionTest::Count(const std::string& table, const std::string& where) {
    RepositoryScope repository;
    return dao::ToLong(RepositoryDatabase.Lookup("select count(*) from [" + table + "] where " + where));
}

}  // namespace vellumark::test
