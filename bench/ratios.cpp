// SPDX-License-Identifier: MIT
#include "ratios.h"

#include <algorithm>
#include <array>
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

std::string written(double value, bool isTime)
{
    std::array<char, 32> text;
    constexpr double kFiveDigits = 1e5; // sizes have more, and all of them are shown
    if (isTime)
        std::snprintf(text.data(), text.size(), "%.5g ms", value * 1e3);
    else
        std::snprintf(text.data(), text.size(), value < kFiveDigits ? "%.5g" : "%.0f", value);
    return text.data();
}

/// Prints a row and says whether the target is met, or was not measured.
bool show(const Ratio& ratio, const Recorder& recorder)
{
    const double ours = recorder.best(ratio.ours, ratio.counter);
    const double yardstick = ratio.budget > 0 ? ratio.budget : recorder.best(ratio.yardstick, ratio.counter);
    if (ours <= 0 || yardstick <= 0)
        return true;
    const bool met = ours / yardstick <= ratio.atMost;
    const bool timed = ratio.counter.empty();
    std::printf("%-66s %12s %12s %8.3f %8.3f  %s\n", ratio.title.c_str(), written(ours, timed).c_str(),
                written(yardstick, timed).c_str(), ours / yardstick, ratio.atMost, met ? "yes" : "NO");
    std::fflush(stdout);
    return met;
}

/// Measures a group and shows its rows. Says whether all targets are met.
bool run(const Group& addGroup)
{
    std::vector<Ratio> ratios;
    addGroup(ratios);
    std::ostream nowhere(nullptr);
    Recorder recorder;
    recorder.SetErrorStream(&nowhere); // it would say where a filter leaves none of a group
    benchmark::RunSpecifiedBenchmarks(&recorder);
    benchmark::ClearRegisteredBenchmarks();
    bool allMet = true;
    for (const Ratio& ratio : ratios)
        allMet = show(ratio, recorder) && allMet;
    return allMet;
}

} // namespace

int runRatios(int argc, char** argv, const std::vector<Table>& tables)
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

    bool allMet = true;
    for (const Table& table : tables) {
        std::printf("%-66s %12s %12s %8s %8s  %s\n", table.title.c_str(), "ours", "yardstick", "ratio", "at most",
                    "met");
        for (const Group& group : table.groups)
            allMet = run(group) && allMet;
        std::printf("\n");
    }
    return allMet ? 0 : 1;
}

} // namespace wallgrid::bench
