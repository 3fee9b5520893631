// SPDX-License-Identifier: MIT
#include "ui/fields/color_button.h"

#include "ui/base/scaled_picture.h"
#include "ui/fields/color_text.h"

#include <QColorDialog>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <cmath>

namespace wallgrid {

namespace {

constexpr int kCheckerSquare = 4;

QString describe(const ColorRef& color)
{
    if (!color)
        return ColorButton::tr("none");
    const QColor shown = toQColor(*color);
    return shown.alpha() == 255
               ? hexText(shown)
               : ColorButton::tr("%1, opacity %2 %").arg(hexText(shown)).arg(std::lround(100 * shown.alphaF()));
}

} // namespace

ColorButton::ColorButton(const QString& title, QWidget* parent)
    : QToolButton(parent)
    , m_title(title)
{
    setAccessibleName(title);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QToolButton::clicked, this, &ColorButton::choose);
    setColor(nullptr);
}

void ColorButton::setColor(const ColorRef& color)
{
    m_color = color;
    setDescription(describe(color));
}

void ColorButton::setMixed()
{
    m_color = nullptr;
    setDescription(tr("mixed"));
}

void ColorButton::setDescription(const QString& description)
{
    setToolTip(tr("%1: %2").arg(m_title, description));
    setAccessibleDescription(description);
    update();
}

QSize ColorButton::sizeHint() const
{
    const int height = fontMetrics().height() + 8;
    return {3 * height / 2, height};
}

void ColorButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ToolButton, option);

    const QRect swatch = rect().adjusted(4, 4, -4, -4);
    if (m_color) {
        paintCheckerboard(painter, swatch, kCheckerSquare);
        QColor shown = toQColor(*m_color);
        if (!isEnabled())
            shown.setAlphaF(shown.alphaF() * 0.3F);
        painter.fillRect(swatch, shown);
    } else {
        painter.fillRect(swatch, palette().base());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::PlaceholderText), 1.5));
        painter.drawLine(swatch.bottomLeft(), swatch.topRight());
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    painter.setPen(palette().color(QPalette::Shadow));
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
}

void ColorButton::choose()
{
    const QColor before = m_color ? toQColor(*m_color) : QColor(Qt::black);
    QColorDialog dialog(this);
    dialog.setWindowTitle(m_title);
    dialog.setOption(QColorDialog::ShowAlphaChannel);
    dialog.setCurrentColor(before); // after the option: without it, alpha is lost
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QColor chosen = dialog.selectedColor();
    if (m_color && chosen.rgba() == before.rgba())
        return;
    setColor(toColor(chosen));
    emit colorChosen(m_color);
}

} // namespace wallgrid
