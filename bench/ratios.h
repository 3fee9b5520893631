// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

namespace wallgrid::bench {

/// One claim about speed or size: what our code takes over what a yardstick takes, both measured in the same run. Times
/// are the shortest of all repetitions.
struct Ratio {
    std::string title;
    std::string ours;      ///< name of a benchmark
    std::string yardstick; ///< name of another
    double atMost;
    std::string counter = {}; ///< compare this counter of the two instead of their times
    double budget = 0;        ///< seconds that stand in for a yardstick where there is none
};

/// Registers benchmarks that share their documents, and adds what they are to show.
using Group = std::function<void(std::vector<Ratio>&)>;

struct Table {
    std::string title;
    std::vector<Group> groups;
};

/// Runs one group after the other, and drops each with all that it holds. The benchmarks of a group are repeated in
/// mixed order, so that what else the machine does hits all alike. Prints tables of ratio, target and whether it is
/// met. The result is for main() to return: 0 when all targets that were measured are met.
int runRatios(int argc, char** argv, const std::vector<Table>& tables);

} // namespace wallgrid::bench
