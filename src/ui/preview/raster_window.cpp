// SPDX-License-Identifier: MIT
#include "ui/preview/raster_window.h"

#include "ui/base/scaled_picture.h"
#include "ui/preview/device_pixels.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

namespace wallgrid {

namespace {

constexpr std::chrono::seconds kNoteTime{6};

// In points.
constexpr int kNoteMargin = 24;
constexpr int kNotePadding = 12;
constexpr int kWidestNote = 720;

} // namespace

RasterWindow::RasterWindow()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
    , m_note(new QLabel(this))
    , m_noteTime(this)
{
    QPalette colors;
    colors.setColor(QPalette::Window, Qt::black);
    colors.setColor(QPalette::WindowText, Qt::white);
    m_note->setPalette(colors);
    m_note->setAutoFillBackground(true);
    m_note->setMargin(kNotePadding);
    m_note->setAlignment(Qt::AlignCenter);
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    m_note->hide();
    m_noteTime.setSingleShot(true);
    connect(&m_noteTime, &QTimer::timeout, m_note, &QWidget::hide);
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

void RasterWindow::showOn(QScreen& screen, Keyboard keyboard)
{
    if (isVisible() && this->screen() != &screen)
        hide(); // a window manager may keep a full-screen window where it is
    setAttribute(Qt::WA_ShowWithoutActivating, keyboard == Keyboard::Leave);
    if (!isVisible())
        destroy(); // only a window that is made anew heeds this
    winId();       // so that there is a window to be put on the screen
    windowHandle()->setScreen(&screen);
    setGeometry(screen.geometry());
    setWindowState(Qt::WindowFullScreen); // showFullScreen() takes the keyboard
    show();
    raise();
    if (keyboard == Keyboard::Take)
        activateWindow();
}

void RasterWindow::showNote(const QString& text)
{
    m_note->setText(text);
    m_note->setVisible(!text.isEmpty());
    m_noteTime.start(kNoteTime);
    placeNote();
}

void RasterWindow::placeNote()
{
    m_note->setFixedWidth(std::clamp(width() - 2 * kNoteMargin, 0, kWidestNote));
    m_note->setFixedHeight(m_note->heightForWidth(m_note->width()));
    m_note->move((width() - m_note->width()) / 2, height() - m_note->height() - kNoteMargin);
}

void RasterWindow::resizeEvent(QResizeEvent*)
{
    placeNote();
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
