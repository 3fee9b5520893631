// SPDX-License-Identifier: MIT
#include "ui/inspector/align_buttons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

namespace wallgrid {

namespace {

/// The output as a frame, the item as a block in it.
QIcon anchorIcon(Anchor anchor, const QPalette& palette, qreal ratio)
{
    constexpr QRect kOutput(0, 0, 19, 15);
    constexpr PixelRect kInside{2, 2, 16, 12};
    constexpr PixelRect kItem{0, 0, 7, 5};
    QIcon icon;
    for (const auto group : {QPalette::Active, QPalette::Disabled}) {
        QPixmap pixmap(QSize(20, 16) * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        const QColor color = palette.color(group, QPalette::ButtonText);
        painter.setPen(color);
        painter.drawRect(kOutput);
        const PixelPoint place = positionAt(anchor, kItem, kInside);
        painter.fillRect(QRectF(double(place.x), double(place.y), kItem.width, kItem.height), color);
        painter.end();
        icon.addPixmap(pixmap, group == QPalette::Active ? QIcon::Normal : QIcon::Disabled);
    }
    return icon;
}

} // namespace

AlignButtons::AlignButtons(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(3);
    for (const Anchor anchor : kAnchors) {
        auto* button = new QToolButton(this);
        button->setIconSize({20, 16});
        button->setFocusPolicy(Qt::StrongFocus);
        button->setToolTip(tr("Align: %1").arg(anchorName(anchor)));
        button->setAccessibleName(tr("Align: %1").arg(anchorName(anchor)));
        connect(button, &QToolButton::clicked, this, [this, anchor] { emit alignRequested(anchor); });
        layout->addWidget(button);
        m_buttons.push_back(button);
        if (!focusProxy())
            setFocusProxy(button);
    }
    setFocusPolicy(Qt::StrongFocus); // a label's letter goes nowhere without
    layout->addStretch();
    drawIcons();
}

void AlignButtons::drawIcons()
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setIcon(anchorIcon(kAnchors[i], palette(), devicePixelRatioF()));
}

void AlignButtons::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        drawIcons();
}

QString AlignButtons::anchorName(Anchor anchor)
{
    switch (anchor) {
    case Anchor::TopLeft:
        return tr("Top left");
    case Anchor::TopRight:
        return tr("Top right");
    case Anchor::Center:
        return tr("Centre");
    case Anchor::BottomLeft:
        return tr("Bottom left");
    case Anchor::BottomRight:
        return tr("Bottom right");
    }
    return {};
}

} // namespace wallgrid
