// SPDX-License-Identifier: MIT
#include "qt/outline_clip.h"

#include <algorithm>
#include <array>

namespace wallgrid {

namespace {

/// The frame's margin, in pixels, and what counts as a point: so much less that a point on the margin's edge shows
/// nowhere in the frame.
constexpr double kMargin = 4;
constexpr double kPoint = 1;

/// A cubic Bézier curve. A line has its ends twice.
using Curve = std::array<QPointF, 4>;

/// Each point outside a box goes to the nearest one on its edge. On the way it passes no point of the box, so the
/// winding numbers there stay; and what lies on one side of the box becomes a straight line.
class OutlineClip {
public:
    explicit OutlineClip(const QRectF& box)
        : m_box(box)
    {
        m_path.setFillRule(Qt::WindingFill);
    }

    void moveTo(QPointF point)
    {
        close();
        m_start = m_end = point;
        m_path.moveTo(nearest(point));
    }
    void lineTo(QPointF point) { add({m_end, m_end, point, point}, false); }
    void cubicTo(QPointF first, QPointF second, QPointF point) { add({m_end, first, second, point}, true); }
    void close() { lineTo(m_start); }

    const QPainterPath& path() const { return m_path; }

private:
    QPointF nearest(QPointF point) const
    {
        return {std::clamp(point.x(), m_box.left(), m_box.right()), std::clamp(point.y(), m_box.top(), m_box.bottom())};
    }

    void add(const Curve& curve, bool curved)
    {
        const auto [left, right] = std::ranges::minmax_element(curve, {}, &QPointF::x);
        const auto [top, bottom] = std::ranges::minmax_element(curve, {}, &QPointF::y);
        const QRectF hull(QPointF(left->x(), top->y()), QPointF(right->x(), bottom->y()));
        const bool inside = std::ranges::all_of(curve, [&](QPointF point) { return nearest(point) == point; });
        const bool beside = hull.right() < m_box.left() || hull.left() > m_box.right() || hull.bottom() < m_box.top() ||
                            hull.top() > m_box.bottom();
        m_end = curve[3];
        if (inside && curved) {
            m_path.cubicTo(curve[1], curve[2], curve[3]);
        } else if (inside || beside || std::max(hull.width(), hull.height()) < kPoint) {
            m_path.lineTo(nearest(curve[3]));
        } else {
            const QPointF first = (curve[0] + curve[1]) / 2;
            const QPointF middle = (curve[1] + curve[2]) / 2;
            const QPointF last = (curve[2] + curve[3]) / 2;
            const QPointF before = (first + middle) / 2;
            const QPointF after = (middle + last) / 2;
            const QPointF half = (before + after) / 2;
            add({curve[0], first, before, half}, curved);
            add({half, after, last, curve[3]}, curved);
        }
    }

    QRectF m_box;
    QPointF m_start;
    QPointF m_end; ///< of the outline so far
    QPainterPath m_path;
};

} // namespace

QPainterPath clippedOutline(const QPainterPath& outline, const QRectF& frame)
{
    OutlineClip clip(frame.adjusted(-kMargin, -kMargin, kMargin, kMargin));
    for (int i = 0; i < outline.elementCount(); ++i) {
        const QPainterPath::Element element = outline.elementAt(i);
        if (element.isMoveTo()) {
            clip.moveTo(element);
        } else if (element.isLineTo()) {
            clip.lineTo(element);
        } else {
            clip.cubicTo(element, outline.elementAt(i + 1), outline.elementAt(i + 2));
            i += 2;
        }
    }
    clip.close();
    return clip.path();
}

} // namespace wallgrid
