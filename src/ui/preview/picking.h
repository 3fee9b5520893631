// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <QPointF>
#include <cstddef>
#include <optional>

namespace wallgrid {

/// The row of the topmost visible item at a point of the raster.
std::optional<std::size_t> itemAt(const ItemArray& items, QPointF point);

/// The next one below a row, at the same point; after the lowest comes the topmost again.
std::optional<std::size_t> itemBelow(const ItemArray& items, QPointF point, std::size_t row);

} // namespace wallgrid
