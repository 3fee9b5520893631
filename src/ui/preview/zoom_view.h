// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/views.h"
#include "ui/preview/picture_tiles.h"
#include "ui/preview/viewport.h"

#include <QWidget>
#include <optional>

namespace wallgrid {

/// Shows the output raster on a neutral surround, a checkerboard behind its transparent parts, at a scale and a place
/// that the user chooses. The wheel pans, with Ctrl it zooms about the pointer; the middle button, or the left one
/// while the space bar is down, drags the picture. Where the view sits is its layout's matter.
class ZoomView : public QWidget, public ImageView {
    Q_OBJECT

public:
    explicit ZoomView(QWidget* parent = nullptr);

    void setImage(ImageRef image) override;
    void setFrameSize(Size) override {}
    void setFollowsContainer() override {}

    const ImageRef& image() const { return m_image; }
    const Viewport& viewport() const { return m_viewport; }
    /// "33 %", in pixels of the display; empty without a picture.
    QString scaleText() const;

    /// Shows all there is to see.
    void fit();
    /// Keeps what is selected in the middle, or what is there already.
    void zoomTo(double scale);
    /// False when nothing is selected.
    bool zoomToSelection();
    // About the middle of the view.
    void zoomIn();
    void zoomOut();

signals:
    /// Another image, or none.
    void pictureChanged();
    /// Another scale, or another place.
    void viewChanged();
    /// The pixel of the raster that the pointer is at, which may lie outside; nothing when it leaves the view.
    void pointerMoved(std::optional<QPoint> pixel);

protected:
    /// Around what lies beside the raster as well.
    virtual PixelRect everything() const { return {}; }
    /// Around what is selected; empty when nothing is.
    virtual PixelRect selection() const { return {}; }
    /// Paints over the picture, in device pixels of the view.
    virtual void paintOver(QPainter&) {}

    QPointF toRaster(QPointF position) const { return m_viewport.toRaster(position * devicePixelRatioF()); }
    bool isPanning() const { return m_panFrom.has_value(); }

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void measure();
    void showView();
    void showCursor();

    ImageRef m_image;
    Viewport m_viewport;
    PictureTiles m_tiles;
    int m_wheelAngle = 0; // turned towards the next step
    bool m_panKey = false;
    std::optional<QPoint> m_panFrom; // in device pixels, while the picture is dragged
};

} // namespace wallgrid
