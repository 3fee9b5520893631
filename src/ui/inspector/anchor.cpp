// SPDX-License-Identifier: MIT
#include "ui/inspector/anchor.h"

namespace wallgrid {

PixelPoint positionAt(Anchor anchor, const PixelRect& item, const PixelRect& output)
{
    const std::int64_t right = output.right() - item.width;
    const std::int64_t bottom = output.bottom() - item.height;
    switch (anchor) {
    case Anchor::TopLeft:
        return output.origin();
    case Anchor::TopRight:
        return {right, output.y};
    case Anchor::Center:
        return {(output.x + right) >> 1, (output.y + bottom) >> 1};
    case Anchor::BottomLeft:
        return {output.x, bottom};
    case Anchor::BottomRight:
        return {right, bottom};
    }
    return {};
}

} // namespace wallgrid
