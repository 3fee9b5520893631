// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"
#include "ui/preview/snapping.h"

#include <QPointF>
#include <cstdint>
#include <optional>
#include <vector>

namespace wallgrid {

/// Items that are being dragged over the raster. Every step goes through their setters. The first of them is the one
/// that the controller renders again by itself.
class ItemDrag {
public:
    /// The targets are what edges snap to: the raster itself, and the items that stay.
    ItemDrag(ItemArray items, std::vector<PixelRect> targets);

    /// Puts the items at a distance from where they started. Without a tolerance nothing snaps.
    void moveTo(QPointF distance, std::optional<std::int64_t> tolerance);
    /// Puts them back.
    void cancel();

    const std::vector<Guide>& guides() const { return m_guides; }

private:
    struct Moved {
        ItemRef item;
        PixelPoint start;
    };

    void apply(PixelPoint distance);

    std::vector<Moved> m_moved;
    std::vector<PixelRect> m_targets;
    PixelRect m_start; // around all of them
    std::vector<Guide> m_guides;
};

/// Moves the items by whole pixels, as a step of a drag does.
void moveItems(const ItemArray& items, PixelPoint distance);

} // namespace wallgrid
