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
    return runRatios(argc, argv,
                     {{"ours : yardstick",
                       {addComposition, addTranslucent, addGrids, addRings, addPng, addPsd, addPackedBits, addMemory,
                        addStart, addArchives, addOpening, addPreview, addUndo}},
                      {"ours : other libraries", {addCompositionLibraries, addPngLibraries}}});
}
