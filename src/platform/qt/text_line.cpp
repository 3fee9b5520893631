// SPDX-License-Identifier: MIT
#include "platform/qt/text_line.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <cmath>

namespace wallgrid {

namespace {

/// Outlines are taken once at this size and scaled: fonts refuse very large sizes, outlines do not.
constexpr int kReferenceSize = 1000;

QFont makeSystemFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    // Families are listed even where no font stands behind them; a digit that can be drawn tells.
    if (!QFontMetricsF(font).inFont(u'0')) {
        const int id = QFontDatabase::addApplicationFont(":/fonts/DejaVuSans.ttf");
        font.setFamilies(QFontDatabase::applicationFontFamilies(id));
    }
    font.setPixelSize(kReferenceSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

QtTextLine::QtTextLine(std::string_view text, double fontSize)
    : m_scale(fontSize / kReferenceSize)
{
    static const QFont font = makeSystemFont();
    m_outline.setFillRule(Qt::WindingFill);
    m_outline.addText(0, 0, font, QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    m_descent = std::round(QFontMetricsF(font).descent() * m_scale);
}

PixelRect QtTextLine::inkBounds() const
{
    const QRectF box = m_outline.controlPointRect();
    const auto left = static_cast<std::int64_t>(std::floor(box.left() * m_scale));
    const auto right = static_cast<std::int64_t>(std::ceil(box.right() * m_scale));
    const auto bottom = static_cast<std::int64_t>(std::floor(m_descent - box.bottom() * m_scale));
    const auto top = static_cast<std::int64_t>(std::ceil(m_descent - box.top() * m_scale));
    return {left, bottom, right - left, top - bottom};
}

void QtTextLine::rasterize(const PixelRect& area, std::span<std::uint8_t> coverage) const
{
    std::fill(coverage.begin(), coverage.end(), std::uint8_t{0});
    QImage mask(coverage.data(), static_cast<int>(area.width), static_cast<int>(area.height),
                static_cast<qsizetype>(area.width), QImage::Format_Alpha8);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(static_cast<double>(-area.x), static_cast<double>(area.top()) - m_descent);
    painter.scale(m_scale, m_scale);
    painter.fillPath(m_outline, Qt::white);
}

} // namespace wallgrid
