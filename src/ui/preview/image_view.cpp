// SPDX-License-Identifier: MIT
#include "ui/preview/image_view.h"

#include "ui/base/scaled_picture.h"

#include <QPainter>
#include <QResizeEvent>
#include <cmath>
#include <utility>

namespace wallgrid {

namespace {

constexpr int kCheckerSquare = 8;

QRect toQtGeometry(const Rect& frame, int containerHeight)
{
    const auto whole = [](double length) { return static_cast<int>(std::lround(length)); };
    return {whole(frame.origin.x), containerHeight - whole(frame.origin.y) - whole(frame.size.height),
            whole(frame.size.width), whole(frame.size.height)};
}

} // namespace

ImageViewWidget::ImageViewWidget(QWidget* parent)
    : QWidget(parent)
{
    setBackgroundRole(QPalette::Mid);
    setAutoFillBackground(true);
}

void ImageViewWidget::setImage(ImageRef image)
{
    m_image = std::move(image);
    m_scaled = {};
    update();
    emit pictureChanged();
}

void ImageViewWidget::setFrameSize(Size size)
{
    if (m_frame)
        setFrame({m_frame->origin, size});
}

void ImageViewWidget::setFrame(const Rect& frame)
{
    if (!m_frame)
        parentWidget()->installEventFilter(this);
    m_frame = frame;
    layOut();
}

void ImageViewWidget::layOut()
{
    setGeometry(toQtGeometry(*m_frame, parentWidget()->height()));
}

bool ImageViewWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        const auto* resize = static_cast<QResizeEvent*>(event);
        if (m_followsContainer && resize->oldSize().isValid()) {
            m_frame->size.width += resize->size().width() - resize->oldSize().width();
            m_frame->size.height += resize->size().height() - resize->oldSize().height();
        }
        layOut();
    }
    return QWidget::eventFilter(watched, event);
}

QRect ImageViewWidget::pictureRect() const
{
    if (!m_image)
        return {};
    const QRect room = parentWidget() ? contentsRect() & parentWidget()->rect().translated(-pos()) : contentsRect();
    QRect picture({}, fittedSize(m_image->size(), room.size()));
    picture.moveCenter(room.center());
    return picture;
}

QString ImageViewWidget::scaleText() const
{
    const QRect picture = pictureRect();
    if (picture.isEmpty() || !m_image->firstRepresentation())
        return {};
    const double percent = 100 * picture.width() * devicePixelRatioF() / m_image->size().width;
    return tr("%1 %").arg(percent, 0, 'f', percent < 10 ? 1 : 0);
}

void ImageViewWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    emit pictureChanged();
}

const QImage& ImageViewWidget::scaled(QSize size)
{
    if (m_scaled.isNull() || m_scaled.size() != size)
        m_scaled = scaledPicture(*m_image->firstRepresentation(), size);
    return m_scaled;
}

void ImageViewWidget::paintEvent(QPaintEvent*)
{
    const QRect target = pictureRect();
    if (target.isEmpty() || !m_image->firstRepresentation())
        return;
    QPainter painter(this);
    paintCheckerboard(painter, target, kCheckerSquare);
    painter.drawImage(target, scaled((target.size().toSizeF() * devicePixelRatioF()).toSize()));
}

} // namespace wallgrid
