// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

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

struct Extent {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

struct Position {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const Position&) const = default;
};

/// The top-left corner of an item that sits at the anchor. Of an odd remainder, the larger half is to the right and
/// below; a result that no 32-bit position can hold is the nearest that one can.
Position positionAt(Anchor anchor, Extent item, Extent output);

} // namespace wallgrid
