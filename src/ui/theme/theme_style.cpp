// SPDX-License-Identifier: MIT
#include "ui/theme/theme_style.h"

#include <QPainter>
#include <QStyleOption>

namespace wallgrid {

ThemeStyle::ThemeStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox && element != PE_IndicatorItemViewItemCheck)
        return;
    const bool focused = option->state & State_HasFocus && option->state & State_KeyboardFocusChange;
    painter->save();
    painter->setPen(option->palette.color(focused ? QPalette::Highlight : QPalette::PlaceholderText));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

} // namespace wallgrid
