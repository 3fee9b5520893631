// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <cstdint>

namespace wallgrid {

/// A rectangle of raster pixels, y downwards; right and bottom are the first pixels outside. 64 bits wide, so that
/// sums of an item's 32-bit fields cannot overflow.
struct Box {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;

    bool operator==(const Box&) const = default;

    Box movedBy(std::int64_t x, std::int64_t y) const { return {left + x, top + y, right + x, bottom + y}; }
};

/// What the item covers, as of its last render.
inline Box boxOf(const GXItem& item)
{
    const std::int64_t x = item.xpoint();
    const std::int64_t y = item.ypoint();
    return {x, y, x + item.screenSizeWidth(), y + item.screenSizeHeight()};
}

} // namespace wallgrid
