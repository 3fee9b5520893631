// SPDX-License-Identifier: MIT
#include "ui/fields/color_text.h"

#include <QRegularExpression>

namespace wallgrid {

QColor toQColor(const Color& color)
{
    const Color::RGBA c = color.rgba();
    return QColor::fromRgbF(static_cast<float>(c.r), static_cast<float>(c.g), static_cast<float>(c.b),
                            static_cast<float>(c.a));
}

ColorRef toColor(const QColor& color)
{
    return Color::calibratedRGB(color.red() / 255.0, color.green() / 255.0, color.blue() / 255.0,
                                color.alpha() / 255.0);
}

QString hexText(const QColor& color)
{
    const QString opaque = color.name().toUpper();
    return color.alpha() == 255 ? opaque : opaque + QString::asprintf("%02X", static_cast<unsigned>(color.alpha()));
}

std::optional<QColor> colorOfHexText(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^\\s*#?([0-9A-Fa-f]{6})([0-9A-Fa-f]{2})?\\s*$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    QColor color(u'#' + match.captured(1));
    if (match.hasCaptured(2))
        color.setAlpha(match.captured(2).toInt(nullptr, 16));
    return color;
}

std::optional<QColor> colorOfText(const QString& text)
{
    if (const auto color = colorOfHexText(text))
        return color;
    static const QRegularExpression form(QStringLiteral("^\\s*(#[0-9A-Fa-f]{3}|[A-Za-z ]{3,30})\\s*$"));
    const QString name = form.match(text).captured(1);
    return QColor::isValidColor(name) ? std::optional(QColor(name)) : std::nullopt;
}

} // namespace wallgrid
