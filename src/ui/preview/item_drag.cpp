// SPDX-License-Identifier: MIT
#include "ui/preview/item_drag.h"

#include <cmath>
#include <utility>

namespace wallgrid {

namespace {

/// A picture that says where it is must be drawn again there. The controller does so with the first selected item.
void renderMoved(GXItem& item)
{
    if (item.XYFontEnable())
        item.drawInRect();
}

} // namespace

ItemDrag::ItemDrag(ItemArray items, std::vector<PixelRect> targets)
    : m_targets(std::move(targets))
{
    for (ItemRef& item : items) {
        const PixelRect frame = item->frame();
        m_start = m_moved.empty() ? frame : united(m_start, frame);
        m_moved.push_back({std::move(item), frame.origin()});
    }
}

void ItemDrag::moveTo(QPointF distance, std::optional<std::int64_t> tolerance)
{
    PixelPoint whole{std::llround(distance.x()), std::llround(distance.y())};
    m_guides.clear();
    if (tolerance) {
        Snap snap = snapped(m_start.movedBy(whole), m_targets, *tolerance);
        whole = whole + snap.distance;
        m_guides = std::move(snap.guides);
    }
    apply(whole);
}

void ItemDrag::cancel()
{
    m_guides.clear();
    apply({});
}

void ItemDrag::apply(PixelPoint distance)
{
    for (auto moved = m_moved.rbegin(); moved != m_moved.rend(); ++moved) {
        moved->item->setPosition(moved->start + distance);
        if (moved + 1 != m_moved.rend())
            renderMoved(*moved->item);
    }
}

void moveItems(const ItemArray& items, PixelPoint distance)
{
    ItemDrag(items, {}).moveTo(QPointF(double(distance.x), double(distance.y)), {});
}

} // namespace wallgrid
