// SPDX-License-Identifier: MIT
#include "ui/preview/picking.h"

namespace wallgrid {

namespace {

bool isAt(const GXItem& item, QPointF point)
{
    const PixelRect frame = item.frame();
    return item.visible() && point.x() >= double(frame.x) && point.x() < double(frame.right()) &&
           point.y() >= double(frame.y) && point.y() < double(frame.bottom());
}

std::optional<std::size_t> firstAt(const ItemArray& items, QPointF point, std::size_t from)
{
    for (std::size_t row = from; row < items.size(); ++row) {
        if (isAt(*items[row], point))
            return row;
    }
    return {};
}

} // namespace

std::optional<std::size_t> itemAt(const ItemArray& items, QPointF point)
{
    return firstAt(items, point, 0);
}

std::optional<std::size_t> itemBelow(const ItemArray& items, QPointF point, std::size_t row)
{
    const auto below = firstAt(items, point, row + 1);
    return below ? below : itemAt(items, point);
}

} // namespace wallgrid
