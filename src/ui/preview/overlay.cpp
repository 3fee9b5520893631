// SPDX-License-Identifier: MIT
#include "ui/preview/overlay.h"

#include <QPainter>
#include <algorithm>

namespace wallgrid {

namespace {

constexpr QColor kAccent{0x2f, 0x9b, 0xff};
constexpr QColor kGuide{0xff, 0x5a, 0xe0};
constexpr QColor kHalo{0, 0, 0, 0xc0};
constexpr int kBeyond = 32;  // widths of a line that a guide is longer than what it belongs to
constexpr int kOutside = 16; // device pixels beyond the view that are still drawn

} // namespace

Overlay::Overlay(QPainter& painter, const Viewport& viewport, const QRect& view, double ratio)
    : m_painter(painter)
    , m_viewport(viewport)
    , m_view(view)
    , m_ratio(ratio)
    , m_line(std::max(1, static_cast<int>(ratio)))
{
}

QRect Overlay::visibleRect(const PixelRect& pixels) const
{
    const QRectF rect = m_viewport.toView(pixels);
    const auto within = [](double value, int low, int high) {
        return static_cast<int>(std::clamp<double>(value, low - kOutside, high + kOutside));
    };
    const int left = within(rect.left(), m_view.left(), m_view.right());
    const int top = within(rect.top(), m_view.top(), m_view.bottom());
    return {left, top, within(rect.right(), m_view.left(), m_view.right()) - left,
            within(rect.bottom(), m_view.top(), m_view.bottom()) - top};
}

void Overlay::paintFrame(const QRect& inner, int width, const QBrush& brush)
{
    const QRect outer = inner.adjusted(-width, -width, width, width);
    m_painter.fillRect(QRect(outer.left(), outer.top(), outer.width(), width), brush);
    m_painter.fillRect(QRect(outer.left(), inner.bottom() + 1, outer.width(), width), brush);
    m_painter.fillRect(QRect(outer.left(), inner.top(), width, inner.height()), brush);
    m_painter.fillRect(QRect(inner.right() + 1, inner.top(), width, inner.height()), brush);
}

void Overlay::paintOutline(const PixelRect& frame, Outline outline)
{
    const int width = outline == Outline::Hovered ? m_line : 2 * m_line;
    // Dark lines on both sides of the bright one, or it would be lost on a wall or a ground of its own colour.
    const QRect item = visibleRect(frame);
    const QRect inner = item.adjusted(-m_line, -m_line, m_line, m_line);
    paintFrame(item, m_line, kHalo);
    paintFrame(inner, width,
               outline == Outline::SelectedInvisible ? QBrush(kAccent, Qt::Dense4Pattern) : QBrush(kAccent));
    paintFrame(inner.adjusted(-width, -width, width, width), m_line, kHalo);
}

void Overlay::paintGuide(const Guide& guide)
{
    const bool upright = guide.orientation == Qt::Vertical;
    const std::int64_t length = guide.to - guide.from;
    const QRect line =
        visibleRect(upright ? PixelRect{guide.at, guide.from, 0, length} : PixelRect{guide.from, guide.at, length, 0});
    const int beyond = kBeyond * m_line;
    const QRect shown = upright ? QRect(line.left(), line.top() - beyond, m_line, line.height() + 2 * beyond)
                                : QRect(line.left() - beyond, line.top(), line.width() + 2 * beyond, m_line);
    m_painter.fillRect(shown, kGuide);
}

void Overlay::paintTag(const PixelRect& frame, const QString& text)
{
    m_painter.save();
    m_painter.scale(m_ratio, m_ratio);
    const QFontMetrics metrics(m_painter.font());
    const QSize size(metrics.horizontalAdvance(text) + 12, metrics.height() + 4);
    const QRect item = visibleRect(frame);
    const QRect view(QPoint(0, 0), (QSizeF(m_view.size()) / m_ratio).toSize());
    QRect tag(QPoint(qRound(item.left() / m_ratio), qRound(item.top() / m_ratio) - size.height() - 6), size);
    tag.moveLeft(std::clamp(tag.left(), 4, std::max(4, view.width() - size.width() - 4)));
    tag.moveTop(std::clamp(tag.top(), 4, std::max(4, view.height() - size.height() - 4)));
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(QColor(0x14, 0x14, 0x14, 0xe0));
    m_painter.drawRoundedRect(tag, 3, 3);
    m_painter.setPen(Qt::white);
    m_painter.drawText(tag, Qt::AlignCenter, text);
    m_painter.restore();
}

} // namespace wallgrid
