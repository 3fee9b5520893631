// SPDX-License-Identifier: MIT
#include "app/free_place.h"

#include <algorithm>
#include <set>

namespace wallgrid {

std::optional<PixelPoint> freePlace(const PixelRect& size, std::vector<PixelRect> taken, const PixelRect& output)
{
    std::erase_if(taken, [&](const PixelRect& rect) { return intersection(rect, output).empty(); });
    std::sort(taken.begin(), taken.end(), [](const PixelRect& a, const PixelRect& b) { return a.x < b.x; });
    std::set<std::int64_t> tops{output.y};
    for (const PixelRect& rect : taken)
        tops.insert(rect.bottom());
    for (const std::int64_t top : tops) {
        if (top + size.height > output.bottom())
            break;
        std::int64_t left = output.x;
        for (const PixelRect& rect : taken) {
            if (rect.x >= left + size.width)
                break; // there is room in front of this one and all that follow
            if (rect.y < top + size.height && rect.bottom() > top)
                left = std::max(left, rect.right());
        }
        if (left + size.width <= output.right())
            return PixelPoint{left, top};
    }
    return std::nullopt;
}

} // namespace wallgrid
