// SPDX-License-Identifier: MIT
#pragma once

#include "app/arrangement.h"

#include <QIcon>
#include <QPalette>

namespace wallgrid {

/// Pictures of commands, in the colours of a palette, for displays of a pixel ratio.
QIcon alignIcon(Direction direction, Edge edge, const QPalette& palette, qreal ratio);
QIcon distributeIcon(Direction direction, const QPalette& palette, qreal ratio);
QIcon rowsIcon(const QPalette& palette, qreal ratio);
/// A window, and a display on its foot.
QIcon windowIcon(const QPalette& palette, qreal ratio);
QIcon displayIcon(const QPalette& palette, qreal ratio);

} // namespace wallgrid
