// Reading a schema of 1,000 tables with 30 columns and two foreign keys each, with its System Scenario and
// the two default Scenarios.

#include "schema_bench.h"

#include <benchmark/benchmark.h>

#include "platform/dao/database.h"
#include "scenario/modNewSchema.h"
#include "scenario/modSchemaLifecycle.h"
#include "schema/modConnectionString.h"

namespace vellumark::bench {

namespace {

constexpr int kTables = 1000;

std::string MakeDatabase(const Session& session) {
    const std::string path = session.Path("schema.mdb");
    dao::CreateDatabase(path);
    const dao::Database database = dao::OpenDatabase(path);
    dao::Transaction transaction(database);
    for (int table = 0; table < kTables; ++table) {
        std::string sql = "create table T" + std::to_string(table) + " (Id INTEGER primary key";
        for (int column = 1; column < 28; ++column)
            sql += ", C" + std::to_string(column) + " VARCHAR(20)";
        sql += ", Up INTEGER references T" + std::to_string(table / 2);
        sql += ", Other INTEGER references T" + std::to_string(table * 7 % kTables) + ")";
        database.Prepare(sql).Execute();
    }
    transaction.Commit();
    return path;
}

void ReadSchema(benchmark::State& state, const std::string& path, char protocol) {
    NewSchemaDetails details{.name = "Read"};
    details.connection.protocol = protocol;
    details.connection.mdbFile = path;
    fConnectionString(details.connection);
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

}  // namespace

void RegisterSchemaReads(const Session& session) {
    const std::string path = MakeDatabase(session);
    for (const char protocol : {'A', 'D'})
        benchmark::RegisterBenchmark(
            protocol == 'A' ? "read_schema/ado" : "read_schema/dao",
            [path, protocol](benchmark::State& state) { ReadSchema(state, path, protocol); })
            ->Unit(benchmark::kMillisecond)
            ->Iterations(3)
            ->UseRealTime();
}

}  // namespace vellumark::bench
