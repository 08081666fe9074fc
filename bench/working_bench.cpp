// Runs that need the Working database: a child under a parent, and unique random values.

#include "working_bench.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "engine/modGenerateData.h"
#include "engine/modWorkingDatabase.h"
#include "engine/randomStream.h"
#include "repository/modVellumark.h"

namespace vellumark::bench {

namespace {

constexpr int kParents = 100000;
constexpr int kChildren = 1000000;
constexpr int kFamilyScenario = 2;
constexpr int kUniqueScenario = 3;

void AddFamily() {
    CurrentTSOId = kFamilyScenario;
    const Fields unique = {{"Flag column unique", true}};
    AddRule(11, "PARENT", {{"ID", "Long Integer", 0, 0, unique}, {"NAME", "Character", 30}}, kParents);
    AddRule(12, "CHILD",
            {{"ID", "Long Integer", 0, 0, unique}, {"PARENT_ID", "Long Integer"}, {"NAME", "Character", 30}},
            kChildren);
    RepositoryScope repository;
    RepositoryDatabase.Execute(
        "insert into [resolver TTR dependency] ([FK DBS Id], [FK TSO Id], [FK Child TTR Id], [FK Child TAB "
        "Id],"
        " [FK Child COL Id], [FK Parent TTR Id], [FK Parent TAB Id], [FK Parent COL Id], [Increment parent "
        "count],"
        " [Quantity children per parent]) values (?, ?, 12, 12, 2, 11, 11, 1, 10, 10)",
        {CurrentDBSId, CurrentTSOId});
}

void AddUnique() {
    CurrentTSOId = kUniqueScenario;
    AddRule(13, "UNIQUE_ROWS",
            {{"N",
              "Long Integer",
              0,
              0,
              {{"Start Range", "1"},
               {"End Range", "4000000"},
               {"Range order", "R"},
               {"Flag column unique", true}}}},
            kChildren);
}

void Run(benchmark::State& state, const Session& session, int scenario, int rows) {
    CurrentTSOId = scenario;
    NoProgress progress;
    for (auto _ : state) {
        SessionRandomStream() = {};
        if (!TestDataGenerateAll({false, session.Path("run"), TargetFormat::Oracle}, progress))
            state.SkipWithError("the run failed");
    }
    state.SetItemsProcessed(state.iterations() * rows);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

void Register(const Session& session, const char* name, int scenario, int rows) {
    benchmark::RegisterBenchmark(
        name, [&session, scenario, rows](benchmark::State& state) { Run(state, session, scenario, rows); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(2)
        ->UseRealTime();
}

}  // namespace

void RegisterWorkingRuns(const Session& session) {
    AddFamily();
    AddUnique();
    Register(session, "oracle/children_of_parents", kFamilyScenario, kParents + kChildren);
    Register(session, "oracle/unique_random", kUniqueScenario, kChildren);
}

}  // namespace vellumark::bench
