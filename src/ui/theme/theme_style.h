// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace wallgrid {

/// Fusion with check boxes that can be seen in front of dark greys, ticked or not.
class ThemeStyle final : public QProxyStyle {
    Q_OBJECT

public:
    ThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace wallgrid
