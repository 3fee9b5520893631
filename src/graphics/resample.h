// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"
#include "graphics/geometry.h"

namespace wallgrid {

/// A part of a bitmap scaled to `size` pixels: the part that `region` names (origin at the scaled picture's bottom-left
/// corner; it may not be empty and lies inside the size, a broken last pixel at the right and at the top included).
/// Each direction for itself takes the mean of the area under a pixel where it shrinks, and interpolates linearly
/// between pixel centres where it enlarges. Neither leaves the range of the samples it mixes, so an opaque picture
/// stays opaque up to its edges and no colour passes its alpha.
///
/// `hidden` is how far the picture is moved to the left and up before the region is taken, in pixels.
///
/// Costs what the region and the source pixels under it cost, whatever the size. No bitmap when there is no memory.
BitmapRef resample(const Bitmap& source, Size size, const PixelRect& region, Point hidden = {});

} // namespace wallgrid
