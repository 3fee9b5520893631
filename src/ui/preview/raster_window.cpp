// SPDX-License-Identifier: MIT
#include "ui/preview/raster_window.h"

#include "ui/base/scaled_picture.h"
#include "ui/preview/device_pixels.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>
#include <utility>

namespace wallgrid {

RasterWindow::RasterWindow()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
{
    setWindowTitle(tr("Output Preview"));
    setAccessibleName(tr("Output Preview"));
    setCursor(Qt::BlankCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void RasterWindow::setImage(ImageRef image)
{
    m_image = std::move(image);
    update();
}

void RasterWindow::showOn(QScreen& screen)
{
    if (isVisible() && this->screen() != &screen)
        hide(); // a window manager may keep a full-screen window where it is
    winId();    // so that there is a window to be put on the screen
    windowHandle()->setScreen(&screen);
    setGeometry(screen.geometry());
    showFullScreen();
    raise();
    activateWindow();
}

void RasterWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    useDevicePixels(painter);
    // A row more than may be needed, where the desktop's scale leaves a broken one.
    const QRect all(QPoint(), sizeInDevicePixels(*this) + QSize(1, 1));
    painter.fillRect(all, Qt::black);
    const BitmapRef raster = m_image ? m_image->firstRepresentation() : nullptr;
    if (!raster)
        return;
    const QSize size(raster->width(), raster->height());
    painter.drawImage(0, 0, scaledPart(*raster, size, all & QRect({}, size)));
}

void RasterWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F || event->key() == Qt::Key_F11)
        emit leaveWanted();
    else
        QWidget::keyPressEvent(event);
}

void RasterWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    emit leaveWanted();
}

} // namespace wallgrid
