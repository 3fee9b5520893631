// SPDX-License-Identifier: MIT
#include "ratios.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <ostream>

namespace wallgrid::bench {

namespace {

class Recorder : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            const std::string& name = run.run_name.function_name;
            note(name, run.cpu_accumulated_time / static_cast<double>(run.iterations));
            for (const auto& [counterName, counter] : run.counters)
                note(keyOf(name, counterName), counter.value);
        }
    }

    /// 0 when it was not measured.
    double best(const std::string& benchmark, const std::string& counter) const
    {
        const auto found = m_best.find(counter.empty() ? benchmark : keyOf(benchmark, counter));
        return found == m_best.end() ? 0 : found->second;
    }

private:
    static std::string keyOf(std::string benchmark, const std::string& counter)
    {
        return benchmark.append("#").append(counter);
    }

    void note(const std::string& key, double value)
    {
        const auto [entry, isNew] = m_best.try_emplace(key, value);
        if (!isNew)
            entry->second = std::min(entry->second, value);
    }

    std::map<std::string, double> m_best;
};

/// Prints a row and says whether the target is met, or was not measured.
bool show(const Ratio& ratio, const Recorder& recorder)
{
    const double ours = recorder.best(ratio.ours, ratio.counter);
    const double yardstick = ratio.budget > 0 ? ratio.budget : recorder.best(ratio.yardstick, ratio.counter);
    if (ours <= 0 || yardstick <= 0)
        return true;
    const bool met = ours / yardstick <= ratio.atMost;
    const bool timed = ratio.counter.empty();
    const double unit = timed ? 1e-3 : 1;
    std::printf("%-66s %9.5g %-2s %9.5g %-2s %8.3f %8.3f  %s\n", ratio.title.c_str(), ours / unit, timed ? "ms" : "",
                yardstick / unit, timed ? "ms" : "", ours / yardstick, ratio.atMost, met ? "yes" : "NO");
    std::fflush(stdout);
    return met;
}

} // namespace

int runRatios(int argc, char** argv, const std::vector<Group>& groups)
{
    // Before the caller's own, which override them.
    std::vector<std::string> options{argv[0], "--benchmark_repetitions=9",
                                     "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.05"};
    options.insert(options.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& option : options)
        pointers.push_back(option.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;

    std::ostream nowhere(nullptr);
    bool allMet = true;
    std::printf("%-66s %12s %12s %8s %8s  %s\n", "ours : yardstick", "ours", "yardstick", "ratio", "at most", "met");
    for (const Group& addGroup : groups) {
        std::vector<Ratio> ratios;
        addGroup(ratios);
        Recorder recorder;
        recorder.SetErrorStream(&nowhere); // it would say where a filter leaves none of a group
        benchmark::RunSpecifiedBenchmarks(&recorder);
        benchmark::ClearRegisteredBenchmarks();
        for (const Ratio& ratio : ratios)
            allMet = show(ratio, recorder) && allMet;
    }
    return allMet ? 0 : 1;
}

} // namespace wallgrid::bench
