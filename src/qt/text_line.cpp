// SPDX-License-Identifier: MIT
#include "qt/text_line.h"

#include "qt/outline_clip.h"

#include <QCache>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace wallgrid {

namespace {

/// Outlines are taken once at this size and scaled: fonts refuse very large sizes, outlines do not.
constexpr int kReferenceSize = 1000;
/// Filling an outline costs what it measures, also where nothing of it shows. A longer one, in pixels, is clipped
/// first.
constexpr std::int64_t kLongestWholeOutline = 1 << 16;

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

const QFont& systemFont()
{
    static const QFont font = makeSystemFont();
    return font;
}

/// The outline on a baseline at 0. Loading glyphs is most of what a short text costs, and a wall of equal screens has
/// the same few texts everywhere. What is kept is counted in elements, of about 50 bytes each, some 30 a letter: texts
/// may be long.
QPainterPath outlineOf(const QByteArray& text)
{
    constexpr int kMostElements = 20'000;
    static QCache<QByteArray, QPainterPath> kept(kMostElements);
    if (const QPainterPath* known = kept.object(text))
        return *known;
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    outline.addText(0, 0, systemFont(), QString::fromUtf8(text));
    kept.insert(text, new QPainterPath(outline), std::max(1, outline.elementCount()));
    return outline;
}

} // namespace

QtTextLine::QtTextLine(std::string_view text, double fontSize)
    : m_outline(outlineOf(QByteArray(text.data(), static_cast<qsizetype>(text.size()))))
    , m_scale(fontSize / kReferenceSize)
{
    static const double descent = QFontMetricsF(systemFont()).descent();
    m_descent = std::round(descent * m_scale);
}

PixelRect QtTextLine::inkBounds() const
{
    const QRectF box = m_outline.controlPointRect();
    const auto left = static_cast<std::int64_t>(std::floor(box.left() * m_scale));
    const auto right = static_cast<std::int64_t>(std::ceil(box.right() * m_scale));
    const auto top = static_cast<std::int64_t>(std::floor(box.top() * m_scale - m_descent));
    const auto bottom = static_cast<std::int64_t>(std::ceil(box.bottom() * m_scale - m_descent));
    return {left, top, right - left, bottom - top};
}

void QtTextLine::rasterize(const PixelRect& area, std::span<std::uint8_t> coverage) const
{
    // Not a mask of 8 bits: on those Qt hands every short run of pixels to other threads, which takes twice as long.
    QImage ink(static_cast<int>(area.width), static_cast<int>(area.height), QImage::Format_ARGB32_Premultiplied);
    if (ink.isNull()) { // there is no memory
        std::ranges::fill(coverage, std::uint8_t{0});
        return;
    }
    ink.fill(0);
    const PixelRect bounds = inkBounds();
    QTransform onInk;
    onInk.translate(static_cast<double>(-area.x), static_cast<double>(-area.y) - m_descent);
    onInk.scale(m_scale, m_scale);
    QPainter painter(&ink);
    painter.setRenderHint(QPainter::Antialiasing);
    if (std::max(bounds.width, bounds.height) > kLongestWholeOutline) {
        painter.fillPath(clippedOutline(onInk.map(m_outline), ink.rect()), Qt::white);
    } else {
        painter.setTransform(onInk);
        painter.fillPath(m_outline, Qt::white);
    }
    painter.end();
    auto* out = coverage.data();
    for (int y = 0; y < ink.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(std::as_const(ink).constScanLine(y));
        out = std::transform(row, row + ink.width(), out, [](QRgb p) { return static_cast<std::uint8_t>(qAlpha(p)); });
    }
}

} // namespace wallgrid
