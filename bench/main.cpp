// SPDX-License-Identifier: MIT
//
// What drawing, composing, encoding and reading cost beside memset, memcpy and Qt.
#include "benchmarks.h"

using namespace wallgrid::bench;

int main(int argc, char** argv)
{
    std::vector<Ratio> ratios;
    addComposition(ratios);
    addGrids(ratios);
    addRings(ratios);
    addPng(ratios);
    addPsd(ratios);
    addArchives(ratios);
    return runRatios(argc, argv, ratios);
}
