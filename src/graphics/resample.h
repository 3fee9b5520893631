// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"
#include "graphics/geometry.h"

namespace wallgrid {

/// A part of a bitmap scaled to `size` pixels: the part that `region` names. It is counted from the top-left pixel of
/// the scaled picture, of whose pixels the rightmost and the uppermost may be broken; it is not empty and lies inside.
/// Each direction for itself takes the mean of the area under a pixel where it shrinks, and interpolates linearly
/// between pixel centres where it enlarges. Neither leaves the range of the samples it mixes, so an opaque picture
/// stays opaque up to its edges and no colour passes its alpha.
///
/// `hidden` is how far the picture is moved to the left and up before the region is taken, in pixels.
///
/// Costs what the region and the source pixels under it cost, whatever the size. No bitmap when there is no memory.
BitmapRef resample(const Bitmap& source, Size size, const PixelRect& region, Point hidden = {});

} // namespace wallgrid
