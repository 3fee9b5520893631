// SPDX-License-Identifier: MIT
#pragma once

#include "ui/preview/snapping.h"
#include "ui/preview/viewport.h"

class QBrush;
class QPainter;
class QString;

namespace wallgrid {

/// Draws over the picture what belongs to the editor: outlines of items, guides, and what is said about them. In
/// device pixels of the view, and in the same colours in every palette, because it has to stand out from the picture.
class Overlay {
public:
    enum class Outline {
        Hovered,
        Selected,
        SelectedInvisible, ///< dashed: nothing of it is in the picture
    };

    /// The ratio is that of the display.
    Overlay(QPainter& painter, const Viewport& viewport, const QRect& view, double ratio);

    /// Around the item's pixels, on none of them.
    void paintOutline(const PixelRect& frame, Outline outline);
    void paintGuide(const Guide& guide);
    /// A line of text at a box, in the view even where the box is not.
    void paintTag(const PixelRect& frame, const QString& text);

private:
    /// In the view, and cut off a little way outside of it, so that no number is too large to be drawn.
    QRect visibleRect(const PixelRect& pixels) const;
    void paintFrame(const QRect& inner, int width, const QBrush& brush);

    QPainter& m_painter;
    const Viewport& m_viewport;
    QRect m_view;
    double m_ratio;
    int m_line; // the width of a thin line
};

} // namespace wallgrid
