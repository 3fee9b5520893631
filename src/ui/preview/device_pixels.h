// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QTransform>
#include <QWidget>
#include <cmath>

namespace wallgrid {

/// From now on a painter that has just begun on a widget counts device pixels. They begin with the whole one that is
/// nearest to the widget's corner, which need not lie on one where the desktop's scale is broken.
inline void useDevicePixels(QPainter& painter)
{
    const QTransform device = painter.deviceTransform();
    const auto whole = QTransform::fromTranslate(std::round(device.dx()), std::round(device.dy()));
    painter.setWorldTransform(whole * device.inverted());
}

inline QSize sizeInDevicePixels(const QWidget& widget)
{
    return (QSizeF(widget.size()) * widget.devicePixelRatioF()).toSize();
}

} // namespace wallgrid
