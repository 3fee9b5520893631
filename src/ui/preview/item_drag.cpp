// SPDX-License-Identifier: MIT
#include "ui/preview/item_drag.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace wallgrid {

namespace {

std::int32_t toPosition(std::int64_t value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

void place(GXItem& item, std::int64_t x, std::int64_t y)
{
    if (item.xpoint() != toPosition(x))
        item.setXpoint(toPosition(x));
    if (item.ypoint() != toPosition(y))
        item.setYpoint(toPosition(y));
}

/// A picture that says where it is must be drawn again there. The controller does so with the first selected item.
void renderMoved(GXItem& item)
{
    if (item.XYFontEnable())
        item.drawInRect();
}

Box united(const Box& a, const Box& b)
{
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

} // namespace

ItemDrag::ItemDrag(ItemArray items, std::vector<Box> targets)
    : m_targets(std::move(targets))
{
    for (ItemRef& item : items) {
        const Box box = boxOf(*item);
        m_start = m_moved.empty() ? box : united(m_start, box);
        m_moved.push_back({std::move(item), box.left, box.top});
    }
}

void ItemDrag::moveTo(QPointF distance, std::optional<std::int64_t> tolerance)
{
    std::int64_t x = std::llround(distance.x());
    std::int64_t y = std::llround(distance.y());
    m_guides.clear();
    if (tolerance) {
        Snap snap = snapped(m_start.movedBy(x, y), m_targets, *tolerance);
        x += snap.x;
        y += snap.y;
        m_guides = std::move(snap.guides);
    }
    apply(x, y);
}

void ItemDrag::cancel()
{
    m_guides.clear();
    apply(0, 0);
}

void ItemDrag::apply(std::int64_t x, std::int64_t y)
{
    for (auto moved = m_moved.rbegin(); moved != m_moved.rend(); ++moved) {
        place(*moved->item, moved->x + x, moved->y + y);
        if (moved + 1 != m_moved.rend())
            renderMoved(*moved->item);
    }
}

void moveItems(const ItemArray& items, std::int64_t x, std::int64_t y)
{
    ItemDrag(items, {}).moveTo(QPointF(double(x), double(y)), {});
}

} // namespace wallgrid
