// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <cstddef>
#include <cstdint>
#include <set>

namespace wallgrid {

/// Which visible layers of a list cover pixels of each other, by their places as of their last render.
struct Overlaps {
    std::int64_t pairs = 0;
    std::set<std::size_t> rows; ///< of the layers in these pairs
};

/// Takes n log n steps for n layers, however many of them overlap.
Overlaps findOverlaps(const ItemArray& layers);

} // namespace wallgrid
