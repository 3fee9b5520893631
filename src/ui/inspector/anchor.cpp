// SPDX-License-Identifier: MIT
#include "ui/inspector/anchor.h"

#include <algorithm>
#include <limits>

namespace wallgrid {

namespace {

std::int32_t toPosition(std::int64_t value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

} // namespace

Position positionAt(Anchor anchor, Extent item, Extent output)
{
    const std::int64_t right = std::int64_t{output.width} - item.width;
    const std::int64_t bottom = std::int64_t{output.height} - item.height;
    switch (anchor) {
    case Anchor::TopLeft:
        return {0, 0};
    case Anchor::TopRight:
        return {toPosition(right), 0};
    case Anchor::Center:
        return {toPosition(right >> 1), toPosition(bottom >> 1)};
    case Anchor::BottomLeft:
        return {0, toPosition(bottom)};
    case Anchor::BottomRight:
        return {toPosition(right), toPosition(bottom)};
    }
    return {};
}

} // namespace wallgrid
