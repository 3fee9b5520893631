// SPDX-License-Identifier: MIT
#include "graphics/ring.h"

#include <algorithm>
#include <cmath>

namespace wallgrid {

namespace {

/// The other leg of a right triangle; 0 when there is none. The product keeps the digits that R² − x² would lose.
double leg(double hypotenuse, double side)
{
    return side < hypotenuse ? std::sqrt((hypotenuse - side) * (hypotenuse + side)) : 0;
}

/// The area between a chord, given by the square of its length, and its arc.
double segmentArea(double chordSquared, double radius)
{
    const double t = chordSquared / (4 * radius * radius);
    const double chord = std::sqrt(chordSquared);
    if (t > 1.0 / 16) {
        // Too wide for the series to end soon: the triangle on the chord, and the two segments of half the arc.
        const double sagitta = radius * t / (1 + std::sqrt(std::max(0.0, 1 - t)));
        return chord * sagitta / 2 + 2 * segmentArea(chordSquared / 4 + sagitta * sagitta, radius);
    }
    // R² s³ = c³ / 8R. Below s = 1/4 the terms left out are less than 10⁻⁸ of the first.
    const double series =
        2.0 / 3 + t * (1.0 / 5 + t * (3.0 / 28 + t * (5.0 / 72 + t * (35.0 / 704 + t * (63.0 / 1664)))));
    return chordSquared * chord / (8 * radius) * series;
}

std::int64_t floorToInt(double value)
{
    return static_cast<std::int64_t>(std::floor(value));
}

std::int64_t ceilToInt(double value)
{
    return static_cast<std::int64_t>(std::ceil(value));
}

RingRow::Columns columns(std::int64_t begin, std::int64_t end)
{
    return {begin, std::max(begin, end)};
}

} // namespace

DiscStrip::DiscStrip(double radius, double bottom, double top)
    : m_radius(radius)
    , m_bottom(bottom)
    , m_top(top)
    , m_filledTo(leg(radius, top))
    , m_reachesTo(leg(radius, bottom))
{
}

double DiscStrip::heightAt(double x) const
{
    return std::clamp(leg(m_radius, x), m_bottom, m_top);
}

double DiscStrip::area(double left, double right) const
{
    const double from = std::clamp(m_filledTo, left, right);
    const double to = std::clamp(m_reachesTo, from, right);
    const double rectangle = (from - left) * (m_top - m_bottom);
    if (to <= from)
        return rectangle;
    const double high = heightAt(from);
    const double low = heightAt(to);
    const double width = to - from;
    const double trapezium = width * ((high - m_bottom) + (low - m_bottom)) / 2;
    return rectangle + trapezium + segmentArea(width * width + (high - low) * (high - low), m_radius);
}

RingRow::Folded RingRow::folded(double from)
{
    const double to = from + 1;
    if (from >= 0)
        return {from, to, 1};
    if (to <= 0)
        return {-to, -from, 1};
    return {0, to, 2}; // the centre is a multiple of one half, so it lies in the middle
}

RingRow::RingRow(const Ring& ring, std::int64_t y)
    : RingRow(ring, folded(static_cast<double>(y) - ring.centerY))
{
}

RingRow::RingRow(const Ring& ring, const Folded& rows)
    : m_centerX(ring.centerX)
    , m_weight(rows.weight)
    , m_outer(ring.outerRadius, rows.from, rows.to)
    , m_inner(std::max(0.0, ring.innerRadius), rows.from, rows.to)
    , m_touched(columns(floorToInt(m_centerX - m_outer.reachesTo()), ceilToInt(m_centerX + m_outer.reachesTo())))
    , m_hole(columns(ceilToInt(m_centerX - m_inner.filledTo()), floorToInt(m_centerX + m_inner.filledTo())))
    , m_solidLeft(columns(ceilToInt(m_centerX - m_outer.filledTo()), floorToInt(m_centerX - m_inner.reachesTo())))
    , m_solidRight(columns(ceilToInt(m_centerX + m_inner.reachesTo()), floorToInt(m_centerX + m_outer.filledTo())))
{
}

double RingRow::coverage(std::int64_t x) const
{
    const Folded pixel = folded(static_cast<double>(x) - m_centerX);
    return m_weight * pixel.weight * (m_outer.area(pixel.from, pixel.to) - m_inner.area(pixel.from, pixel.to));
}

} // namespace wallgrid
