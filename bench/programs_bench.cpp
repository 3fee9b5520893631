// SPDX-License-Identifier: MIT
#include "benchmarks.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

namespace wallgrid::bench {

namespace {

/// What a program found that prints both, run once.
std::array<double, 2> oursAndYardstick(const std::string& command)
{
    std::array<double, 2> found{};
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    if (!output || std::fscanf(output.get(), "%lf %lf", &found[0], &found[1]) != 2) {
        std::fprintf(stderr, "%s failed\n", command.c_str());
        std::exit(2);
    }
    return found;
}

void add(std::vector<Ratio>& ratios, const std::string& name, const std::string& yardstick, const std::string& command,
         double atMost)
{
    const auto found = [=, made = std::make_shared<std::array<double, 2>>()]() -> const std::array<double, 2>& {
        if ((*made)[0] == 0)
            *made = oursAndYardstick(command);
        return *made;
    };
    for (const std::size_t i : {0U, 1U}) {
        benchmark::RegisterBenchmark((name + (i == 0 ? "/ours" : "/yardstick")).c_str(), [=](benchmark::State& state) {
            for (auto _ : state)
                state.counters["found"] = found()[i];
        })->Iterations(1);
    }
    ratios.push_back({name + ": " + yardstick, name + "/ours", name + "/yardstick", atMost, "found"});
}

} // namespace

void addMemory(std::vector<Ratio>& ratios)
{
    // Memory comes in pages of 2 MB, which are the small excess.
    for (const auto& [size, arguments] : {std::pair("3840x2160", " 3840 2160 20"), {"16384x8192", " 16384 8192 60"}}) {
        add(ratios, std::string("PSD memory ") + size, "pictures, file, a layer",
            std::string(WALLGRID_PSD_MEMORY) + arguments, 1.05);
    }
    add(ratios, "export memory 16384x8192", "raster, pictures, PSD",
        std::string(WALLGRID_EXPORT_MEMORY) + " " + WALLGRID_PROGRAM + " 16384 8192 60", 1.25);
}

void addStart(std::vector<Ratio>& ratios)
{
    add(ratios, "start to first picture, ms", "an empty Qt window",
        std::string(WALLGRID_WITH_DISPLAY) + " " + WALLGRID_FIRST_PICTURE + " 25 " + WALLGRID_PROGRAM + " " +
            WALLGRID_EMPTY_WINDOW,
        1.3);
}

} // namespace wallgrid::bench
