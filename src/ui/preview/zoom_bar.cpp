// SPDX-License-Identifier: MIT
#include "ui/preview/zoom_bar.h"

#include "ui/preview/zoom_view.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace wallgrid {

ZoomBar::ZoomBar(ZoomView& view, QWidget* parent)
    : QWidget(parent)
    , m_view(view)
    , m_pixel(new QLabel(this))
    , m_scale(new QLabel(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 4, 0);
    layout->setSpacing(2);
    m_pixel->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000, 00000  ")));
    m_pixel->setAccessibleName(tr("Pixel under the pointer"));
    layout->addWidget(m_pixel);
    addButton(tr("&Zoom Out"), tr("−"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [](ZoomView& v) { v.zoomOut(); });
    m_scale->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("3200 %  ")));
    m_scale->setAlignment(Qt::AlignCenter);
    m_scale->setAccessibleName(tr("Scale of the preview"));
    layout->addWidget(m_scale);
    addButton(tr("Zoom &In"), tr("+"), {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
              [](ZoomView& v) { v.zoomIn(); });
    addButton(tr("Show A&ll"), tr("All"), {QKeySequence(Qt::CTRL | Qt::Key_0)}, [](ZoomView& v) { v.fit(); });
    addButton(tr("&Actual Pixels"), tr("1:1"), {QKeySequence(Qt::CTRL | Qt::Key_1)}, [](ZoomView& v) { v.zoomTo(1); });

    connect(&view, &ZoomView::pictureChanged, this, &ZoomBar::showScale);
    connect(&view, &ZoomView::viewChanged, this, &ZoomBar::showScale);
    connect(&view, &ZoomView::pointerMoved, m_pixel, [this](std::optional<QPoint> pixel) {
        m_pixel->setText(pixel ? tr("%1, %2").arg(pixel->x()).arg(pixel->y()) : QString());
    });
    showScale();
}

void ZoomBar::addButton(const QString& text, const QString& sign, const QList<QKeySequence>& shortcuts,
                        void (*change)(ZoomView&))
{
    auto* action = new QAction(text, this);
    action->setIconText(sign);
    action->setShortcuts(shortcuts);
    connect(action, &QAction::triggered, this, [this, change] { change(m_view); });
    addAction(action);
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setAccessibleName(action->toolTip());
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    layout()->addWidget(button);
}

void ZoomBar::showScale()
{
    const QString scale = m_view.scaleText();
    m_scale->setText(scale.isEmpty() ? tr("–") : scale);
}

} // namespace wallgrid
