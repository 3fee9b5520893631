// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <QColor>
#include <QString>
#include <optional>

namespace wallgrid {

/// What the screen shows of a colour, eight bits a component.
QColor toQColor(const Color& color);
ColorRef toColor(const QColor& color);

/// "#RRGGBB", and "#RRGGBBAA" of a colour that is not opaque.
QString hexText(const QColor& color);
/// The colour of such a text, in letters of either case, also without the "#".
std::optional<QColor> colorOfHexText(const QString& text);
/// The colour of such a text, of "#RGB" or of a name of CSS and SVG, such as "navy".
std::optional<QColor> colorOfText(const QString& text);

} // namespace wallgrid
