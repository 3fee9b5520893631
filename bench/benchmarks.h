// SPDX-License-Identifier: MIT
#pragma once

#include "ratios.h"

namespace wallgrid::bench {

// Each registers its benchmarks and adds what they are to show.
void addComposition(std::vector<Ratio>& ratios);
void addTranslucent(std::vector<Ratio>& ratios);
void addGrids(std::vector<Ratio>& ratios);
void addRings(std::vector<Ratio>& ratios);
void addPng(std::vector<Ratio>& ratios);
void addPsd(std::vector<Ratio>& ratios);
void addOpening(std::vector<Ratio>& ratios);
void addPackedBits(std::vector<Ratio>& ratios);
void addMemory(std::vector<Ratio>& ratios);
void addStart(std::vector<Ratio>& ratios);
void addArchives(std::vector<Ratio>& ratios);
void addPreview(std::vector<Ratio>& ratios);
void addUndo(std::vector<Ratio>& ratios);
// Beside other libraries.
void addCompositionLibraries(std::vector<Ratio>& ratios);
void addPngLibraries(std::vector<Ratio>& ratios);

} // namespace wallgrid::bench
