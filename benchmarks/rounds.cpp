// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "rounds.h"

#include <cstdio>

namespace {

constexpr double secondsPerRun = 0.01;
constexpr int iterationsForChecks = 12;
constexpr int largestSize = 10000;
constexpr int largestForChecks = 100;

/// Keeps what the one benchmark that runs told.
class Keeper : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& report) override { run = report.front(); }

    Run run;
};

/// A contestant in its case, with the number of iterations that fill its time.
struct Runner {
    std::string name;
    std::function<void(benchmark::State&)> run;
    benchmark::IterationCount iterations;
    std::size_t result;
};

struct PreparedCase {
    std::vector<Runner> runners;
};

benchmark::BenchmarkReporter::Run runOnce(const Runner& runner, bool timesItself)
{
    benchmark::ClearRegisteredBenchmarks();
    auto* registered = benchmark::RegisterBenchmark(runner.name.c_str(), runner.run);
    registered->Unit(benchmark::kNanosecond);
    if (timesItself)
        registered->UseManualTime();
    else
        registered->MeasureProcessCPUTime(); // Qt converts large images in threads.
    if (runner.iterations > 0)
        registered->Iterations(runner.iterations);
    else
        registered->MinTime(secondsPerRun);
    Keeper keeper;
    benchmark::RunSpecifiedBenchmarks(&keeper, ".");
    return keeper.run;
}

bool passed(const Runner& runner, const benchmark::BenchmarkReporter::Run& run)
{
    if (run.error_occurred)
        (void)std::fprintf(stderr, "%s: %s\n", runner.name.c_str(), run.error_message.c_str());
    return !run.error_occurred;
}

/// Runs every contestant of a case once; round by round another one begins.
bool runRound(const PreparedCase& prepared, std::size_t round, bool timesItself, std::vector<Result>& results)
{
    const std::size_t count = prepared.runners.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Runner& runner = prepared.runners[(i + round) % count];
        const auto run = runOnce(runner, timesItself);
        if (!passed(runner, run))
            return false;
        Result& result = results[runner.result];
        // The processor's time, so that what else runs on the machine counts for as little as can be.
        result.nanoseconds.append(timesItself ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime());
        for (const auto& [name, counter] : run.counters)
            result.figures[QString::fromStdString(name)].append(counter.value);
    }
    return true;
}

/// Prepares the runners. Those that are to fill their time run once, to find out how often that is; which also
/// warms all sides up.
bool prepare(const Workload& workload, const Case& source, bool checksOnly, PreparedCase& prepared,
             std::vector<Result>& results)
{
    for (const Contestant& contestant : source.contestants) {
        Runner runner{workload.name + "/" + source.name + "/" + contestant.name, contestant.run, source.iterations,
                      results.size()};
        results.push_back({QString::fromStdString(workload.name),
                           QString::fromStdString(source.name),
                           QString::fromStdString(contestant.name),
                           {},
                           {}});
        if (checksOnly) {
            const bool isShort = runner.iterations > 0 && runner.iterations < iterationsForChecks;
            runner.iterations = isShort ? runner.iterations : iterationsForChecks;
        } else if (runner.iterations == 0) {
            const auto run = runOnce(runner, workload.timesItself);
            if (!passed(runner, run))
                return false;
            runner.iterations = run.iterations;
        }
        prepared.runners.push_back(runner);
    }
    return true;
}

} // namespace

const std::vector<Workload>& workloads()
{
    static const std::vector<Workload> all{
        {"build", "a model of the 13 types with 40 frame effects, made and destroyed", buildCases, 8, false},
        {"set", "setData to a new value", setCases, 1, false},
        {"equal", "setData with an equal value", equalCases, 1, false},
        {"read", "data", readCases, 1, false},
        {"insert", "insertDataItem and setData on the new item", insertCases, 4, true},
        {"assign", "operator= of a whole model", assignCases, 8, false},
        {"customdefaults", "20 saved keys laid over the defaults", customDefaultsCases, 8, false},
        {"isdefault", "dataIsDefault over all types", isDefaultCases, 8, false},
        {"again", "getWatermark at the base size, nothing changed", againCases, 8, false},
        {"watermark", "getWatermark at the base size, one watermark moved", watermarkCases, 8, false},
        {"othersize", "getWatermark at another size", otherSizeCases, 8, false},
        {"place", "adjustWatermarkPos for one new watermark after the other", placeCases, 1, true},
        {"drag", "one step of dragging a watermark", dragCases, 1, true},
        {"typing", "a letter typed in a text, and the picture", typingCases, 8, false},
        {"fontsize", "a step of the slider for a text's size, and the picture", fontSizeCases, 8, false},
        {"transparency", "a step of the slider for a logo's transparency, and the picture", transparencyCases, 4,
         false},
        {"logosize", "getWatermark at another size, with a logo", logoSizeCases, 4, false},
        {"editing", "a value set, its signal, and the picture", editingCases, 8, false},
        {"set50", "setData in 50 models in turn", setInTurnCases, 8, false},
        {"read50", "data in 50 models in turn", readInTurnCases, 8, false},
        {"isdefault50", "dataIsDefault in 50 models in turn", isDefaultInTurnCases, 4, false},
    };
    return all;
}

bool runWorkload(const Workload& workload, const Effort& effort, std::vector<Result>& results)
{
    std::vector<PreparedCase> prepared;
    for (const Case& source : workload.cases(effort.checksOnly ? largestForChecks : largestSize)) {
        prepared.emplace_back();
        if (!prepare(workload, source, effort.checksOnly, prepared.back(), results))
            return false;
    }

    const int repeats = effort.checksOnly ? 1 : workload.repeats;
    for (int round = 0; round < effort.rounds; ++round) {
        for (const PreparedCase& one : prepared) {
            for (int repeat = 0; repeat < repeats; ++repeat) {
                const auto turn = static_cast<std::size_t>(round) * static_cast<std::size_t>(repeats)
                                  + static_cast<std::size_t>(repeat);
                if (!runRound(one, turn, workload.timesItself, results))
                    return false;
            }
        }
    }
    return true;
}
