// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/geometry.h"

#include <QPoint>
#include <QRect>
#include <QSize>

namespace wallgrid {

/// Where the raster lies in a view and how large it is shown. The view's side is counted in device pixels, so that at
/// 100 % one pixel of the raster is one pixel of the display, whatever the desktop's scale.
///
/// At first the raster is fitted: all of it is shown in the middle, reduced where it has to be, and it stays so when
/// the view or the raster changes its size. Zooming and panning end that.
///
/// Places beside the raster can be shown, too. Some of the raster, or of what was shown last, always stays in the view.
class Viewport {
public:
    void setRaster(QSize size);
    /// The margin is what a fitted raster leaves free on each side.
    void setView(QSize size, int margin);
    QSize raster() const { return m_raster; }

    void fit() { fit({}); }
    /// Fits the raster together with what lies beside it.
    void fit(const PixelRect& beside);
    /// Shows a part of the raster, or of what lies beside it, in the middle and as large as it fits.
    void show(const PixelRect& part);
    void centerOn(const PixelRect& part);
    /// Device pixels for each pixel of the raster.
    double scale() const { return m_scale; }
    /// The point of the raster that is at a point of the view stays there. The scale is kept within what makes sense.
    void zoomTo(double scale, QPointF about);
    /// To the next of the usual scales; all from 100 % up are whole, so that every pixel is equally large.
    void zoomIn(QPointF about);
    void zoomOut(QPointF about);
    void pan(QPoint distance);

    /// All of the raster, in the view.
    QRect picture() const { return {m_origin.toPoint(), m_picture}; }
    /// The part of picture() that the view shows.
    QRect visiblePicture() const { return picture() & QRect({}, m_view); }
    QPointF center() const { return {m_view.width() / 2.0, m_view.height() / 2.0}; }

    QPointF toRaster(QPointF point) const;
    /// On edges of device pixels, exactly around the pixels that stand for those of the rectangle.
    QRectF toView(const PixelRect& rect) const;

private:
    double scaleFor(const PixelRect& part) const;
    void setScale(double scale);
    /// A part of the raster, as a part of the picture.
    QRectF scaled(const PixelRect& part) const;
    QPointF originToCenter(const PixelRect& part) const;
    void moveTo(QPointF origin);

    QSize m_raster;
    PixelRect m_reach; // what can be panned to: the raster, and what is shown beside it
    QSize m_view;
    int m_margin = 0;
    bool m_fitted = true;
    double m_scale = 1;
    QSize m_picture;  // the raster's size times the scale, in whole pixels
    QPointF m_origin; // of the picture, before rounding: zooming in and out again must lead back
};

} // namespace wallgrid
