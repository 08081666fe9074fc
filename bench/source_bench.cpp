// Runs whose one column takes its values from an alternate data source, in order.

#include "source_bench.h"

#include <benchmark/benchmark.h>
#include <fstream>

#include "access_file.h"
#include "engine/modGenerateData.h"
#include "platform/dao/database.h"
#include "repository/modVellumark.h"

namespace vellumark::bench {

namespace {

constexpr int kRows = 1000000;
constexpr int kFirstScenario = 10;

std::string WriteLines(const Session& session) {
    const std::string path = session.Path("values.txt");
    std::ofstream file(path);
    for (int row = 1; row <= kRows; ++row)
        file << "first " << row << ",second " << row << ",third\r\n";
    return path;
}

std::string MakeDatabase(const Session& session) {
    const std::string path = session.Path("source.mdb");
    dao::CreateDatabase(path);
    const dao::Database database = dao::OpenDatabase(path);
    dao::Transaction transaction(database);
    database.Prepare("create table Source (Txt VARCHAR(30))").Execute();
    database
        .Prepare(
            "with recursive n(i) as (select 1 union all select i + 1 from n where i < 1000000)"
            " insert into Source select 'value ' || i from n")
        .Execute();
    transaction.Commit();
    return path;
}

std::string MakeAccessFile(const Session& session) {
    test::AccessFile file(test::AccessVersion::Access2000);
    file.AddTable({"Source", {{"Id", 4}, {"Txt", 10, 60}}});
    for (int row = 1; row <= kRows; ++row)
        file.AddRow({test::Stored(row), file.Text("value " + std::to_string(row))});
    return file.Save(session.Path("access.mdb"));
}

int AddDatabaseConnection(int id, const std::string& path) {
    RepositoryScope repository;
    RepositoryDatabase.Execute(
        "insert into [Database Connection] ([Id], [Type], [Access Method], [VB Data Access Objects],"
        " [Connection String], [Table], [Column]) values (?, 'Jet', 'D', 'D', ?, 'Source', 'Txt')",
        {id, path});
    return id;
}

// A Scenario of its own whose only column reads a source of that type.
void AddSource(int scenario, const std::string& type, const Fields& fields) {
    CurrentTSOId = scenario;
    AddRule(scenario + 20, "READ_" + type, {{"TXT", "Character", 40, 0, {{"Code Generate Data Type", "V"}}}},
            kRows);
    RepositoryScope repository;
    dao::Recordset row = RepositoryDatabase.OpenForAppend("Value Source");
    row.AddNew();
    row.Set("FK TCR Id", 1)
        .Set("FK TTR Id", scenario + 20)
        .Set("FK COL Id", 1)
        .Set("FK TAB Id", scenario + 20);
    row.Set("FK DBS Id", CurrentDBSId).Set("FK TSO Id", scenario).Set("Type", type);
    row.Set("Start from Row", 1).Set("End at Row", 999999999).Set("File Read Interval", 1);
    row.Set("Read File Order", "S").Set("If End of File", "L").Set("Code Input Value In Quotes", "N");
    for (const auto& [name, value] : fields)
        row.Set(name, value);
    row.Update();
}

void Register(const Session& session, const std::string& name, int scenario) {
    benchmark::RegisterBenchmark(
        ("source/" + name).c_str(),
        [&session, scenario](benchmark::State& state) {
            CurrentTSOId = scenario;
            NoProgress progress;
            for (auto _ : state)
                if (!TestDataGenerateAll({false, session.Path("run"), TargetFormat::Delimited}, progress))
                    state.SkipWithError("the run failed");
            state.SetItemsProcessed(state.iterations() * kRows);
        })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(2)
        ->UseRealTime();
}

}  // namespace

void RegisterSourceRuns(const Session& session) {
    const std::string lines = WriteLines(session);
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute("insert into [Database] ([Id], [Name]) values (?, 'Bench')",
                                   {CurrentDBSId});
    }
    AddSource(kFirstScenario, "D",
              {{"Name and Path", lines}, {"Delimiter", ","}, {"Delimited Field Number", 2}});
    AddSource(kFirstScenario + 1, "P",
              {{"Name and Path", lines}, {"Start from Column", 1}, {"End at Column", 9}});
    AddSource(kFirstScenario + 2, "V", {{"FK CAT Id", 1}});
    AddSource(kFirstScenario + 3, "O", {{"FK CON Id", AddDatabaseConnection(1, MakeDatabase(session))}});
    AddSource(kFirstScenario + 4, "O", {{"FK CON Id", AddDatabaseConnection(2, MakeAccessFile(session))}});
    int scenario = kFirstScenario;
    for (const char* name : {"delimited_text", "positional_text", "category", "database", "access_file"})
        Register(session, name, scenario++);
}

}  // namespace vellumark::bench
