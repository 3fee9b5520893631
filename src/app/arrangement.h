// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "graphics/geometry.h"

#include <cstddef>
#include <cstdint>

namespace wallgrid {

/// Commands that place the selected layers. Each goes through the items' setters, draws again the layers whose picture
/// says where they are, and does nothing where there are too few layers. Lengths are pixels of the raster; a place
/// beyond 32 bits ends at the last one.

enum class Direction { Across, Down };
enum class Edge { Near, Middle, Far }; ///< left or top, the middle, right or bottom

/// The selected layers, in the order of the list from the top.
ItemArray selectedLayers(const GXAppDelegate& delegate);

/// Moves an item through its setters, as far as it is not there, and draws it again when its picture says where it is.
/// Whether it was drawn again.
bool moveTo(GXItem& item, PixelPoint point);
/// The smallest rectangle around the layers; empty around none.
PixelRect placeAround(const ItemArray& items);

/// Moves the layers so that one edge, or the middle, of each meets that of a frame: the output, or what is around them.
void alignLayers(GXAppDelegate& delegate, Direction direction, Edge edge, const PixelRect& frame);

/// Leaves the two outermost of at least three layers where they are and makes the gaps between all equal. Pixels that
/// are left over go to the first gaps, one each.
void distributeLayers(GXAppDelegate& delegate, Direction direction);

/// How layers stand in rows, read like text: so many in each row, with gaps between them.
struct Rows {
    std::size_t perRow = 1;
    std::int64_t gapAcross = 0;
    std::int64_t gapDown = 0;
};

/// Places the layers in rows, in the order of the list from the top. The first one stays. A layer stands behind the one
/// before it, and a row below the tallest layer of the row before it.
void placeInRows(GXAppDelegate& delegate, const Rows& rows);

} // namespace wallgrid
