// SPDX-License-Identifier: MIT
//
// What drawing, composing and encoding pixels cost beside memset, memcpy and Qt.
#include "pixels_bench.h"

using namespace wallgrid::bench;

int main(int argc, char** argv)
{
    std::vector<Ratio> ratios;
    addComposition(ratios);
    addGrids(ratios);
    addRings(ratios);
    addPng(ratios);
    return runRatios(argc, argv, ratios);
}
