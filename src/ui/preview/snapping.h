// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/geometry.h"

#include <Qt>
#include <cstdint>
#include <vector>

namespace wallgrid {

/// A line along an edge, or a middle, that something has snapped to, from one end to the other of both.
struct Guide {
    Qt::Orientation orientation;
    std::int64_t at;   ///< the column of an upright line, the row of a level one
    std::int64_t from; ///< along the line
    std::int64_t to;
    bool operator==(const Guide&) const = default;
};

struct Snap {
    PixelPoint distance; ///< to be added to the position
    std::vector<Guide> guides;
    bool operator==(const Snap&) const = default;
};

/// How far a rectangle has to move so that edges of it meet edges of the targets, or its middle the middle of one, that
/// are no further away than the tolerance. Each axis goes to the nearest, of two equally near ones to the one that is
/// left or above. The guides are those of everything that meets then.
Snap snapped(const PixelRect& moving, const std::vector<PixelRect>& targets, std::int64_t tolerance);

} // namespace wallgrid
