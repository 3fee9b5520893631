// SPDX-License-Identifier: MIT
#include "ui/preview/zoom_view.h"

#include "ui/base/scaled_picture.h"
#include "ui/preview/device_pixels.h"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>
#include <utility>

namespace wallgrid {

namespace {

// In points.
constexpr int kMargin = 12;
constexpr int kCheckerSquare = 8;
constexpr int kWheelStep = 60;

} // namespace

ZoomView::ZoomView(QWidget* parent)
    : QWidget(parent)
{
    setBackgroundRole(QPalette::Mid);
    setAutoFillBackground(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void ZoomView::setImage(ImageRef image)
{
    m_image = std::move(image);
    if (m_image) {
        const BitmapRef raster = m_image->firstRepresentation();
        m_viewport.setRaster(raster ? QSize(raster->width(), raster->height()) : QSize());
    }
    m_tiles.setPicture(nullptr, {});
    update();
    emit pictureChanged();
}

QString ZoomView::scaleText() const
{
    if (!m_image || m_viewport.raster().isEmpty())
        return {};
    const double percent = 100 * m_viewport.scale();
    return tr("%1 %").arg(percent, 0, 'f', percent < 9.95 ? 1 : 0);
}

void ZoomView::measure()
{
    m_viewport.setView(sizeInDevicePixels(*this), qRound(kMargin * devicePixelRatioF()));
}

void ZoomView::showView()
{
    update();
    emit viewChanged();
}

void ZoomView::fit()
{
    m_viewport.fit(everything());
    showView();
}

void ZoomView::zoomTo(double scale)
{
    m_viewport.zoomTo(scale, m_viewport.center());
    if (const PixelRect selected = selection(); !selected.empty())
        m_viewport.centerOn(selected);
    showView();
}

bool ZoomView::zoomToSelection()
{
    const PixelRect selected = selection();
    if (selected.empty())
        return false;
    m_viewport.show(selected);
    showView();
    return true;
}

void ZoomView::zoomIn()
{
    m_viewport.zoomIn(m_viewport.center());
    showView();
}

void ZoomView::zoomOut()
{
    m_viewport.zoomOut(m_viewport.center());
    showView();
}

void ZoomView::resizeEvent(QResizeEvent*)
{
    measure();
    showView();
}

void ZoomView::paintEvent(QPaintEvent*)
{
    measure(); // the display may have become another one
    QPainter painter(this);
    useDevicePixels(painter);
    const QRect visible = m_viewport.visiblePicture();
    if (m_image && !visible.isEmpty()) {
        const QPoint origin = m_viewport.picture().topLeft();
        m_tiles.setPicture(m_image, m_viewport.picture().size());
        painter.save();
        painter.setClipRect(visible);
        paintCheckerboard(painter, visible, qRound(kCheckerSquare * devicePixelRatioF()));
        painter.translate(origin);
        m_tiles.paint(painter, visible.translated(-origin));
        painter.restore();
    }
    paintOver(painter);
}

void ZoomView::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const double ratio = devicePixelRatioF();
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QPointF distance = event->pixelDelta();
        if (distance.isNull())
            distance = QPointF(event->angleDelta()) * kWheelStep / QWheelEvent::DefaultDeltasPerStep;
        if (event->modifiers().testFlag(Qt::ShiftModifier))
            distance = distance.transposed();
        m_viewport.pan((distance * ratio).toPoint());
    } else {
        m_wheelAngle += event->angleDelta().y();
        const QPointF about = event->position() * ratio;
        for (; m_wheelAngle >= QWheelEvent::DefaultDeltasPerStep; m_wheelAngle -= QWheelEvent::DefaultDeltasPerStep)
            m_viewport.zoomIn(about);
        for (; m_wheelAngle <= -QWheelEvent::DefaultDeltasPerStep; m_wheelAngle += QWheelEvent::DefaultDeltasPerStep)
            m_viewport.zoomOut(about);
    }
    showView();
}

void ZoomView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::MiddleButton && !(event->button() == Qt::LeftButton && m_panKey))
        return;
    m_panFrom = (event->position() * devicePixelRatioF()).toPoint();
    showCursor();
}

void ZoomView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panFrom && event->buttons() == Qt::NoButton) { // another window got the release
        m_panFrom.reset();
        showCursor();
    }
    if (m_panFrom) {
        const QPoint to = (event->position() * devicePixelRatioF()).toPoint();
        m_viewport.pan(to - *std::exchange(m_panFrom, to));
        showView();
    }
    const QPointF point = toRaster(event->position());
    emit pointerMoved(QPoint(static_cast<int>(std::floor(point.x())), static_cast<int>(std::floor(point.y()))));
}

void ZoomView::mouseReleaseEvent(QMouseEvent*)
{
    m_panFrom.reset();
    showCursor();
}

void ZoomView::leaveEvent(QEvent*)
{
    emit pointerMoved({});
}

void ZoomView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) {
        QWidget::keyPressEvent(event);
        return;
    }
    m_panKey = true;
    showCursor();
}

void ZoomView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat())
        return;
    m_panKey = false;
    showCursor();
}

void ZoomView::focusOutEvent(QFocusEvent* event)
{
    m_panKey = false;
    showCursor();
    QWidget::focusOutEvent(event);
}

void ZoomView::showCursor()
{
    setCursor(m_panFrom ? Qt::ClosedHandCursor : m_panKey ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

} // namespace wallgrid
