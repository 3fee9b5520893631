// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/image.h"

#include <QHash>
#include <QImage>
#include <QPoint>

class QPainter;

namespace wallgrid {

/// The raster of an image at a size in device pixels, made tile by tile where it is painted and kept until the image or
/// the size is another: panning makes what comes into view and nothing else. Holding the image and not the raster
/// leaves it to the image's owner to draw on the raster again.
class PictureTiles {
public:
    /// The image may be empty.
    void setPicture(ImageRef image, QSize size);

    /// Paints a part of the picture. The painter counts device pixels from the picture's top-left corner.
    void paint(QPainter& painter, const QRect& part);

private:
    const QImage& tile(const Bitmap& raster, QPoint index);

    ImageRef m_image;
    QSize m_size;
    QHash<QPoint, QImage> m_tiles; // by column and row
};

} // namespace wallgrid
