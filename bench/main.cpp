// SPDX-License-Identifier: MIT
//
// What drawing, composing, encoding and reading cost beside memset, memcpy and Qt.
#include "benchmarks.h"

#include <QApplication>

using namespace wallgrid::bench;

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::vector<Ratio> ratios;
    addComposition(ratios);
    addTranslucent(ratios);
    addGrids(ratios);
    addRings(ratios);
    addPng(ratios);
    addPsd(ratios);
    addPackedBits(ratios);
    addMemory(ratios);
    addArchives(ratios);
    addOpening(ratios);
    addPreview(ratios);
    addUndo(ratios);
    return runRatios(argc, argv, ratios);
}
