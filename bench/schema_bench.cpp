// Reading a schema of 1,000 tables with 30 columns and two foreign keys each, with its System Scenario and
// the two default Scenarios; and carrying such schemas of 500 tables with 20 columns onto each other.

#include "schema_bench.h"

#include <benchmark/benchmark.h>

#include "platform/dao/database.h"
#include "repository/modVellumark.h"
#include "scenario/modNewSchema.h"
#include "scenario/modSchemaLifecycle.h"
#include "schema/modConnectionString.h"
#include "tools/modVersionControlRun.h"

namespace vellumark::bench {

namespace {

constexpr int kTables = 1000;
constexpr int kColumns = 30;
constexpr int kCarriedTables = 500;
constexpr int kCarriedColumns = 20;

// The last two columns of each table are foreign keys.
std::string MakeDatabase(const std::string& path, int tables, int columns) {
    dao::CreateDatabase(path);
    const dao::Database database = dao::OpenDatabase(path);
    dao::Transaction transaction(database);
    for (int table = 0; table < tables; ++table) {
        std::string sql = "create table T" + std::to_string(table) + " (Id INTEGER primary key";
        for (int column = 1; column < columns - 2; ++column)
            sql += ", C" + std::to_string(column) + " VARCHAR(20)";
        sql += ", Up INTEGER references T" + std::to_string(table / 2);
        sql += ", Other INTEGER references T" + std::to_string(table * 7 % tables) + ")";
        database.Prepare(sql).Execute();
    }
    transaction.Commit();
    return path;
}

NewSchemaDetails Details(const std::string& name, const std::string& path, char protocol) {
    NewSchemaDetails details{.name = name};
    details.connection.protocol = protocol;
    details.connection.mdbFile = path;
    fConnectionString(details.connection);
    return details;
}

void ReadSchema(benchmark::State& state, const std::string& path, char protocol) {
    const NewSchemaDetails details = Details("Read", path, protocol);
    for (auto _ : state) {
        if (!fNewSchema(details)) {
            state.SkipWithError("the schema was not read");
            break;
        }
        state.PauseTiming();
        fDeleteSchema(false);
        state.ResumeTiming();
    }
}

// What is left of the target before each run.
enum class Carried { EveryTable, NoTable, AChangeInEveryColumn };

void Prepare(Carried carried, int targetId) {
    const RepositoryScope repository;
    if (carried == Carried::AChangeInEveryColumn)
        RepositoryDatabase.Execute(
            "update [Column] set [Vellumark Data Type] = 'Date', [FK COL Id] = 0 where [FK DBS Id] = ?",
            {targetId});
    if (carried != Carried::NoTable)
        return;
    dao::Transaction transaction(RepositoryDatabase);
    RepositoryDatabase.Execute("delete from [Table] where [FK DBS Id] = ?", {targetId});
    for (const char* table : {"Column", "resolver Test Scenario Table", "TSO Delete Table Rule",
                              "TSO Insert Table Rule", "TSO Insert Column Rule"})
        RepositoryDatabase.Execute("delete from [" + std::string(table) + "] where [FK DBS Id] = ?",
                                   {targetId});
    transaction.Commit();
}

void CarrySchema(benchmark::State& state, const Session& session, const std::string& path, Carried carried) {
    if (!fNewSchema(Details("Target", path, 'D')))
        return state.SkipWithError("the target was not read");
    const int target = CurrentDBSId;
    if (!fNewSchema(Details("Source", path, 'D')))
        return state.SkipWithError("the source was not read");
    for (auto _ : state) {
        state.PauseTiming();
        Prepare(carried, target);
        state.ResumeTiming();
        if (!fApplyVersionControl({target, VersionControlMode::VersionControl, session.Path("log.txt")}))
            state.SkipWithError("the schema was not carried");
    }
    fDeleteSchema(false);
    CurrentDBSId = target;
    fDeleteSchema(false);
}

void RegisterSchemaCarries(const Session& session) {
    const std::string path = MakeDatabase(session.Path("carried.mdb"), kCarriedTables, kCarriedColumns);
    const std::pair<const char*, Carried> cases[] = {{"carry_schema/same", Carried::EveryTable},
                                                     {"carry_schema/new", Carried::NoTable},
                                                     {"carry_schema/changed", Carried::AChangeInEveryColumn}};
    for (const auto& [name, carried] : cases)
        benchmark::RegisterBenchmark(name,
                                     [&session, path, kind = carried](benchmark::State& state) {
                                         CarrySchema(state, session, path, kind);
                                     })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(3)
            ->UseRealTime();
}

}  // namespace

void RegisterSchemas(const Session& session) {
    const std::string path = MakeDatabase(session.Path("schema.mdb"), kTables, kColumns);
    for (const char protocol : {'A', 'D'})
        benchmark::RegisterBenchmark(
            protocol == 'A' ? "read_schema/ado" : "read_schema/dao",
            [path, protocol](benchmark::State& state) { ReadSchema(state, path, protocol); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(3)
            ->UseRealTime();
    RegisterSchemaCarries(session);
}

}  // namespace vellumark::bench
