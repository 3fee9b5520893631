// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"

#include <cstddef>
#include <cstdint>

namespace wallgrid {

/// Commands that copy the selected layers. A copy has the next number in its name (see RunningNames). The copies are
/// selected afterwards. A command that runs out of memory has changed nothing.

/// Puts a copy of each selected layer in front of them all, to the right of what is around them. Where the output ends
/// there and has room below, the copies stand below.
void duplicateLayers(GXAppDelegate& delegate);

/// How often the selected layers stand side by side and on top of each other, themselves included, with gaps in pixels.
struct ArrayLayout {
    static constexpr std::size_t kMostCopies = 10'000;

    std::size_t across = 1;
    std::size_t down = 1;
    std::int64_t gapAcross = 0;
    std::int64_t gapDown = 0;
};

/// Makes an array of the selected layers, which become its top left corner. The list then names it from the top like
/// text: row by row. All of it is selected. Does nothing for a layout without copies or with more than kMostCopies.
void makeArray(GXAppDelegate& delegate, const ArrayLayout& layout);

/// Puts items that came from the clipboard in front of the selected layers, where they stood when they were copied.
/// Where one would cover a layer of the same place exactly, all stand beside it as duplicates do.
void pasteLayers(GXAppDelegate& delegate, const ItemArray& items);

} // namespace wallgrid
