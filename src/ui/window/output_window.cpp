// SPDX-License-Identifier: MIT
#include "ui/window/output_window.h"

#include "ui/preview/image_view.h"

#include <QLabel>
#include <QScreen>
#include <cmath>

namespace wallgrid {

OutputWindow::OutputWindow()
    : m_caption(new QLabel(this))
{
    setWindowTitle(tr("Output"));
    m_caption->setAlignment(Qt::AlignCenter);
}

void OutputWindow::setFrame(const Rect& frame)
{
    const QSize size(static_cast<int>(std::lround(frame.size.width)), static_cast<int>(std::lround(frame.size.height)));
    const QRect available = screen()->availableGeometry();
    resize(size);
    move(available.left() + static_cast<int>(std::lround(frame.origin.x)),
         available.bottom() + 1 - static_cast<int>(std::lround(frame.origin.y)) - size.height());
}

ImageView* OutputWindow::addImageView(const Rect& frame)
{
    m_view = new ImageViewWidget(this);
    m_view->setAccessibleName(tr("Output preview"));
    m_view->setFrame(frame);
    m_view->show();
    connect(m_view, &ImageViewWidget::pictureChanged, this, &OutputWindow::describe);
    return m_view;
}

void OutputWindow::show()
{
    QWidget::show();
    raise();
    activateWindow();
}

void OutputWindow::describe()
{
    m_caption->setGeometry(0, 0, width(), std::max(0, m_view->y()));
    const QString scale = m_view->scaleText();
    if (scale.isEmpty()) {
        m_caption->setText(tr("no output"));
        return;
    }
    const Size size = m_view->image()->size();
    m_caption->setText(
        tr("%1 × %2 px, shown at %3").arg(std::lround(size.width)).arg(std::lround(size.height)).arg(scale));
}

void OutputWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    emit shownChanged(true);
}

void OutputWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    emit shownChanged(false);
}

} // namespace wallgrid
