// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRectF>

namespace wallgrid {

/// The outline as it fills a frame: the winding number of every point in the frame stays, and no coordinate lies more
/// than a few pixels outside. What runs around the frame becomes lines along its margin, so that filling costs what
/// the frame costs, however large the outline is.
QPainterPath clippedOutline(const QPainterPath& outline, const QRectF& frame);

} // namespace wallgrid
