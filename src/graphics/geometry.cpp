// SPDX-License-Identifier: MIT
#include "graphics/geometry.h"

#include <algorithm>

namespace wallgrid {

PixelRect intersection(const PixelRect& a, const PixelRect& b)
{
    const std::int64_t x = std::max(a.x, b.x);
    const std::int64_t y = std::max(a.y, b.y);
    return {x, y, std::min(a.right(), b.right()) - x, std::min(a.bottom(), b.bottom()) - y};
}

PixelRect united(const PixelRect& a, const PixelRect& b)
{
    const std::int64_t x = std::min(a.x, b.x);
    const std::int64_t y = std::min(a.y, b.y);
    return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

} // namespace wallgrid
