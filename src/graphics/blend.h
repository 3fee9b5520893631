// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <cstddef>
#include <cstdint>

namespace wallgrid {

// Compositing of runs of pixels: S the source, D the destination, both premultiplied, a their alphas (Porter and Duff,
// "Compositing Digital Images", 1984). Each product x × y / 255 is rounded to nearest; a sum past 255, which only
// colours greater than their alpha can reach, stays 255.

/// S + D × (1 − Sa)
void blendOver(Pixel* destination, const Pixel* source, std::size_t count);
/// S × Da + D × (1 − Sa), alpha stays Da.
void blendAtop(Pixel* destination, const Pixel* source, std::size_t count);

/// S × factor / 255
void scalePixels(Pixel* destination, const Pixel* source, std::uint8_t factor, std::size_t count);

/// One colour over a run.
void blendColor(Pixel* destination, Pixel color, std::size_t count);
/// One colour over a run, each pixel of it as far as its coverage says (255 is all).
void blendCoverage(Pixel* destination, Pixel color, const std::uint8_t* coverage, std::size_t count);

} // namespace wallgrid
