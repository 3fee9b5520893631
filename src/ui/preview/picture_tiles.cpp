// SPDX-License-Identifier: MIT
#include "ui/preview/picture_tiles.h"

#include "ui/base/scaled_picture.h"

#include <QPainter>
#include <utility>

namespace wallgrid {

namespace {

constexpr int kSide = 256;
/// Twice what a display of 3840 × 2160 shows; 100 MB. More is given up, whatever of it is in view.
constexpr int kMostTiles = 400;

} // namespace

void PictureTiles::setPicture(ImageRef image, QSize size)
{
    if (image == m_image && size == m_size)
        return;
    m_image = std::move(image);
    m_size = size;
    m_tiles.clear();
}

void PictureTiles::paint(QPainter& painter, const QRect& part)
{
    const QRect painted = part & QRect({}, m_size);
    const BitmapRef raster = m_image ? m_image->firstRepresentation() : nullptr;
    if (!raster || painted.isEmpty())
        return;
    const QRect tiles(QPoint(painted.left() / kSide, painted.top() / kSide),
                      QPoint(painted.right() / kSide, painted.bottom() / kSide));
    if (m_tiles.size() > kMostTiles)
        m_tiles.clear();
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column)
            painter.drawImage(kSide * QPoint(column, row), tile(*raster, {column, row}));
    }
}

const QImage& PictureTiles::tile(const Bitmap& raster, QPoint index)
{
    QImage& image = m_tiles[index];
    if (image.isNull()) {
        const QRect part(kSide * index, QSize(kSide, kSide));
        image = scaledPart(raster, m_size, part & QRect({}, m_size));
    }
    return image;
}

} // namespace wallgrid
