// Whole runs: a Scenario of one CUSTOMER rule with ten columns into a file, beside a loop written by hand
// that prints the same bytes. Before anything is measured both outputs are compared.

#include <benchmark/benchmark.h>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sys/resource.h>

#include "bench_session.h"
#include "customers_by_hand.h"
#include "engine/modGenerateData.h"
#include "engine/randomStream.h"
#include "repository/modVellumark.h"
#include "schema_bench.h"
#include "source_bench.h"
#include "working_bench.h"

namespace vellumark::bench {

namespace {

constexpr int kRows = 1000000;
constexpr int kComparedRows = 20500;

const std::vector<BenchColumn> kCustomer = {
    {"CUSTOMER_ID", "Long Integer"},
    {"CUSTOMER_NAME", "Character", 30},
    {"COUNTRY", "Character", 3, 0, {{"Constant Value", "DEU"}}},
    {"AGE", "Integer", 0, 0, {{"Range order", "R"}, {"Start Range", "18"}, {"End Range", "99"}}},
    {"CREDIT", "Long Integer", 0, 0, {{"Range order", "R"}, {"Start Range", "1"}, {"End Range", "1000000"}}},
    {"BORN", "Date", 0, 0, {{"date time increment", "D"}}},
    {"CREATED", "TimeStamp", 0, 0, {{"date time increment", "S"}}},
    {"ACTIVE", "Boolean"},
    {"BALANCE", "Double", 0, 15},
    {"REMARK", "Character", 40, 0, {{"Fill the column", "E"}}},
};

constexpr int kCustomerScenario = 1;

bool GenerateCustomers(const std::string& path, TargetFormat format) {
    CurrentTSOId = kCustomerScenario;
    NoProgress progress;
    SessionRandomStream() = {};
    return TestDataGenerateAll({false, path, format}, progress);
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string WithoutCommentLines(const std::string& text) {
    return text.substr(text.find('\n', text.find('\n') + 1) + 1);
}

bool OutputsAgree(const Session& session, TargetFormat format) {
    SetRows(kComparedRows);
    WriteCustomersByHand(session.Path("hand"), format, kComparedRows);
    if (GenerateCustomers(session.Path("run"), format) &&
        WithoutCommentLines(ReadFile(session.Path("run"))) == ReadFile(session.Path("hand")))
        return true;
    std::cerr << "The run and the loop by hand differ in " << TargetFormatName(format) << "\n";
    return false;
}

void CountRows(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * kRows);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

void Run(benchmark::State& state, const Session& session, TargetFormat format) {
    for (auto _ : state)
        if (!GenerateCustomers(session.Path("run"), format))
            state.SkipWithError("the run failed");
    CountRows(state);
}

void ByHand(benchmark::State& state, const Session& session, TargetFormat format) {
    for (auto _ : state)
        WriteCustomersByHand(session.Path("hand"), format, kRows);
    CountRows(state);
}

void Register(const Session& session, const std::string& name, TargetFormat format) {
    const auto add = [&](const std::string& kind, auto measured) {
        benchmark::RegisterBenchmark(
            (name + "/" + kind).c_str(),
            [&session, format, measured](benchmark::State& state) { measured(state, session, format); })
            ->Unit(benchmark::kMillisecond)
            ->MinTime(2)
            ->UseRealTime();
    };
    add("run", Run);
    add("by_hand", ByHand);
}

}  // namespace

}  // namespace vellumark::bench

int main(int argc, char** argv) {
    using namespace vellumark;
    benchmark::Initialize(&argc, argv);
    const bench::Session session;
    bench::AddRule(1, "CUSTOMER", bench::kCustomer, bench::kComparedRows);
    if (!bench::OutputsAgree(session, TargetFormat::Delimited) ||
        !bench::OutputsAgree(session, TargetFormat::Oracle))
        return 1;
    bench::SetRows(bench::kRows);
    bench::Register(session, "delimited", TargetFormat::Delimited);
    bench::Register(session, "oracle", TargetFormat::Oracle);
    bench::RegisterWorkingRuns(session);
    bench::RegisterSourceRuns(session);
    bench::RegisterSchemas(session);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
