#include "Ratios.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

/// Shows the averages as usual and keeps each benchmark's best time. The best of many short runs is what the
/// code can do; the others tell what else the machine was doing.
class BestTimesReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        std::vector<Run> averages;
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate)
                averages.push_back(run);
            else if (!run.error_occurred)
                keep(run.run_name.function_name, nanoseconds(run));
        }
        ConsoleReporter::ReportRuns(averages);
    }

    /// Nanoseconds per iteration, 0 when the benchmark did not run.
    double best(const std::string& name) const
    {
        const auto found = m_best.find(name);
        return found == m_best.end() ? 0.0 : found->second;
    }

private:
    /// Processor time, unless the benchmark takes its time itself, as those do that more than one process
    /// works for.
    static double nanoseconds(const Run& run)
    {
        const bool isManual = run.run_name.time_type == "manual_time";
        const double time = isManual ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
        return time / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9;
    }

    void keep(const std::string& name, double time)
    {
        double& best = m_best.emplace(name, time).first->second;
        best = std::min(best, time);
    }

    std::map<std::string, double> m_best;
};

} // namespace

int runBenchmarks(int argc, char** argv, const std::vector<Ratio>& ratios)
{
    std::vector<char*> arguments(argv, argv + argc);
    const auto strict = std::find_if(arguments.begin(), arguments.end(), [](const char* argument) {
        return std::string(argument) == "--strict";
    });
    const bool isStrict = strict != arguments.end();
    if (isStrict)
        arguments.erase(strict);
    // Options given on the command line come later and win.
    std::string options[] = {"--benchmark_repetitions=25", "--benchmark_min_time=0.02",
                             "--benchmark_enable_random_interleaving=true", "--benchmark_color=false"};
    for (std::string& option : options)
        arguments.insert(arguments.begin() + 1, option.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());

    BestTimesReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\n%-58s %12s %12s %8s %8s\n", "figure", "ours", "peer", "speed", "target");
    bool allMet = true;
    for (const Ratio& ratio : ratios) {
        const double ours = reporter.best(ratio.ours);
        const double peer = reporter.best(ratio.peer);
        if (ours <= 0.0 || peer <= 0.0)
            continue;
        const double speed = peer / ours;
        const bool met = speed >= ratio.target;
        allMet = allMet && met;
        std::printf("%-58s %9.0f ns %9.0f ns %7.2fx %7.2fx%s\n", ratio.figure.c_str(), ours, peer, speed,
                    ratio.target, met ? "" : "  BELOW");
    }
    return isStrict && !allMet ? 1 : 0;
}
