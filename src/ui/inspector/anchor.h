// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/geometry.h"

#include <array>

namespace wallgrid {

/// Where on the output raster an item can be aligned.
enum class Anchor {
    TopLeft,
    TopRight,
    Center,
    BottomLeft,
    BottomRight,
};

inline constexpr std::array kAnchors{Anchor::TopLeft, Anchor::TopRight, Anchor::Center, Anchor::BottomLeft,
                                     Anchor::BottomRight};

/// The top-left corner of an item that sits at the anchor of the output. Of an odd remainder, the larger half is to the
/// right and below. The place of the item itself does not matter.
PixelPoint positionAt(Anchor anchor, const PixelRect& item, const PixelRect& output);

} // namespace wallgrid
