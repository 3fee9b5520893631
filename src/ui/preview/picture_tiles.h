// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"

#include <QHash>
#include <QImage>
#include <QPoint>

class QPainter;

namespace wallgrid {

/// A bitmap at a size in device pixels, made tile by tile where it is painted and kept until the bitmap or the size is
/// another: panning makes what comes into view and nothing else.
class PictureTiles {
public:
    /// The bitmap may be empty.
    void setPicture(BitmapRef bitmap, QSize size);

    /// Paints a part of the picture. The painter counts device pixels from the picture's top-left corner.
    void paint(QPainter& painter, const QRect& part);

private:
    const QImage& tile(QPoint index);

    BitmapRef m_bitmap;
    QSize m_size;
    QHash<QPoint, QImage> m_tiles; // by column and row
};

} // namespace wallgrid
